// The message loop, modal dialogs, the busy pointer and the screens of the simulated desktop.
#include <algorithm>
#include <cstdint>

#include "platform/MessageLoop.h"
#include "platform/Window.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;
using sim::WindowPointer;

namespace {

constexpr int kTaskBarHeight = 30;

bool isRunning(std::uintptr_t dialog) {
    const WindowPointer record = sim::findRecord(dialog);
    return record && sim::isVisible(*record) && machine().desktop.quitCode == -1;
}

void runScript(std::uintptr_t dialog) {
    auto& scripts = machine().desktop.modalScripts;
    if (scripts.empty()) {
        sim::fail(("nothing answers the modal dialog \"" + sim::findRecord(dialog)->title + "\"").c_str());
    }
    const auto script = std::move(scripts.front());
    scripts.pop_front();
    script(*sim::findRecord(dialog)->object);
    if (isRunning(dialog)) sim::fail("the script of a modal dialog left it open");
}

std::int64_t overlap(const Rect& a, const Rect& b) {
    const Rect common = a.intersect(b);
    return common.empty() ? 0 : static_cast<std::int64_t>(common.width()) * common.height();
}

std::int64_t distance(const Rect& a, const Rect& b) {
    const auto dx = static_cast<std::int64_t>(std::max({0, a.left - b.right, b.left - a.right}));
    const auto dy = static_cast<std::int64_t>(std::max({0, a.top - b.bottom, b.top - a.bottom}));
    return dx * dx + dy * dy;
}

}  // namespace

// When nothing is left that could come, the loop ends with -1: on this machine nobody else would ever wake it.
NextMessage dispatchNext() {
    auto& desktop = machine().desktop;
    if (desktop.failingMessages > 0) {
        --desktop.failingMessages;
        return {NextMessage::Kind::Failed};
    }
    if (const auto code = std::exchange(desktop.foreignQuit, std::nullopt)) {
        return {NextMessage::Kind::Quit, *code};
    }
    sim::run(0);
    return {NextMessage::Kind::Quit, desktop.quitCode};
}

void postQuit(int code) {
    sim::note("postQuit", std::to_string(code));
    machine().desktop.quitCode = code;
}

void pumpMessages() {
    sim::run(0);
}

void beginModal(Window& dialog) {
    const auto& modals = machine().desktop.modals;
    if (!dialog.exists() || std::find(modals.begin(), modals.end(), dialog.native()) != modals.end()) return;
    sim::beginModal(dialog.native());
}

void runModal(Window& dialog) {
    // By number: the objects may be gone before this ends.
    const std::uintptr_t native = dialog.native();
    const WindowPointer record = sim::findRecord(native);
    if (!record) return;
    sim::note("runModal", record->title);
    beginModal(dialog);
    dialog.show(ShowCommand::Show);
    sim::run(sim::kModalMilliseconds);
    if (isRunning(native)) runScript(native);
    sim::endModal(native);
}

BusyPointer::BusyPointer() {
    ++machine().desktop.busy;
}

BusyPointer::~BusyPointer() {
    --machine().desktop.busy;
}

Rect nearestWorkArea(const Rect& area) {
    const auto nearer = [&area](const Rect& a, const Rect& b) {
        const std::int64_t overlapA = overlap(area, a);
        const std::int64_t overlapB = overlap(area, b);
        return overlapA != overlapB ? overlapA > overlapB : distance(area, a) < distance(area, b);
    };
    const auto& screens = machine().desktop.screens;
    Rect work = *std::min_element(screens.begin(), screens.end(), nearer);
    work.bottom -= kTaskBarHeight;
    return work;
}

bool onAnyScreen(const Rect& area) {
    const auto& screens = machine().desktop.screens;
    return std::any_of(screens.begin(), screens.end(), [&](const Rect& screen) { return screen.intersects(area); });
}

Size screenSize() {
    return machine().desktop.screens.front().size();
}

namespace sim {

Pointer pointerShape() {
    if (machine().desktop.busy > 0) return Pointer::Busy;
    // A window that holds the mouse says how the pointer looks, wherever that is.
    const Desktop& desktop = machine().desktop;
    const WindowPointer record = findRecord(desktop.capture != 0 ? desktop.capture : desktop.underPointer);
    return record ? record->pointer : Pointer::Arrow;
}

void setScreens(std::vector<Rect> screens) {
    if (screens.empty()) fail("setScreens: a machine has a screen");
    machine().desktop.screens = std::move(screens);
}

void whenModal(std::function<void(Window& dialog)> script) {
    machine().desktop.modalScripts.push_back(std::move(script));
}

void failMessages(int count) {
    machine().desktop.failingMessages = count;
}

void quitFromOutside(int code) {
    machine().desktop.foreignQuit = code;
}

void startAgain() {
    machine().desktop.quitCode = -1;
}

int quitCode() {
    return machine().desktop.quitCode;
}

}  // namespace sim

}  // namespace platform
