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
// timer fired. Stands on platform::startTimer (SetTimer without a window).
class TimerSlots {
public:
    void SetWork(Slot slot, std::function<void()> work);
    // Ends the slot's timer first, so a restart never leaves two.
    void Start(Slot slot, std::uint32_t milliseconds);
    // Stopping an idle slot does nothing.
    void Stop(Slot slot);
    void StopAll();
    bool Running(Slot slot) const;

private:
    static constexpr std::size_t kCount = 5;
    struct Entry {
        platform::TimerHandle timer;
        std::function<void()> work;
    };
    Entry& At(Slot slot) { return entries_[static_cast<std::size_t>(slot)]; }
    void Fired(std::uintptr_t id);

    std::array<Entry, kCount> entries_;
};

// Holds a slot's timer still while it lives and starts it again on every way out.
class PausedSlot {
public:
    PausedSlot(TimerSlots& slots, Slot slot, std::uint32_t milliseconds)
        : slots_(slots), slot_(slot), milliseconds_(milliseconds) {
        slots_.Stop(slot_);
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
