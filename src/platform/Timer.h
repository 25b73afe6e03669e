// Process-wide timers that fire through the message loop, on the user-interface thread.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/Handle.h"

namespace platform {

struct TimerTag {
    static void close(std::uintptr_t raw) noexcept;  // KillTimer; a tick already queued is dropped
};
using TimerHandle = Handle<TimerTag>;  // raw() is the id handed to `fire`

// Calls fire(id) every `milliseconds` (>= 10) until the handle is closed; empty on failure. The handle may be
// closed inside fire. SetTimer without a window.
TimerHandle startTimer(std::uint32_t milliseconds, std::function<void(std::uintptr_t id)> fire);

}  // namespace platform
