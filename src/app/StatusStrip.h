// The line below the lists: how many processes and favourites there are.
#pragma once

#include <string>

#include "platform/Window.h"

namespace app {

class StatusStrip : public platform::Window {
public:
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    // `favorites` is printed at `favoritesX` if there is room for it, or as near as possible behind `processes`.
    // Equal texts repaint nothing.
    void Print(const std::string& processes, const std::string& favorites, int favoritesX);

    // Pixels that hold the line with hundreds of processes and favourites.
    static int UsualWidth();

    const std::string& Processes() const { return processes_; }
    const std::string& Favorites() const { return favorites_; }

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;

private:
    std::string processes_;
    std::string favorites_;
    int favoritesX_ = 0;
};

}  // namespace app
