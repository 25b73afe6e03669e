// The flat push button of the message box.
#pragma once

#include <functional>
#include <string>

#include "platform/Window.h"

namespace controls {

// Clicked by the mouse (press and release over it), by the space bar (when it is let go) or by Enter.
class PushButton : public platform::Window {
public:
    std::function<void()> Click;  // the receiver may destroy the button
    // A key went down that the button has no use for.
    std::function<void(const platform::KeyEvent&)> OtherKey;
    std::function<void()> GotFocus;

    // Class "PushButton"; the window's text is the caption. `bounds` in client pixels of the parent.
    bool Create(platform::Window& parent, const std::string& caption, const platform::Rect& bounds);
    // Clicks the button as the user would.
    void Press();

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onCaptureLost() override;

private:
    enum class Held { No, ByMouse, ByKey };
    void SetLook(bool hovered, Held held);
    bool Inside(platform::Point at) const;

    std::string caption_;
    bool hovered_ = false;
    Held held_ = Held::No;
};

}  // namespace controls
