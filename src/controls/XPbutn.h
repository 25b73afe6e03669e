// The program's push button, drawn from slices of a picture.
#pragma once

#include <functional>
#include <string>

#include "controls/ButtonBase.h"

namespace controls {

// Clicked by the mouse, the space bar or Enter. It is meant to be 21 pixels high, as its artwork is.
class XPbutn : public ButtonBase {
public:
    std::function<void()> Click;  // the receiver may destroy the button

    XPbutn() : ButtonBase(EnterKey::Clicks) {}
    // Class "XPbutn", a tab stop; the window's text is the instance name until SetCaption. `bounds` in client
    // pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    // Repaints the button in its normal state: neither pressed nor under the pointer.
    void DrawNormalButton();
    // Pixels that show the whole caption.
    platform::Size PreferredSize() const;

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;
    void Clicked() override;

private:
    void PaintFace(platform::Canvas& canvas, const platform::Rect& area) const;

    platform::PictureHandle artwork_;
};

}  // namespace controls
