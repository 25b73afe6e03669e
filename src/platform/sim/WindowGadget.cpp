// What makes a window of the simulated desktop a thing on it: being seen through, and being dragged by any place.
#include "platform/Window.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::findRecord;
using sim::machine;
using sim::WindowPointer;

bool Window::setTranslucency(std::uint8_t alpha, std::optional<Color> hole) {
    const WindowPointer record = findRecord(native_);
    if (!record || record->kind == WindowKind::Child) return false;
    record->translucency = {alpha, hole};
    return true;
}

void Window::dragAsByCaption() {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("dragAsByCaption", record->title);
    sim::setCapture(0);
    auto& drags = machine().desktop.drags;
    if (drags.empty() || record->destroying) return;
    const Point delta = drags.front();
    drags.pop_front();
    setBounds(record->bounds.offset(delta.x, delta.y));
}

namespace sim {

Translucency translucency(const Window& window) {
    const WindowPointer record = findRecord(window.native());
    return record ? record->translucency : Translucency{};
}

void whenDragged(Point delta) {
    machine().desktop.drags.push_back(delta);
}

}  // namespace sim

}  // namespace platform
