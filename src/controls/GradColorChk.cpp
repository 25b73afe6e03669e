#include "controls/GradColorChk.h"

#include <algorithm>

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::Font;
using platform::Rect;
using platform::rgb;
using platform::Size;
using platform::SysColor;
using platform::systemColor;

namespace {

// The mark's place, (3, -1) in the box, is in the middle of a box of this size with the usual font.
constexpr int kBox = 13;
constexpr int kCaptionLeft = 16;
constexpr int kFocusMargin = 2;

// Light from above left on a hollow: its upper side is the darker one.
struct Shade {
    Color from, to;
};
constexpr Shade kPlain{rgb(208, 214, 222), rgb(255, 255, 255)};
constexpr Shade kHover{rgb(190, 221, 242), rgb(240, 249, 255)};
constexpr Shade kPressed{rgb(160, 200, 226), rgb(206, 230, 245)};
constexpr Shade kDisabled{rgb(224, 224, 224), rgb(244, 244, 244)};
// The box is light on every desktop, so the mark in it is not the desktop's colour either.
constexpr Color kMark = rgb(20, 32, 48);
constexpr Color kDisabledMark = rgb(160, 160, 160);

}  // namespace

bool GradColorChk::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    return CreateButton(parent, "GradColorChk", instanceName, {}, bounds);
}

void GradColorChk::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    if (exists()) invalidate();
}

Size GradColorChk::PreferredSize() const {
    const Size text = platform::textSize(Caption(), Font::Normal);
    return {kCaptionLeft + text.width + kFocusMargin, std::max(kBox, text.height) + 2 * kFocusMargin};
}

void GradColorChk::Paint(Canvas& canvas, const Rect& area) {
    canvas.fill(area, systemColor(SysColor::ButtonFace));
    const int top = (area.height() - kBox) / 2;
    const Rect box{0, top, kBox, top + kBox};
    const Shade& shade = !Enabled() ? kDisabled : Pressed() ? kPressed : Hovered() ? kHover : kPlain;
    canvas.gradient(box, shade.from, shade.to, platform::Direction::Vertical);
    canvas.edge(box, platform::Edge::SunkenInner);
    const Size mark = platform::textSize("X", Font::Normal);
    if (value_) {
        canvas.text(Rect::fromSize({3, top - 1}, mark), "X", Enabled() ? kMark : kDisabledMark, Font::Normal,
                    platform::kTextSingleLine);
    }
    const Rect label{kCaptionLeft, 0, area.right, area.bottom};
    canvas.text(label, Caption(), systemColor(Enabled() ? SysColor::ButtonText : SysColor::GrayText), Font::Normal,
                platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix);
    if (focused()) {
        const Size text = platform::textSize(Caption(), Font::Normal);
        const Rect around = Rect::fromSize({kCaptionLeft, (area.height() - text.height) / 2}, text);
        canvas.focusRect(around.inset(-kFocusMargin + 1, -kFocusMargin).intersect(area));
    }
}

void GradColorChk::Clicked() {
    SetValue(!value_);
    const auto click = Click;  // lives on when the receiver destroys the control
    if (click) click();
}

}  // namespace controls
