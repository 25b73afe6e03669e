// A flat check box with a caption.
#pragma once

#include <functional>
#include <string>

#include "platform/Window.h"

namespace controls {

// Toggled by a click (press and release over it) or the space bar while it has the focus.
class CheckBox : public platform::Window {
public:
    std::function<void()> Click;  // after the user toggled it; not raised by SetValue

    bool Create(platform::Window& parent, const std::string& instanceName, const std::string& caption,
                const platform::Rect& bounds);
    bool Value() const { return value_; }
    void SetValue(bool value);
    // Width in pixels that shows the whole caption.
    static int WidthFor(const std::string& caption);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onCaptureLost() override;
    void onSystemColors() override { invalidate(); }

private:
    void Toggle();
    void SetLook(bool hovered, bool pressed);
    bool Inside(platform::Point at) const;

    std::string caption_;
    bool value_ = false;
    bool hovered_ = false;
    bool pressed_ = false;
    bool spaceHeld_ = false;
};

}  // namespace controls
