#include "controls/CheckBox.h"

namespace controls {

using platform::Font;
using platform::Rect;
using platform::SysColor;
using platform::systemColor;

namespace {

constexpr int kBox = 13;
constexpr int kTextLeft = kBox + 5;
constexpr int kFocusMargin = 2;
constexpr int kInBetweenMargin = 4;  // around the square that stands for "some are, some are not"

void DrawTick(platform::Canvas& canvas, const Rect& box, platform::Color color) {
    // A tick three pixels thick: down to the right, then up to the right.
    constexpr int kTurn = 2;
    constexpr int kLength = 7;
    for (int step = 0; step < kLength; ++step) {
        const int x = box.left + 3 + step;
        const int y = box.top + 5 + (step <= kTurn ? step : 2 * kTurn - step);
        canvas.fill({x, y, x + 1, y + 3}, color);
    }
}

}  // namespace

int CheckBox::WidthFor(const std::string& caption) {
    return kTextLeft + platform::textSize(caption, Font::Normal).width + 2 * kFocusMargin + 2;
}

bool CheckBox::Create(platform::Window& parent, const std::string& instanceName, const std::string& caption,
                      const Rect& bounds) {
    return CreateButton(parent, "CheckBox", instanceName, caption, bounds);
}

void CheckBox::Show(Mark mark) {
    if (mark == mark_) return;
    mark_ = mark;
    invalidate();
}

void CheckBox::Paint(platform::Canvas& canvas, const Rect& area) {
    canvas.fill(area, systemColor(SysColor::ButtonFace));
    const int top = (area.height() - kBox) / 2;
    const Rect box{0, top, kBox, top + kBox};
    canvas.fill(box, systemColor(Pressed() ? SysColor::ButtonFace : SysColor::Window));
    canvas.frame(box, systemColor(Hovered() ? SysColor::Highlight : SysColor::ButtonShadow));
    const auto ink = [this](SysColor enabled) { return systemColor(Enabled() ? enabled : SysColor::GrayText); };
    const platform::Color mark = ink(Pressed() ? SysColor::ButtonText : SysColor::WindowText);
    if (mark_ == Mark::Tick) DrawTick(canvas, box, mark);
    if (mark_ == Mark::InBetween) canvas.fill(box.inset(kInBetweenMargin, kInBetweenMargin), mark);
    const Rect label{kTextLeft, 0, area.right, area.bottom};
    canvas.text(label.inset(kFocusMargin, 0), Caption(), ink(SysColor::ButtonText), Font::Normal,
                platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix);
    if (focused()) canvas.focusRect(label.inset(0, kFocusMargin));
}

void CheckBox::Clicked() {
    SetValue(!Value());
    const auto click = Click;  // lives on when the receiver destroys the box
    if (click) click();
}

}  // namespace controls
