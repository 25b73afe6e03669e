// Windows of the simulated desktop, as the program uses them.
#include "platform/Window.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::findRecord;
using sim::machine;
using sim::WindowPointer;
using sim::WindowRecord;

namespace {

constexpr Rect kIconic{-32000, -32000, -31840, -31973};

const char* nameOf(ShowCommand command) {
    switch (command) {
        case ShowCommand::Show:
            return "Show";
        case ShowCommand::ShowInactive:
            return "ShowInactive";
        case ShowCommand::Hide:
            return "Hide";
        case ShowCommand::Minimize:
            return "Minimize";
        case ShowCommand::Maximize:
            return "Maximize";
        case ShowCommand::Restore:
            return "Restore";
        case ShowCommand::Normal:
            return "Normal";
    }
    return "";
}

void place(const WindowPointer& record, const Rect& bounds) {
    const Size before = sim::clientSizeOf(*record);
    const WindowPointer parent = record->kind == WindowKind::Child ? findRecord(record->parent) : nullptr;
    if (parent && record->shown && record->bounds != bounds) sim::invalidateRecord(*parent, record->bounds);
    record->bounds = bounds;
    if (record->state == WindowState::Normal) record->normal = bounds;
    if (before == sim::clientSizeOf(*record)) return;
    sim::invalidateRecord(*record, Rect::fromSize({}, sim::clientSizeOf(*record)));
    sim::sendSize(record);
}

void setState(const WindowPointer& record, WindowState state) {
    if (record->state == state) return;
    const WindowState before = std::exchange(record->state, state);
    if (state == WindowState::Minimized) {
        record->restoreToMaximized = before == WindowState::Maximized;
        record->bounds = kIconic;
    } else if (state == WindowState::Maximized) {
        const int side = sim::frameOf(record->kind).side;
        record->bounds = nearestWorkArea(record->normal).inset(-side, -side);
    } else {
        record->bounds = record->normal;
    }
    sim::invalidateTree(*record);
    sim::sendSize(record);
}

void hide(const WindowPointer& record) {
    sim::endModal(record->native);
    if (!record->shown) return;
    record->shown = false;
    sim::leaveFocusInside(record);
    const WindowPointer parent = findRecord(record->parent);
    if (parent && record->kind == WindowKind::Child) sim::invalidateRecord(*parent, record->bounds);
}

void bringUp(const WindowPointer& record, ShowCommand command) {
    if (!record->shown) {
        record->shown = true;
        sim::invalidateTree(*record);
    }
    if (record->kind == WindowKind::Child) return;
    if (record->kind == WindowKind::Popup) {
        record->height = sim::nextSerial();  // without its owner
        return;
    }
    if (command != ShowCommand::Minimize) sim::raise(record);
    WindowState state = record->state;
    if (command == ShowCommand::Minimize) state = WindowState::Minimized;
    if (command == ShowCommand::Maximize) state = WindowState::Maximized;
    if (command == ShowCommand::Restore) {
        const bool toMaximized = state == WindowState::Minimized && record->restoreToMaximized;
        state = toMaximized ? WindowState::Maximized : WindowState::Normal;
    }
    setState(record, state);
    if (state == WindowState::Minimized) {
        sim::deactivate(record);
    } else if (command != ShowCommand::ShowInactive) {
        sim::activate(record);
    }
    // The first size comes with the first show.
    if (!record->sizeSent && !record->destroying) sim::sendSize(record);
}

}  // namespace

void sim::showNormal(const WindowPointer& window) {
    window->restoreToMaximized = false;
    bringUp(window, window->state == WindowState::Normal ? ShowCommand::Show : ShowCommand::Restore);
}

Window::~Window() {
    if (const WindowPointer record = findRecord(native_)) sim::destroyRecord(record, true);
}

bool Window::create(const WindowSpec& spec) {
    const bool alone = spec.kind == WindowKind::Gadget || spec.parent == nullptr;
    const WindowPointer parent = alone ? nullptr : findRecord(spec.parent->native());
    const bool child = spec.kind == WindowKind::Child;
    if (native_ != 0 || (child && !parent)) return false;
    auto record = std::make_shared<WindowRecord>();
    record->object = this;
    record->native = native_ = sim::nextSerial();
    // A window can be inside a control, but only top-level windows own others.
    const WindowPointer holder = child ? parent : sim::topLevel(parent);
    record->parent = holder ? holder->native : 0;
    record->kind = spec.kind;
    record->className = spec.kind == WindowKind::Dialog ? "#32770" : spec.className;
    record->title = spec.title;
    record->bounds = record->normal = spec.bounds;
    record->tabStop = spec.tabStop;
    record->shown = child;
    record->ownersShadow = spec.kind == WindowKind::Dialog && parent && sim::hasShadow(*parent);
    machine().desktop.windows.emplace(record->native, record);
    record->height = record->native;  // on top, but for what is topmost
    if (child) parent->children.push_back(record->native);
    sim::invalidateTree(*record);
    if (spec.kind != WindowKind::Main) sim::sendSize(record);
    return true;
}

void Window::destroy() {
    if (const WindowPointer record = findRecord(native_)) sim::destroyRecord(record, false);
}

void Window::show(ShowCommand command) {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("show", record->title + " " + nameOf(command));
    if (command == ShowCommand::Hide) {
        hide(record);
    } else if (command == ShowCommand::Normal) {
        sim::showNormal(record);
    } else {
        bringUp(record, command);
    }
}

bool Window::visible() const {
    const WindowPointer record = findRecord(native_);
    return record && sim::isVisible(*record);
}

WindowState Window::state() const {
    const WindowPointer record = findRecord(native_);
    return record ? record->state : WindowState::Normal;
}

void Window::bringToFront() {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("bringToFront", record->title);
    sim::activate(record);
}

void Window::setTopmost(bool topmost) {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("setTopmost", record->title + (topmost ? " 1" : " 0"));
    record->topmost = topmost;
    sim::raise(record);
}

void Window::addDropShadow() {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("addDropShadow", record->title);
    machine().desktop.shadowClasses.insert(record->className);
}

void Window::enable(bool enabled) {
    const WindowPointer record = findRecord(native_);
    if (!record || record->enabled == enabled) return;
    record->enabled = enabled;
    if (enabled) return;
    sim::cancelCaptureInside(*record);
    if (machine().desktop.focus == native_) sim::setFocus(0);
}

bool Window::enabled() const {
    const WindowPointer record = findRecord(native_);
    return record && sim::isEnabled(*record);
}

void Window::setText(const std::string& text) {
    if (const WindowPointer record = findRecord(native_)) sim::setTitle(record, text);
}

std::string Window::text() const {
    const WindowPointer record = findRecord(native_);
    return record ? record->title : std::string();
}

Rect Window::bounds() const {
    const WindowPointer record = findRecord(native_);
    return record ? record->bounds : Rect{};
}

void Window::setBounds(const Rect& bounds) {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    Size size{std::max(0, bounds.width()), std::max(0, bounds.height())};
    if (record->kind == WindowKind::Main) {
        const Size least = minimumSize();
        size = {std::max(size.width, least.width), std::max(size.height, least.height)};
    }
    place(record, Rect::fromSize(bounds.origin(), size));
}

Rect Window::normalBounds() const {
    const WindowPointer record = findRecord(native_);
    return record ? record->normal : Rect{};
}

Size Window::clientSize() const {
    const WindowPointer record = findRecord(native_);
    return record ? sim::clientSizeOf(*record) : Size{};
}

Point Window::toScreen(Point client) const {
    const WindowPointer record = findRecord(native_);
    if (!record) return client;
    const Point origin = sim::clientOrigin(*record);
    return {client.x + origin.x, client.y + origin.y};
}

void Window::invalidate() {
    invalidate(Rect::fromSize({}, clientSize()));
}

void Window::invalidate(const Rect& area) {
    if (const WindowPointer record = findRecord(native_)) sim::invalidateRecord(*record, area);
}

void Window::update() {
    const WindowPointer record = findRecord(native_);
    if (record && sim::isVisible(*record)) sim::paintTree(record);
}

void Window::focus() {
    const WindowPointer record = findRecord(native_);
    if (!record || !sim::takesInput(*record)) return;
    const WindowPointer top = sim::topLevel(record);
    if (top->kind == WindowKind::Popup || top->state == WindowState::Minimized) return;
    sim::setFocus(native_);
}

bool Window::focused() const {
    return native_ != 0 && machine().desktop.focus == native_;
}

void Window::capture() {
    if (findRecord(native_)) sim::setCapture(native_);
}

void Window::releaseCapture() {
    if (captured()) sim::setCapture(0);
}

bool Window::captured() const {
    return native_ != 0 && machine().desktop.capture == native_;
}

void Window::startTimer(int id, std::uint32_t milliseconds) {
    const WindowPointer record = findRecord(native_);
    if (!record) return;
    sim::note("startTimer", record->title + " " + std::to_string(id) + " " + std::to_string(milliseconds));
    auto& timers = machine().timers;
    std::erase_if(timers, [&](const auto& timer) { return timer.window == native_ && timer.id == id; });
    sim::TimerRecord timer;
    timer.serial = sim::nextSerial();
    timer.window = native_;
    timer.id = id;
    timer.period = std::max<std::uint32_t>(milliseconds, 10);
    timer.due = machine().now + timer.period;
    timers.push_back(std::move(timer));
}

void Window::stopTimer(int id) {
    const WindowPointer record = findRecord(native_);
    const auto isIt = [&](const auto& timer) { return timer.window == native_ && timer.id == id; };
    if (!record || std::erase_if(machine().timers, isIt) == 0) return;
    sim::note("stopTimer", record->title + " " + std::to_string(id));
}

void Window::setPointer(Pointer shape) {
    if (const WindowPointer record = findRecord(native_)) record->pointer = shape;
}

void Window::acceptFiles(bool accept) {
    if (const WindowPointer record = findRecord(native_)) record->acceptsFiles = accept;
}

bool Window::underPointer() const {
    return native_ != 0 && sim::windowFromPoint(machine().desktop.pointer) == native_;
}

}  // namespace platform
