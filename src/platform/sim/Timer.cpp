// Process-wide timers; SimClock.cpp fires them.
#include "platform/Timer.h"

#include <algorithm>

#include "platform/sim/SimMachine.h"

namespace platform {

void TimerTag::close(std::uintptr_t raw) noexcept {
    auto& timers = sim::machine().timers;
    const auto found = std::find_if(timers.begin(), timers.end(), [raw](const sim::TimerRecord& timer) {
        return timer.window == 0 && timer.serial == raw;
    });
    if (found == timers.end()) return;
    timers.erase(found);
    sim::note("stopTimer");
}

TimerHandle startTimer(std::uint32_t milliseconds, std::function<void(std::uintptr_t id)> fire) {
    if (!fire || sim::machine().timersRefused) return {};
    sim::note("startTimer", std::to_string(milliseconds));
    sim::TimerRecord timer;
    timer.serial = sim::nextSerial();
    timer.period = std::max<std::uint32_t>(milliseconds, 10);
    timer.due = sim::machine().now + timer.period;
    timer.fire = std::make_shared<const std::function<void(std::uintptr_t)>>(std::move(fire));
    const std::uintptr_t raw = timer.serial;
    sim::machine().timers.push_back(std::move(timer));
    return TimerHandle(raw);
}

void sim::refuseTimers(bool refuse) {
    machine().timersRefused = refuse;
}

}  // namespace platform
