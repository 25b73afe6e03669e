#include "app/TimerSlots.h"

#include <utility>

namespace app {

void TimerSlots::SetWork(Slot slot, std::function<void()> work) {
    At(slot).work = std::move(work);
}

void TimerSlots::Start(Slot slot, std::uint32_t milliseconds) {
    if (ended_) return;
    Entry& entry = At(slot);
    entry.period = milliseconds;
    entry.paused = false;
    if (entry.timer) Renew(entry);
    Retry();
}

void TimerSlots::Pause(Slot slot) {
    At(slot).paused = true;
}

void TimerSlots::Stop(Slot slot) {
    Entry& entry = At(slot);
    entry.timer.reset();
    entry.period = 0;
    entry.paused = false;
}

void TimerSlots::StopAll() {
    ended_ = true;
    for (Entry& entry : entries_) {
        entry.timer.reset();
        entry.period = 0;
    }
}

bool TimerSlots::Running(Slot slot) const {
    const Entry& entry = entries_[static_cast<std::size_t>(slot)];
    return entry.period != 0 && !entry.paused;
}

void TimerSlots::Retry() {
    for (Entry& entry : entries_) {
        if (entry.period != 0 && !entry.timer) Renew(entry);
    }
}

void TimerSlots::Renew(Entry& entry) {
    platform::TimerHandle timer = platform::startTimer(entry.period, [this](std::uintptr_t id) { Fired(id); });
    if (timer) entry.timer = std::move(timer);
}

void TimerSlots::Fired(std::uintptr_t id) {
    Retry();
    for (Entry& entry : entries_) {
        if (entry.timer.raw() != id) continue;
        if (entry.work && !entry.paused) entry.work();
        return;
    }
}

}  // namespace app
