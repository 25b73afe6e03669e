#include "controls/ProgressBar.h"

#include <algorithm>

#include "text/Numbers.h"

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::Rect;
using platform::rgb;

namespace {

struct Shade {
    Color from, to;
};
constexpr Shade kGround{rgb(128, 128, 128), rgb(255, 255, 255)};
constexpr Shade kGreen{rgb(0, 128, 0), rgb(128, 255, 128)};
constexpr Shade kOrange{rgb(255, 128, 0), rgb(255, 255, 0)};
constexpr Shade kRed{rgb(128, 0, 0), rgb(255, 0, 0)};
constexpr Color kInk = rgb(0, 0, 0);

constexpr int kOrangeFrom = 80;
constexpr int kRedFrom = 90;

// Along the bar, so that each part grows lighter towards its end. The end of the bar then stands out from the
// ground, and the dark beginnings lie at the left edge and close to the right one, where the black text is not.
void Shaded(Canvas& canvas, const Rect& area, const Shade& shade) {
    if (!area.empty()) canvas.gradient(area, shade.from, shade.to, platform::Direction::Horizontal);
}

}  // namespace

bool ProgressBar::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    return createChild(parent, "ProgressBar", instanceName, bounds, platform::TabStop::No);
}

void ProgressBar::SetValue(std::int16_t percent) {
    if (percent == value_) return;
    value_ = percent;
    invalidate();
}

void ProgressBar::SetCaption(const std::string& caption) {
    if (caption == caption_) return;
    caption_ = caption;
    invalidate();
}

void ProgressBar::SetTriColor(bool triColor) {
    if (triColor == triColor_) return;
    triColor_ = triColor;
    invalidate();
}

Rect ProgressBar::Part(int fromPercent, int toPercent) const {
    // Both ends are rounded in the same way, to the nearest pixel, so that neighbouring parts meet.
    const platform::Size size = clientSize();
    const auto pixels = [&size](int percent) { return (percent * size.width + 50) / 100; };
    return {pixels(fromPercent), 0, pixels(toPercent), size.height};
}

void ProgressBar::onPaint(Canvas& canvas, const Rect&) {
    const int end = std::clamp<int>(value_, 0, 100);
    Shaded(canvas, Part(0, 100), kGround);
    Shaded(canvas, Part(0, end), kGreen);
    if (triColor_ && end > kOrangeFrom) Shaded(canvas, Part(kOrangeFrom, end), kOrange);
    if (triColor_ && end > kRedFrom) Shaded(canvas, Part(kRedFrom, end), kRed);
    canvas.text(Part(0, 100), caption_ + text::TwoDigits(value_) + " %", kInk, platform::Font::Normal,
                platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine);
}

void ProgressBar::onMouse(const platform::MouseEvent& event) {
    if (event.action == platform::MouseAction::Move && Hover) Hover();
}

void ProgressBar::onMouseLeave() {
    if (Left) Left();
}

}  // namespace controls
