#include "controls/HorizSlider.h"

#include <algorithm>

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;
using platform::rgb;
using platform::SysColor;
using platform::systemColor;

namespace {

constexpr int kThumbWidth = 11;
constexpr int kTrackHeight = 4;

struct Face {
    Color top, bottom, border;
};
constexpr Face kPlain{rgb(246, 246, 246), rgb(206, 206, 206), rgb(112, 112, 112)};
constexpr Face kActive{rgb(234, 246, 253), rgb(190, 221, 242), rgb(60, 127, 177)};
constexpr Face kDragged{rgb(160, 200, 226), rgb(196, 224, 242), rgb(60, 127, 177)};
constexpr Face kDisabled{rgb(244, 244, 244), rgb(230, 230, 230), rgb(176, 176, 176)};

}  // namespace

bool HorizSlider::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    return createChild(parent, "HorizSlider", instanceName, bounds, platform::TabStop::Yes);
}

int HorizSlider::Travel() const {
    return std::max(0, clientSize().width - kThumbWidth);
}

Rect HorizSlider::Thumb() const {
    return {thumbLeft_, 0, thumbLeft_ + kThumbWidth, clientSize().height};
}

void HorizSlider::SetRange(int least, int most, int page) {
    least_ = least;
    most_ = most;
    page_ = page;
    SetValue(value_);
}

void HorizSlider::SetValue(int value) {
    value_ = static_cast<std::int16_t>(std::clamp(value, least_, most_));
    thumbLeft_ = (value_ - least_) * Travel() / (most_ - least_);
    if (exists()) invalidate();
}

void HorizSlider::SetEnabled(bool enabled) {
    enable(enabled);
    invalidate();
}

void HorizSlider::onSize(platform::Size, platform::WindowState) {
    SetValue(value_);
}

// ---- the user ----

void HorizSlider::ChangeTo(int value) {
    if (value == value_) return;
    SetValue(value);
    const auto change = Change;  // lives on when the receiver destroys the control
    if (change) change();
}

// The thumb stays under the pointer to the pixel; only a new value is told.
void HorizSlider::MoveThumb(int left) {
    const int travel = Travel();
    if (travel == 0) return;
    thumbLeft_ = std::clamp(left, 0, travel);
    invalidate();
    const int value = least_ + (2 * thumbLeft_ * (most_ - least_) + travel) / (2 * travel);
    if (value == value_) return;
    value_ = static_cast<std::int16_t>(value);
    const auto change = Change;
    if (change) change();
}

void HorizSlider::onMouse(const platform::MouseEvent& event) {
    if (event.action == MouseAction::Move) {
        SetHovered(Thumb().contains(event.at));
        if (dragging_) MoveThumb(event.at.x - grip_);
    } else if (event.button != MouseButton::Left) {
        return;
    } else if (event.action == MouseAction::Up) {
        releaseCapture();
    } else {
        Press(event.at);
    }
}

// The release comes through the message loop, to whoever holds the mouse, like every other event: waiting for it
// here in a loop that sleeps would hold up the caller, run other handlers inside this one, and miss a capture that
// is taken away.
void HorizSlider::Press(platform::Point at) {
    focus();
    capture();
    dragging_ = true;
    const bool onThumb = Thumb().contains(at);
    grip_ = onThumb ? at.x - thumbLeft_ : kThumbWidth / 2;
    hovered_ = true;
    invalidate();
    if (!onThumb) MoveThumb(at.x - grip_);
}

void HorizSlider::onCaptureLost() {
    dragging_ = false;
    if (!underPointer()) hovered_ = false;
    invalidate();
}

void HorizSlider::onMouseLeave() {
    if (!dragging_) SetHovered(false);
}

void HorizSlider::SetHovered(bool hovered) {
    if (hovered == hovered_) return;
    hovered_ = hovered;
    invalidate();
}

void HorizSlider::onFocus(bool) {
    invalidate();
}

// Up and Page Up lead to the left, as in the system's own sliders.
void HorizSlider::onKey(const platform::KeyEvent& event) {
    namespace key = platform::key;
    if (!event.down || dragging_) return;
    const auto to = [this](int value) { ChangeTo(std::clamp(value, least_, most_)); };
    switch (event.code) {
        case key::kLeft:
        case key::kUp:
            return to(value_ - 1);
        case key::kRight:
        case key::kDown:
            return to(value_ + 1);
        case key::kPageUp:
            return to(value_ - page_);
        case key::kPageDown:
            return to(value_ + page_);
        case key::kHome:
            return to(least_);
        case key::kEnd:
            return to(most_);
        default:
            return;
    }
}

// ---- painting ----

void HorizSlider::onPaint(Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::ButtonFace));
    const platform::Size size = clientSize();
    const int top = (size.height - kTrackHeight) / 2;
    const Rect track{kThumbWidth / 2, top, size.width - kThumbWidth / 2, top + kTrackHeight};
    canvas.fill(track, systemColor(Enabled() ? SysColor::Window : SysColor::ButtonFace));
    canvas.edge(track, platform::Edge::SunkenInner);
    const bool active = hovered_ || focused();
    const Face& face = !Enabled() ? kDisabled : dragging_ ? kDragged : active ? kActive : kPlain;
    canvas.gradient(Thumb(), face.top, face.bottom, platform::Direction::Vertical);
    canvas.frame(Thumb(), face.border);
    if (focused()) canvas.focusRect(Thumb().inset(2, 2));
}

}  // namespace controls
