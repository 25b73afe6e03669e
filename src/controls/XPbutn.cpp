#include "controls/XPbutn.h"

#include "controls/Resources.h"

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

// The artwork: for each look a left cap, a middle to repeat, and a right cap, all looks side by side. Only caps
// have transparent corners.
constexpr Size kSlice{5, 21};
constexpr int kSlices = 3;
constexpr Color kTransparent = rgb(255, 0, 255);
enum Look { kNormal, kHover, kPressed, kDisabled };

// The artwork is light on every desktop, so the ink on it is not the desktop's either.
constexpr Color kInk = rgb(30, 42, 56);
constexpr Color kDisabledInk = rgb(150, 155, 161);

constexpr int kFocusInset = 3;
constexpr int kCaptionMargin = 12;

Rect Slice(Look look, int slice) {
    return Rect::fromSize({(look * kSlices + slice) * kSlice.width, 0}, kSlice);
}

}  // namespace

bool XPbutn::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    artwork_ = platform::loadPictureResource(kButtonSlices);
    return CreateButton(parent, "XPbutn", instanceName, {}, bounds);
}

void XPbutn::DrawNormalButton() {
    Reset();
    invalidate();
}

Size XPbutn::PreferredSize() const {
    return {platform::textSize(Caption(), Font::Normal).width + 2 * kCaptionMargin, kSlice.height};
}

void XPbutn::Paint(Canvas& canvas, const Rect& area) {
    canvas.fill(area, systemColor(SysColor::ButtonFace));
    PaintFace(canvas, area);
    canvas.text(
        area, Caption(), Enabled() ? kInk : kDisabledInk, Font::Normal,
        platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine | platform::kTextNoPrefix);
    if (focused()) canvas.focusRect(area.inset(kFocusInset, kFocusInset));
}

// A copy costs next to nothing, a transparent one as much as a line of text: so the many middles are copied.
void XPbutn::PaintFace(Canvas& canvas, const Rect& area) const {
    if (!artwork_) {
        canvas.frame(area, systemColor(SysColor::ButtonShadow));
        return;
    }
    const Look look = !Enabled() ? kDisabled : Pressed() ? kPressed : Hovered() ? kHover : kNormal;
    const int rightCap = area.width() - kSlice.width;
    {
        const platform::ClipGuard clip(canvas, {kSlice.width, 0, rightCap, area.bottom});
        for (int x = 0; x < area.width(); x += kSlice.width) {
            canvas.picture({x, 0}, artwork_, Slice(look, 1));
        }
    }
    canvas.maskedPicture({0, 0}, artwork_, Slice(look, 0), kTransparent);
    canvas.maskedPicture({rightCap, 0}, artwork_, Slice(look, 2), kTransparent);
}

void XPbutn::Clicked() {
    const auto click = Click;  // lives on when the receiver destroys the button
    if (click) click();
}

}  // namespace controls
