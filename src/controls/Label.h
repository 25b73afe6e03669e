// A line of text in a dialog.
#pragma once

#include <string>

#include "platform/Window.h"

namespace controls {

// The window's text is what it shows, so that a screen reader finds it; what does not fit ends in dots.
class Label : public platform::Window {
public:
    // Class "Label", no tab stop; the window's text is the instance name until SetCaption. `bounds` in client
    // pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    void SetCaption(const std::string& caption);
    // Greyed, as the words for a control that is.
    void SetEnabled(bool enabled);
    // Pixels that show the whole caption.
    platform::Size PreferredSize() const;

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSystemColors() override { invalidate(); }
};

}  // namespace controls
