// The five process-wide timer slots that drive all periodic work.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "platform/Timer.h"

namespace app {

enum class Slot { Process, Tray, Memory, FavoritesPanel, TotalGraph };

inline constexpr std::uint32_t kRefreshMilliseconds = 500;

// Each slot has at most one timer; all of them share one procedure, which runs the work of the slot whose
// timer fired. Stands on platform::startTimer (SetTimer without a window), which the system may refuse.
class TimerSlots {
public:
    void SetWork(Slot slot, std::function<void()> work);
    // The slot ticks from now on. A timer it has already goes when there is the new one: if the system refuses
    // that, the old one ticks on. A slot left without one gets it later, see Retry.
    void Start(Slot slot, std::uint32_t milliseconds);
    // The slot keeps its timer, but does not tick until it is started again.
    void Pause(Slot slot);
    // Stopping an idle slot does nothing.
    void Stop(Slot slot);
    // At the end of the program: no slot starts any more.
    void StopAll();
    // Started, and neither paused nor stopped since.
    bool Running(Slot slot) const;
    // Asks again for the timers that the system has refused, as every Start and every tick of any slot does.
    void Retry();

private:
    static constexpr std::size_t kCount = 5;
    struct Entry {
        platform::TimerHandle timer;
        std::function<void()> work;
        std::uint32_t period = 0;  // milliseconds; 0: stopped
        bool paused = false;
    };
    Entry& At(Slot slot) { return entries_[static_cast<std::size_t>(slot)]; }
    void Renew(Entry& entry);
    void Fired(std::uintptr_t id);

    std::array<Entry, kCount> entries_;
    bool ended_ = false;
};

// Holds a slot still while it lives and starts it again on every way out.
class PausedSlot {
public:
    PausedSlot(TimerSlots& slots, Slot slot, std::uint32_t milliseconds)
        : slots_(slots), slot_(slot), milliseconds_(milliseconds) {
        slots_.Pause(slot_);
    }
    ~PausedSlot() { slots_.Start(slot_, milliseconds_); }
    PausedSlot(const PausedSlot&) = delete;
    PausedSlot& operator=(const PausedSlot&) = delete;

private:
    TimerSlots& slots_;
    Slot slot_;
    std::uint32_t milliseconds_;
};

}  // namespace app
