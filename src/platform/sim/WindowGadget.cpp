// What makes a window of the simulated desktop a thing on it: being seen through, and being dragged by any place.
#include <utility>

#include "platform/Window.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::findRecord;
using sim::machine;
using sim::WindowPointer;
using sim::WindowRecord;

bool Window::setTranslucency(std::uint8_t alpha, std::optional<Color> hole) {
    const WindowPointer record = findRecord(native_);
    if (!record || record->kind == WindowKind::Child) return false;
    record->translucency = {alpha, hole};
    return true;
}

void Window::dragAsByCaption() {
    const WindowPointer record = findRecord(native_);
    sim::Desktop& desktop = machine().desktop;
    if (!record || !desktop.leftHeld) return;
    sim::note("dragAsByCaption", record->title);
    sim::setCapture(0);
    sim::activate(sim::topLevel(record));
    if (!desktop.drags.empty()) {
        const Point delta = desktop.drags.front();
        desktop.drags.pop_front();
        sim::run(sim::kModalMilliseconds);
        desktop.pointer = {desktop.pointer.x + delta.x, desktop.pointer.y + delta.y};
        // By record: the window may have gone meanwhile.
        if (record->object != nullptr && !record->destroying) {
            record->object->setBounds(record->bounds.offset(delta.x, delta.y));
        }
    }
    desktop.leftHeld = false;
    desktop.dragTookButton = true;
}

namespace sim {

std::uintptr_t innermostAt(const WindowRecord& record, Point screen) {
    const Point origin = clientOrigin(record);
    for (const std::uintptr_t native : record.children) {
        const WindowPointer child = findRecord(native);
        if (!child->shown) continue;
        if (child->bounds.offset(origin.x, origin.y).contains(screen)) return innermostAt(*child, screen);
    }
    return record.native;
}

bool isSeenThrough(const WindowRecord& record, Point screen) {
    const Translucency& translucency = record.translucency;
    if (translucency.alpha == 0) return true;
    if (!translucency.hole) return false;
    const WindowPointer inner = findRecord(innermostAt(record, screen));
    const Point origin = clientOrigin(*inner);
    return inner->object != nullptr &&
           pixelAt(*inner->object, {screen.x - origin.x, screen.y - origin.y}) == *translucency.hole;
}

Translucency translucency(const Window& window) {
    const WindowPointer record = findRecord(window.native());
    return record ? record->translucency : Translucency{};
}

void whenDragged(Point delta) {
    machine().desktop.drags.push_back(delta);
}

}  // namespace sim

}  // namespace platform
