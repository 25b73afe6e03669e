#include "app/Splitter.h"

namespace app {

using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;

platform::Color FrameColor() {
    const platform::Color face = platform::systemColor(platform::SysColor::ButtonFace);
    const platform::Color shadow = platform::systemColor(platform::SysColor::ButtonShadow);
    platform::Color mixed = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        mixed |= ((face >> shift & 0xFF) + (shadow >> shift & 0xFF)) / 2 << shift;
    }
    return mixed;
}

bool Splitter::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    if (!createChild(parent, "Splitter", instanceName, bounds, platform::TabStop::No)) return false;
    setPointer(platform::Pointer::SizeWestEast);
    return true;
}

void Splitter::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, platform::systemColor(platform::SysColor::ButtonFace));
    // Three dots in the middle say that the bar can be dragged.
    const Rect area = Rect::fromSize({0, 0}, clientSize());
    canvas.fill({0, 0, 1, area.bottom}, FrameColor());
    canvas.fill({area.right - 1, 0, area.right, area.bottom}, FrameColor());
    const int x = area.width() / 2 - 1;
    for (int y = area.height() / 2 - 7; y <= area.height() / 2 + 5; y += 6) {
        canvas.fill({x, y, x + 2, y + 2}, platform::systemColor(platform::SysColor::ButtonShadow));
    }
}

void Splitter::onMouse(const platform::MouseEvent& event) {
    if (event.button == MouseButton::Left && event.action == MouseAction::Up) {
        // The last move may have been dropped on the way: where the button was released is what counts.
        if (dragging_) Drag(event.at);
        if (dragging_) releaseCapture();
        return;
    }
    if (event.button == MouseButton::Left) {
        dragging_ = true;
        grabX_ = event.at.x;
        capture();
        return;
    }
    if (event.action == MouseAction::Move && dragging_) Drag(event.at);
}

void Splitter::Drag(platform::Point at) {
    if (Moved) Moved(bounds().left + at.x - grabX_);
}

}  // namespace app
