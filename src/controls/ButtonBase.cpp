#include "controls/ButtonBase.h"

#include <utility>

namespace controls {

using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;

namespace {

// While the mouse is captured for the hover look no leave is told, and the pointer may go over to another program's
// window unseen.
constexpr int kHoverWatch = 1;
constexpr std::uint32_t kHoverWatchPeriod = 100;  // milliseconds

}  // namespace

bool ButtonBase::CreateButton(platform::Window& parent, const std::string& className,
                              const std::string& instanceName, const std::string& caption, const Rect& bounds) {
    caption_ = caption;
    return createChild(parent, className, instanceName, bounds, platform::TabStop::Yes);
}

void ButtonBase::SetCaption(const std::string& caption) {
    caption_ = caption;
    setText(caption);
    invalidate();
}

void ButtonBase::SetEnabled(bool enabled) {
    if (enabled == this->enabled()) return;
    enable(enabled);
    Reset();
    invalidate();
}

void ButtonBase::Reset() {
    SetHeld(Held::No);
    SetHovered(false);
}

void ButtonBase::onPaint(platform::Canvas& canvas, const Rect&) {
    Paint(canvas, Rect::fromSize({0, 0}, clientSize()));
}

// ---- mouse ----

void ButtonBase::SetHovered(bool hovered) {
    if (hovered == hovered_) return;
    hovered_ = hovered;  // before the capture goes: its loss is then no news
    invalidate();
    if (hovered) {
        capture();
        startTimer(kHoverWatch, kHoverWatchPeriod);
        return;
    }
    stopTimer(kHoverWatch);
    if (held_ != Held::ByMouse) releaseCapture();  // else it may come back with the button still down
    if (Left) Left();
}

void ButtonBase::SetHeld(Held held) {
    if (held == held_) return;
    held_ = held;
    invalidate();
}

void ButtonBase::onMouse(const platform::MouseEvent& event) {
    const bool inside = Rect::fromSize({0, 0}, clientSize()).contains(event.at);
    if (event.action == MouseAction::Move) {
        // A drag that began elsewhere and passes by changes nothing.
        SetHovered(inside && (!event.leftHeld || held_ == Held::ByMouse));
        if (hovered_ && Hover) Hover();
    } else if (event.button != MouseButton::Left || !inside) {
        if (event.action == MouseAction::Up && event.button == MouseButton::Left) Release(false);
        SetHovered(inside && hovered_);
    } else if (event.action == MouseAction::Up) {
        Release(true);
    } else {
        focus();
        SetHovered(true);
        SetHeld(Held::ByMouse);
    }
}

void ButtonBase::Release(bool inside) {
    const bool clicked = inside && held_ == Held::ByMouse;
    // The capture goes before the click, which may show a window. A pointer that rests here is reported again.
    Reset();
    releaseCapture();
    if (clicked) Clicked();
}

void ButtonBase::onMouseLeave() {
    if (!captured()) SetHovered(false);
}

void ButtonBase::onCaptureLost() {
    if (held_ == Held::ByMouse) SetHeld(Held::No);
    SetHovered(false);
}

void ButtonBase::onTimer(int id) {
    if (id != kHoverWatch || held_ == Held::ByMouse || (visible() && enabled() && underPointer())) return;
    SetHovered(false);
}

void ButtonBase::onDestroyed() {
    // A window that dies with the capture is not told that it lost it.
    hovered_ = false;
    held_ = Held::No;
}

// ---- keyboard ----

void ButtonBase::onFocus(bool gained) {
    if (!gained && held_ == Held::ByKey) held_ = Held::No;
    invalidate();
}

void ButtonBase::onKey(const platform::KeyEvent& event) {
    namespace key = platform::key;
    if (event.code != key::kSpace && (event.code != key::kEnter || enter_ == EnterKey::Ignored)) return;
    if (event.down) {
        if (held_ != Held::No) return;
        heldKey_ = event.code;
        SetHeld(Held::ByKey);
    } else if (held_ == Held::ByKey && heldKey_ == event.code) {
        Reset();
        Clicked();
    }
}

}  // namespace controls
