// A flat check box with a caption.
#pragma once

#include <functional>
#include <string>

#include "controls/ButtonBase.h"

namespace controls {

// Toggled by a click or the space bar.
class CheckBox : public ButtonBase {
public:
    std::function<void()> Click;  // after the user toggled it; not raised by SetValue

    CheckBox() : ButtonBase(EnterKey::Ignored) {}
    bool Create(platform::Window& parent, const std::string& instanceName, const std::string& caption,
                const platform::Rect& bounds);
    bool Value() const { return value_; }
    void SetValue(bool value);
    // Width in pixels that shows the whole caption.
    static int WidthFor(const std::string& caption);

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;
    void Clicked() override;

private:
    bool value_ = false;
};

}  // namespace controls
