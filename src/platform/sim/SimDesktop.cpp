// Inside the simulated desktop: which window is active, has the focus or the mouse, and how a window goes.
#include "platform/sim/SimDesktop.h"

#include <algorithm>

namespace platform::sim {

namespace {

bool holds(const WindowRecord& outer, std::uintptr_t inner) {
    for (WindowPointer at = findRecord(inner); at; at = findRecord(at->parent)) {
        if (at->native == outer.native) return true;
        if (at->kind != WindowKind::Child) return false;
    }
    return false;
}

// Own visibility counts, not that of the parents: a dialog finds its first stop while it is coming up.
void collectTabStops(const WindowRecord& parent, std::vector<std::uintptr_t>& stops) {
    for (const std::uintptr_t native : parent.children) {
        const WindowPointer child = findRecord(native);
        if (!child->shown || !child->enabled) continue;
        if (child->tabStop) stops.push_back(native);
        collectTabStops(*child, stops);
    }
}

std::uintptr_t focusWhenActivated(const WindowRecord& window) {
    if (window.lastFocus != window.native && holds(window, window.lastFocus)) {
        // What was hidden meanwhile leaves it to what holds it.
        WindowPointer last = findRecord(window.lastFocus);
        while (last->kind == WindowKind::Child && !last->shown) last = findRecord(last->parent);
        if (last->native != window.native && takesInput(*last)) return last->native;
    }
    std::vector<std::uintptr_t> stops;
    if (window.kind == WindowKind::Dialog) collectTabStops(window, stops);
    return stops.empty() ? window.native : stops.front();
}

// The window is that one, or owned by it, or by what it owns.
bool belongsTo(const WindowRecord& window, std::uintptr_t outer) {
    if (window.native == outer) return true;
    const WindowPointer owner = findRecord(window.parent);
    return owner && belongsTo(*owner, outer);
}

// What a topmost window owns is topmost too.
bool isTopmost(const WindowRecord& window) {
    if (window.topmost || window.kind == WindowKind::Popup) return true;
    const WindowPointer owner = findRecord(window.parent);
    return owner && isTopmost(*owner);
}

// Above all others, and above it what it owns, in the order that this had.
void lift(const WindowPointer& window) {
    const std::vector<WindowPointer> before = topLevelsFromTop();
    window->height = nextSerial();
    for (auto at = before.rbegin(); at != before.rend(); ++at) {
        if ((*at)->parent == window->native) lift(*at);
    }
}

// From here on no handler of the window, or of a window inside it, runs.
void silence(const WindowRecord& parent) {
    for (const std::uintptr_t native : parent.children) {
        const WindowPointer child = findRecord(native);
        if (child->object != nullptr) WindowAccess::forget(*child->object);
        child->object = nullptr;
        silence(*child);
    }
}

void forgetInput(const WindowRecord& window) {
    Desktop& desktop = machine().desktop;
    if (desktop.underPointer == window.native) desktop.underPointer = 0;
    if (desktop.hovered == window.native) desktop.hovered = 0;
    if (desktop.capture == window.native) desktop.capture = 0;  // nobody is told
    std::erase_if(machine().timers, [&](const TimerRecord& timer) { return timer.window == window.native; });
}

void destroyInside(const WindowPointer& window) {
    std::vector<std::uintptr_t> inside = window->children;
    for (const auto& [native, record] : machine().desktop.windows) {
        if (record->kind != WindowKind::Child && record->parent == window->native) inside.push_back(native);
    }
    for (const std::uintptr_t native : inside) {
        if (const WindowPointer record = findRecord(native)) destroyRecord(record, false);
    }
}

}  // namespace

WindowPointer findRecord(std::uintptr_t native) {
    if (native == 0) return nullptr;
    const auto& windows = machine().desktop.windows;
    const auto found = windows.find(native);
    return found == windows.end() ? nullptr : found->second;
}

WindowPointer topLevel(const WindowPointer& inside) {
    WindowPointer at = inside;
    while (at && at->kind == WindowKind::Child) at = findRecord(at->parent);
    return at;
}

std::vector<WindowPointer> topLevelsFromTop() {
    std::vector<WindowPointer> found;
    for (const auto& [native, record] : machine().desktop.windows) {
        if (record->kind != WindowKind::Child) found.push_back(record);
    }
    std::sort(found.begin(), found.end(), [](const WindowPointer& a, const WindowPointer& b) {
        return std::pair(isTopmost(*a), a->height) > std::pair(isTopmost(*b), b->height);
    });
    return found;
}

void raise(const WindowPointer& window) {
    if (const WindowPointer owner = findRecord(window->parent)) raise(owner);
    lift(window);
}

bool isVisible(const WindowRecord& record) {
    if (!record.shown || record.kind != WindowKind::Child) return record.shown;
    const WindowPointer parent = findRecord(record.parent);
    return parent && isVisible(*parent);
}

bool isEnabled(const WindowRecord& record) {
    const auto& modals = machine().desktop.modals;
    const bool blocked = record.kind != WindowKind::Child && !modals.empty() && !belongsTo(record, modals.back());
    return record.enabled && !blocked;
}

bool takesInput(const WindowRecord& record) {
    if (record.kind != WindowKind::Child) return isEnabled(record);
    if (!record.enabled) return false;
    const WindowPointer parent = findRecord(record.parent);
    return parent && takesInput(*parent);
}

Frame frameOf(WindowKind kind) {
    switch (kind) {
        case WindowKind::Main:
            return {4, 23};
        case WindowKind::Dialog:
            return {3, 22};
        case WindowKind::Popup:
            return {1, 1};
        case WindowKind::Gadget:
        case WindowKind::Child:
            break;
    }
    return {};
}

Size clientSizeOf(const WindowRecord& record) {
    if (record.state == WindowState::Minimized) return {};
    const Frame frame = frameOf(record.kind);
    return {std::max(0, record.bounds.width() - 2 * frame.side),
            std::max(0, record.bounds.height() - frame.top - frame.side)};
}

Point clientOrigin(const WindowRecord& record) {
    const Frame frame = frameOf(record.kind);
    Point origin{record.bounds.left + frame.side, record.bounds.top + frame.top};
    if (record.kind != WindowKind::Child) return origin;
    if (const WindowPointer parent = findRecord(record.parent)) {
        const Point outer = clientOrigin(*parent);
        origin = {origin.x + outer.x, origin.y + outer.y};
    }
    return origin;
}

void setFocus(std::uintptr_t native) {
    Desktop& desktop = machine().desktop;
    if (desktop.focus == native) return;
    const std::uintptr_t loser = desktop.focus;
    desktop.focus = native;
    if (const WindowPointer top = topLevel(findRecord(native))) {
        top->lastFocus = native;
        if (desktop.active != top->native) raise(top);
        desktop.active = top->native;
    }
    if (const WindowPointer record = findRecord(loser); record && record->object != nullptr) {
        WindowAccess::focus(*record->object, false);
        if (record->textBox && record->object != nullptr) sendBoxFocusLost(record);
    }
    if (desktop.focus != native) return;  // the loser's handler gave it to another one
    if (const WindowPointer record = findRecord(native); record && record->object != nullptr) {
        WindowAccess::focus(*record->object, true);
    }
}

void activate(const WindowPointer& window) {
    Desktop& desktop = machine().desktop;
    if (!window || window->kind == WindowKind::Popup) return;
    if (!takesInput(*window)) {
        const auto& modals = desktop.modals;
        if (!modals.empty() && modals.back() != window->native) activate(findRecord(modals.back()));
        return;
    }
    raise(window);
    if (desktop.active == window->native && holds(*window, desktop.focus)) return;
    desktop.active = window->native;
    setFocus(window->state == WindowState::Minimized ? 0 : focusWhenActivated(*window));
}

void deactivate(const WindowPointer& window) {
    Desktop& desktop = machine().desktop;
    if (desktop.active != window->native) return;
    desktop.active = 0;
    WindowPointer owner = findRecord(window->parent);
    while (owner && owner->destroying) owner = findRecord(owner->parent);
    if (owner && owner->shown && takesInput(*owner)) {
        activate(owner);
    } else if (!desktop.modals.empty() && desktop.modals.back() != window->native) {
        activate(findRecord(desktop.modals.back()));
    } else {
        setFocus(0);
    }
}

void setCapture(std::uintptr_t native) {
    Desktop& desktop = machine().desktop;
    const std::uintptr_t loser = desktop.capture;
    desktop.capture = native;
    if (loser == native) return;
    if (const WindowPointer record = findRecord(loser); record && record->object != nullptr) {
        WindowAccess::captureLost(*record->object);
    }
}

void cancelCaptureInside(const WindowRecord& window) {
    if (holds(window, machine().desktop.capture)) setCapture(0);
}

void leaveFocusInside(const WindowPointer& window) {
    if (window->kind != WindowKind::Child) {
        deactivate(window);
    } else if (holds(*window, machine().desktop.focus)) {
        const WindowPointer parent = findRecord(window->parent);
        setFocus(parent && !parent->destroying ? parent->native : 0);
    }
}

void moveFocus(const WindowPointer& from, bool backward) {
    std::vector<std::uintptr_t> stops;
    collectTabStops(*topLevel(from), stops);
    if (stops.empty()) return;
    if (backward) std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), from->native);
    const bool last = at == stops.end() || at + 1 == stops.end();
    setFocus(last ? stops.front() : *(at + 1));
}

void setTitle(const WindowPointer& record, const std::string& text) {
    record->title = text.c_str();
    record->selection = {};
    if (record->textBox) invalidateTree(*record);
    if (record->object != nullptr) WindowAccess::textChanged(*record->object);
}

bool hasShadow(const WindowRecord& record) {
    return record.ownersShadow || machine().desktop.shadowClasses.count(record.className) != 0;
}

bool hasDropShadow(const Window& window) {
    const WindowPointer record = findRecord(window.native());
    return record && hasShadow(*record);
}

void sendTimer(std::uintptr_t window, int id) {
    if (const WindowPointer record = findRecord(window); record && record->object != nullptr) {
        WindowAccess::timer(*record->object, id);
    }
}

void sendSize(const WindowPointer& record) {
    record->sizeSent = true;
    if (record->object != nullptr) WindowAccess::size(*record->object, clientSizeOf(*record), record->state);
}

void destroyRecord(const WindowPointer& record, bool silently) {
    if (record->destroying) return;
    record->destroying = true;
    if (record->kind != WindowKind::Child) note("destroyWindow", record->title);
    if (silently) {
        record->object = nullptr;
        silence(*record);
    }
    endModalsOf(*record);
    leaveFocusInside(record);
    destroyInside(record);
    forgetInput(*record);
    if (const WindowPointer parent = findRecord(record->parent); parent && record->kind == WindowKind::Child) {
        std::erase(parent->children, record->native);
        if (record->shown) invalidateRecord(*parent, record->bounds);
    }
    machine().desktop.windows.erase(record->native);
    if (record->object == nullptr) return;
    WindowAccess::forget(*record->object);
    WindowAccess::destroyed(*record->object);  // the object may be gone afterwards
}

void beginModal(std::uintptr_t dialog) {
    setCapture(0);
    machine().desktop.modals.push_back(dialog);
}

void endModal(std::uintptr_t dialog) {
    auto& modals = machine().desktop.modals;
    const auto last = std::find(modals.rbegin(), modals.rend(), dialog);
    if (last != modals.rend()) modals.erase(std::next(last).base());
}

void endModalsOf(const WindowRecord& window) {
    std::erase_if(machine().desktop.modals, [&window](std::uintptr_t native) {
        const WindowPointer dialog = findRecord(native);
        return dialog && belongsTo(*dialog, window.native);
    });
}

}  // namespace platform::sim
