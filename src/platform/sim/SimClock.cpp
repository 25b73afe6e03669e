// The clock, and what a message loop does as it moves: due timers one at a time, paints before them.
#include <algorithm>
#include <cmath>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform::sim {

namespace {

constexpr std::uint64_t kMachineStarted = 133'485'408'000'000'000;  // 1 January 2024, as 100-ns units since 1601

// The timer that is due first, and no later than `limit`; the one armed first when several are.
TimerRecord* firstDue(std::uint64_t limit) {
    TimerRecord* first = nullptr;
    for (TimerRecord& timer : machine().timers) {
        if (timer.due <= limit && (first == nullptr || timer.due < first->due)) first = &timer;
    }
    return first;
}

// Lets one timer tick. Periods that passed unseen are lost, as only one tick of a timer can wait.
void fire(TimerRecord& timer) {
    timer.due += timer.period * (1 + (machine().now - timer.due) / timer.period);
    const auto keptAlive = timer.fire;
    const std::uintptr_t serial = timer.serial;
    if (timer.window == 0) {
        (*keptAlive)(serial);
    } else {
        sendTimer(timer.window, timer.id);
    }
}

// What waits in the queue without being due at a time.
void dispatchWaiting() {
    auto& requests = machine().desktop.showRequests;
    while (!requests.empty()) {
        const WindowPointer window = findRecord(requests.front());
        requests.pop_front();
        if (window) showNormal(window);
    }
    auto& closes = machine().desktop.closeRequests;
    while (!closes.empty()) {
        const WindowPointer window = findRecord(closes.front());
        closes.pop_front();
        if (window && window->object != nullptr) WindowAccess::close(*window->object);
    }
    paintInvalid();
}

}  // namespace

std::uint64_t fileTime(std::uint64_t milliseconds) {
    return kMachineStarted + milliseconds * 10'000;
}

void moveClock(std::uint64_t milliseconds) {
    Machine& state = machine();
    if (milliseconds <= state.now) return;
    const double passed = static_cast<double>(milliseconds - state.now) * 10'000.0;
    double idle = state.processes.processorCount;
    for (const auto& record : state.processes.inOrder) {
        if (record->data.load <= 0) continue;
        idle -= record->data.load;
        record->data.user += static_cast<std::uint64_t>(std::llround(passed * record->data.load));
    }
    state.figures.idleTime += std::llround(passed * std::max(0.0, idle));
    state.now = milliseconds;
}

void advance(std::uint32_t milliseconds) {
    moveClock(machine().now + milliseconds);
}

void run(std::uint32_t milliseconds) {
    const std::uint64_t end = machine().now + milliseconds;
    dispatchWaiting();
    while (TimerRecord* timer = firstDue(end)) {
        moveClock(timer->due);
        fire(*timer);
        dispatchWaiting();
    }
    moveClock(end);
}

std::uint64_t nowMilliseconds() {
    return machine().now;
}
void setPerformanceFrequency(std::int64_t ticksPerSecond) {
    machine().performanceFrequency = ticksPerSecond;
}

}  // namespace platform::sim
