#include "app/TimerSlots.h"

namespace app {

void TimerSlots::SetWork(Slot slot, std::function<void()> work) {
    At(slot).work = std::move(work);
}

void TimerSlots::Start(Slot slot, std::uint32_t milliseconds) {
    Stop(slot);
    At(slot).timer = platform::startTimer(milliseconds, [this](std::uintptr_t id) { Fired(id); });
}

void TimerSlots::Stop(Slot slot) {
    At(slot).timer.reset();
}

void TimerSlots::StopAll() {
    for (Entry& entry : entries_) entry.timer.reset();
}

bool TimerSlots::Running(Slot slot) const {
    return static_cast<bool>(entries_[static_cast<std::size_t>(slot)].timer);
}

void TimerSlots::Fired(std::uintptr_t id) {
    for (Entry& entry : entries_) {
        if (entry.timer.raw() != id) continue;
        if (entry.work) entry.work();
        return;
    }
}

}  // namespace app
