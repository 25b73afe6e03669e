#include "controls/CheckBox.h"

#include <utility>

namespace controls {

using platform::Font;
using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;
using platform::SysColor;
using platform::systemColor;

namespace {

constexpr int kBox = 13;
constexpr int kTextLeft = kBox + 5;
constexpr int kFocusMargin = 2;

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
    caption_ = caption;
    return createChild(parent, "CheckBox", instanceName, bounds, platform::TabStop::Yes);
}

void CheckBox::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    invalidate();
}

void CheckBox::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::ButtonFace));
    const Rect area = Rect::fromSize({0, 0}, clientSize());
    const int top = (area.height() - kBox) / 2;
    const Rect box{0, top, kBox, top + kBox};
    canvas.fill(box, systemColor(pressed_ ? SysColor::ButtonFace : SysColor::Window));
    canvas.frame(box, systemColor(hovered_ ? SysColor::Highlight : SysColor::ButtonShadow));
    const SysColor ink = enabled() ? SysColor::WindowText : SysColor::GrayText;
    if (value_) DrawTick(canvas, box, systemColor(ink));
    const Rect label{kTextLeft, 0, area.right, area.bottom};
    canvas.text(label.inset(kFocusMargin, 0), caption_, systemColor(ink), Font::Normal,
                platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix);
    if (focused()) canvas.focusRect(label.inset(0, kFocusMargin));
}

void CheckBox::onMouse(const platform::MouseEvent& event) {
    const bool inside = Inside(event.at);
    if (event.button == MouseButton::Left && event.action != MouseAction::Up) {
        focus();
        capture();
        SetLook(true, true);
    } else if (event.button == MouseButton::Left && pressed_) {
        releaseCapture();
        SetLook(inside, false);
        if (inside) Toggle();
    } else if (event.action == MouseAction::Move) {
        SetLook(inside, pressed_);
    }
}

void CheckBox::onMouseLeave() {
    SetLook(false, pressed_);
}

void CheckBox::onCaptureLost() {
    SetLook(false, false);
}

void CheckBox::onFocus(bool) {
    spaceHeld_ = false;
    invalidate();
}

void CheckBox::onKey(const platform::KeyEvent& event) {
    if (event.code != platform::key::kSpace) return;
    // On the release, so that a held key does not flip it again and again.
    if (event.down) {
        spaceHeld_ = true;
    } else if (std::exchange(spaceHeld_, false)) {
        Toggle();
    }
}

void CheckBox::Toggle() {
    SetValue(!value_);
    if (Click) Click();
}

void CheckBox::SetLook(bool hovered, bool pressed) {
    if (hovered == hovered_ && pressed == pressed_) return;
    hovered_ = hovered;
    pressed_ = pressed;
    invalidate();
}

bool CheckBox::Inside(platform::Point at) const {
    return Rect::fromSize({0, 0}, clientSize()).contains(at);
}

}  // namespace controls
