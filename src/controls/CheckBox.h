// A flat check box with a caption.
#pragma once

#include <functional>
#include <string>

#include "controls/ButtonBase.h"

namespace controls {

// Toggled by a click or the space bar. A box that stands for several things of which some are on and some off is in
// between, until it is toggled, on at first, or given a value.
class CheckBox : public ButtonBase {
public:
    std::function<void()> Click;  // after the user toggled it; not raised by SetValue

    CheckBox() : ButtonBase(EnterKey::Ignored) {}
    bool Create(platform::Window& parent, const std::string& instanceName, const std::string& caption,
                const platform::Rect& bounds);
    bool Value() const { return mark_ == Mark::Tick; }
    void SetValue(bool value) { Show(value ? Mark::Tick : Mark::None); }
    bool InBetween() const { return mark_ == Mark::InBetween; }
    void SetInBetween() { Show(Mark::InBetween); }
    // Width in pixels that shows the whole caption.
    static int WidthFor(const std::string& caption);

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;
    void Clicked() override;

private:
    enum class Mark { None, Tick, InBetween };
    void Show(Mark mark);

    Mark mark_ = Mark::None;
};

}  // namespace controls
