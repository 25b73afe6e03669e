#include "controls/PushButton.h"

namespace controls {

using platform::Color;
using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;
using platform::rgb;

namespace {

// The message box has a grey ground of its own on every desktop, so its buttons have their own colours too.
constexpr Color kInk = rgb(0, 0, 0);
constexpr Color kBorder = rgb(112, 112, 112);
constexpr Color kActiveBorder = rgb(60, 127, 177);
constexpr int kFocusInset = 3;

struct Face {
    Color top, bottom;
};
constexpr Face kPlain{rgb(246, 246, 246), rgb(214, 214, 214)};
constexpr Face kHover{rgb(234, 246, 253), rgb(190, 221, 242)};
constexpr Face kDown{rgb(160, 200, 226), rgb(196, 224, 242)};

}  // namespace

bool PushButton::Create(platform::Window& parent, const std::string& caption, const Rect& bounds) {
    caption_ = caption;
    return createChild(parent, "PushButton", caption, bounds, platform::TabStop::Yes);
}

void PushButton::onPaint(platform::Canvas& canvas, const Rect&) {
    const Rect area = Rect::fromSize({0, 0}, clientSize());
    const bool down = held_ == Held::ByKey || (held_ == Held::ByMouse && hovered_);
    const Face& face = down ? kDown : hovered_ ? kHover : kPlain;
    canvas.gradient(area, face.top, face.bottom, platform::Direction::Vertical);
    const bool active = focused() || hovered_;
    canvas.frame(area, active ? kActiveBorder : kBorder);
    canvas.text(
        down ? area.offset(1, 1) : area, caption_, kInk, platform::Font::Normal,
        platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine | platform::kTextNoPrefix);
    if (focused()) canvas.focusRect(area.inset(kFocusInset, kFocusInset));
}

void PushButton::Press() {
    const auto click = Click;  // lives on when the receiver destroys the button
    if (click) click();
}

void PushButton::onMouse(const platform::MouseEvent& event) {
    const bool inside = Inside(event.at);
    if (event.action == MouseAction::Move) {
        SetLook(inside, held_);
    } else if (event.button != MouseButton::Left) {
        return;
    } else if (event.action == MouseAction::Up) {
        const bool pressed = held_ == Held::ByMouse;
        SetLook(inside, Held::No);
        releaseCapture();
        if (pressed && inside) Press();
    } else {
        focus();
        capture();
        SetLook(true, Held::ByMouse);
    }
}

void PushButton::onMouseLeave() {
    if (!captured()) SetLook(false, held_);
}

void PushButton::onCaptureLost() {
    if (held_ == Held::ByMouse) SetLook(false, Held::No);
}

void PushButton::onFocus(bool gained) {
    if (!gained && held_ == Held::ByKey) held_ = Held::No;
    invalidate();
    if (gained && GotFocus) GotFocus();
}

void PushButton::onKey(const platform::KeyEvent& event) {
    if (event.code == platform::key::kSpace) {
        const bool pressed = held_ == Held::ByKey;
        if (event.down && held_ == Held::No) SetLook(hovered_, Held::ByKey);
        if (event.down || !pressed) return;
        SetLook(hovered_, Held::No);
        Press();
    } else if (event.down && event.code == platform::key::kEnter) {
        Press();
    } else if (event.down && OtherKey) {
        const auto otherKey = OtherKey;
        otherKey(event);
    }
}

void PushButton::SetLook(bool hovered, Held held) {
    if (hovered == hovered_ && held == held_) return;
    hovered_ = hovered;
    held_ = held;
    invalidate();
}

bool PushButton::Inside(platform::Point at) const {
    return Rect::fromSize({0, 0}, clientSize()).contains(at);
}

}  // namespace controls
