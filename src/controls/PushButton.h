// The flat push button of the message box.
#pragma once

#include <functional>
#include <string>

#include "controls/ButtonBase.h"

namespace controls {

// Clicked by the mouse, the space bar or Enter.
class PushButton : public ButtonBase {
public:
    std::function<void()> Click;  // the receiver may destroy the button
    // A key went down that the button has no use for.
    std::function<void(const platform::KeyEvent&)> OtherKey;
    std::function<void()> GotFocus;

    PushButton() : ButtonBase(EnterKey::Clicks) {}
    // Class "PushButton"; the window's text is the caption. `bounds` in client pixels of the parent.
    bool Create(platform::Window& parent, const std::string& caption, const platform::Rect& bounds);

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;
    void Clicked() override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
};

}  // namespace controls
