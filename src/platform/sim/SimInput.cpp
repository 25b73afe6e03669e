// The user and the session, played by tests.
#include <algorithm>
#include <cstdio>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform::sim {

namespace {

// The modifiers an event has: those it is sent with, and those that are held down.
Modifiers withHeld(Modifiers sent) {
    const auto& held = machine().desktop.heldKeys;
    return {sent.shift || held.contains(key::kShift), sent.ctrl || held.contains(key::kCtrl),
            sent.alt || held.contains(key::kAlt)};
}

// The keys that come with an event are down while it is told.
class HeldModifiers {
public:
    explicit HeldModifiers(Modifiers with) : before_(std::exchange(machine().desktop.modifiers, with)) {}
    ~HeldModifiers() { machine().desktop.modifiers = before_; }
    HeldModifiers(const HeldModifiers&) = delete;
    HeldModifiers& operator=(const HeldModifiers&) = delete;

private:
    Modifiers before_;
};

struct Target {
    WindowPointer window;  // null: nobody gets it
    Point at;              // client pixels of the window
};

bool canReceive(const WindowRecord& record) {
    if (!isVisible(record)) {
        std::fprintf(stderr, "simulated machine: input for \"%s\", which is not visible, goes nowhere\n",
                     record.title.c_str());
        return false;
    }
    return takesInput(record) && record.object != nullptr;
}

Point inClient(const WindowRecord& record, Point screen) {
    const Point origin = clientOrigin(record);
    return {screen.x - origin.x, screen.y - origin.y};
}

Target aim(std::uintptr_t native, Point at) {
    Desktop& desktop = machine().desktop;
    const WindowPointer record = findRecord(native);
    if (!record) return {};
    const Point origin = clientOrigin(*record);
    const Point screen{origin.x + at.x, origin.y + at.y};
    desktop.pointer = screen;
    const bool inside = Rect::fromSize({}, clientSizeOf(*record)).contains(at);
    desktop.underPointer = inside && isVisible(*record) ? native : windowFromPoint(screen);
    if (const WindowPointer holder = findRecord(desktop.capture)) {
        return {holder->object == nullptr ? nullptr : holder, inClient(*holder, screen)};
    }
    if (!canReceive(*record)) return {};
    return {record, at};
}

// A window is told that the pointer left it, but not while one holds the mouse.
void leaveHovered() {
    Desktop& desktop = machine().desktop;
    if (desktop.capture != 0 || desktop.hovered == desktop.underPointer) return;
    const WindowPointer left = findRecord(std::exchange(desktop.hovered, 0));
    if (left && left->object != nullptr) WindowAccess::mouseLeave(*left->object);
}

void sendMouse(std::uintptr_t native, Point at, MouseAction action, MouseButton button, Modifiers sent) {
    const Modifiers modifiers = withHeld(sent);
    const Target target = aim(native, at);
    Desktop& desktop = machine().desktop;
    const bool taken = button == MouseButton::Left && std::exchange(desktop.dragTookButton, false);
    if (taken && action == MouseAction::Up) return;
    if (button == MouseButton::Left) desktop.leftHeld = action != MouseAction::Up;
    const HeldModifiers held(modifiers);
    if (target.window) {
        if (target.window->textBox && action == MouseAction::Down) setFocus(target.window->native);
        WindowAccess::mouse(*target.window->object, {action, button, target.at, modifiers, desktop.leftHeld});
    }
    if (action == MouseAction::Up) leaveHovered();
}

void sendKey(bool down, std::uint16_t code, Modifiers sent) {
    const bool repeat = down && machine().desktop.heldKeys.contains(code);
    if (down) {
        holdKey(code);
    } else {
        releaseKey(code);
    }
    const Modifiers modifiers = withHeld(sent);
    const HeldModifiers held(modifiers);
    const WindowPointer record = findRecord(machine().desktop.focus);
    if (!record || !takesInput(*record) || record->object == nullptr) return;
    if (record->textBox && code != key::kTab) {
        if (down) sendBoxKey(record, code, modifiers);
    } else if (code != key::kTab) {
        WindowAccess::key(*record->object, {down, code, modifiers, repeat});
    } else if (down && !modifiers.alt) {
        moveFocus(record, modifiers.shift);
    }
}

// Calls `tell` for each top-level window that is still there when its turn comes.
template <class Tell>
void tellTopLevels(Tell tell) {
    for (Window* window : topLevelWindows()) {
        const auto& windows = machine().desktop.windows;
        const bool there = std::any_of(windows.begin(), windows.end(),
                                       [window](const auto& entry) { return entry.second->object == window; });
        if (there) tell(*window);
    }
}

void sendColors(const WindowPointer& record) {
    if (record->object != nullptr) WindowAccess::systemColors(*record->object);
    const std::vector<std::uintptr_t> children = record->children;
    for (const std::uintptr_t native : children) {
        if (const WindowPointer child = findRecord(native)) sendColors(child);
    }
}

}  // namespace

std::uintptr_t windowFromPoint(Point screen) {
    for (const WindowPointer& window : topLevelsFromTop()) {
        const bool there = window->shown && window->bounds.contains(screen);
        if (there && !isSeenThrough(*window, screen)) return innermostAt(*window, screen);
    }
    return 0;
}

Window* findWindow(const std::string& title) {
    for (const auto& [native, record] : machine().desktop.windows) {
        if (record->title == title) return record->object;
    }
    return nullptr;
}

std::vector<Window*> topLevelWindows() {
    std::vector<Window*> found;
    for (const auto& [native, record] : machine().desktop.windows) {
        if (record->kind != WindowKind::Child && record->object != nullptr) found.push_back(record->object);
    }
    return found;
}

std::vector<Window*> controlsOf(const Window& window) {
    std::vector<Window*> found;
    for (const std::uintptr_t native : findRecord(window.native())->children) {
        const WindowPointer child = findRecord(native);
        if (child->shown && child->object != nullptr) found.push_back(child->object);
    }
    return found;
}

bool isTabStop(const Window& control) {
    const WindowPointer record = findRecord(control.native());
    return record->tabStop && record->enabled;
}

void setPointer(Window& window, Point at) {
    const Target target = aim(window.native(), at);
    leaveHovered();
    Desktop& desktop = machine().desktop;
    if (!target.window || target.window->object == nullptr) return;
    if (desktop.underPointer == target.window->native) desktop.hovered = target.window->native;
    WindowAccess::mouse(*target.window->object,
                        {MouseAction::Move, MouseButton::None, target.at, withHeld({}), desktop.leftHeld});
}

void mouseDown(Window& window, Point at, MouseButton button, Modifiers modifiers) {
    sendMouse(window.native(), at, MouseAction::Down, button, modifiers);
}

void mouseUp(Window& window, Point at, MouseButton button, Modifiers modifiers) {
    sendMouse(window.native(), at, MouseAction::Up, button, modifiers);
}

void click(Window& window, Point at, MouseButton button, Modifiers modifiers) {
    const std::uintptr_t native = window.native();  // its object may go with the first half
    sendMouse(native, at, MouseAction::Down, button, modifiers);
    sendMouse(native, at, MouseAction::Up, button, modifiers);
}

void movePointer(Point screen) {
    Desktop& desktop = machine().desktop;
    const WindowPointer window = findRecord(desktop.capture != 0 ? desktop.capture : windowFromPoint(screen));
    if (window && window->object != nullptr) {
        setPointer(*window->object, inClient(*window, screen));
    } else {
        desktop.pointer = screen;
        desktop.underPointer = 0;
        leaveHovered();
    }
}

void clickOnScreen(Point screen) {
    movePointer(screen);
    Desktop& desktop = machine().desktop;
    const std::uintptr_t native = desktop.capture != 0 ? desktop.capture : windowFromPoint(screen);
    const WindowPointer window = findRecord(native);
    if (!window) return;
    if (desktop.capture == 0) activate(topLevel(window));
    for (const MouseAction action : {MouseAction::Down, MouseAction::Up}) {
        sendMouse(native, inClient(*window, screen), action, MouseButton::Left, {});
    }
}

void doubleClick(Window& window, Point at) {
    const std::uintptr_t native = window.native();
    sendMouse(native, at, MouseAction::Down, MouseButton::Left, {});
    sendMouse(native, at, MouseAction::Up, MouseButton::Left, {});
    sendMouse(native, at, MouseAction::DoubleClick, MouseButton::Left, {});
    sendMouse(native, at, MouseAction::Up, MouseButton::Left, {});
}

void wheel(Window& window, Point at, int delta) {
    const Target target = aim(window.native(), at);
    if (target.window) WindowAccess::wheel(*target.window->object, {delta, target.at, withHeld({})});
}

void keyDown(std::uint16_t code, Modifiers modifiers) {
    sendKey(true, code, modifiers);
}

void keyUp(std::uint16_t code, Modifiers modifiers) {
    sendKey(false, code, modifiers);
}

void pressKey(std::uint16_t code, Modifiers modifiers) {
    sendKey(true, code, modifiers);
    sendKey(false, code, modifiers);
}

void dropFiles(Window& window, const std::vector<std::string>& paths) {
    const WindowPointer record = findRecord(window.native());
    if (record && record->acceptsFiles && canReceive(*record)) WindowAccess::dropFiles(window, paths);
}

void loseCapture() {
    setCapture(0);
    leaveHovered();
}

void closeBox(Window& window) {
    const WindowPointer record = findRecord(window.native());
    if (record && canReceive(*record)) WindowAccess::close(window);
}

void endSession() {
    tellTopLevels([](Window& window) { WindowAccess::endSession(window); });
}

void restartShell() {
    machine().shellRunning = true;
    machine().trayIcons.clear();
    tellTopLevels([](Window& window) {
        if (findRecord(window.native())->kind == WindowKind::Main) WindowAccess::taskbarCreated(window);
    });
}

void setSystemColor(SysColor which, Color color) {
    machine().desktop.systemColors[static_cast<std::size_t>(which)] = color;
    tellTopLevels([](Window& window) { sendColors(findRecord(window.native())); });
}

void setHighContrast(bool on) {
    machine().desktop.highContrast = on;
    tellTopLevels([](Window& window) { sendColors(findRecord(window.native())); });
}

void dragFrame(Window& window, const Rect& bounds) {
    const WindowPointer record = findRecord(window.native());
    if (!record || record->state != WindowState::Normal || !canReceive(*record)) return;
    window.setBounds(bounds);  // which keeps to the smallest size
}

Window* focusedWindow() {
    const WindowPointer record = findRecord(machine().desktop.focus);
    return record ? record->object : nullptr;
}

}  // namespace platform::sim
