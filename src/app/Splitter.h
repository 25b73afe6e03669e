// The bar between the two lists.
#pragma once

#include <functional>
#include <string>

#include "platform/Window.h"

namespace app {

// Colour of the thin frames around the lists: between the desktop's face and shadow colours.
platform::Color FrameColor();

// Dragging it reports the wanted left edge (in the parent's client pixels) while the button is held. A lost
// capture ends the drag where it is.
class Splitter : public platform::Window {
public:
    std::function<void(int left)> Moved;

    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onCaptureLost() override { dragging_ = false; }

private:
    void Drag(platform::Point at);

    bool dragging_ = false;
    int grabX_ = 0;
};

}  // namespace app
