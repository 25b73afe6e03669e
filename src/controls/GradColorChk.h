// A check box with a shaded box and an "X" for its mark.
#pragma once

#include <functional>
#include <string>

#include "controls/ButtonBase.h"

namespace controls {

// Toggled by a click or the space bar.
class GradColorChk : public ButtonBase {
public:
    // The user toggled it; not raised by SetValue. The receiver may destroy the control.
    std::function<void()> Click;

    GradColorChk() : ButtonBase(EnterKey::Ignored) {}
    // Class "GradColorChk", a tab stop; the window's text is the instance name until SetCaption. `bounds` in client
    // pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    bool Value() const { return value_; }
    void SetValue(bool value);
    // Pixels that show box and caption.
    platform::Size PreferredSize() const;

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;
    void Clicked() override;

private:
    bool value_ = false;
};

}  // namespace controls
