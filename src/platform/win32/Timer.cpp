#include "platform/Timer.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "platform/win32/Win32.h"

namespace platform {

namespace {

using Fire = std::function<void(std::uintptr_t)>;

// What the running timers are to call. The system's timer procedure carries nothing but the id.
std::map<UINT_PTR, std::shared_ptr<Fire>>& runningTimers() {
    static std::map<UINT_PTR, std::shared_ptr<Fire>> timers;
    return timers;
}

// A named function, as 32-bit builds cannot turn a lambda into one with this calling convention.
void CALLBACK onTick(HWND, UINT, UINT_PTR id, DWORD) {
    const auto found = runningTimers().find(id);
    if (found == runningTimers().end()) return;        // closed while this tick was waiting
    const std::shared_ptr<Fire> fire = found->second;  // outlives a timer closed by its own tick
    (*fire)(id);
}

}  // namespace

// A tick that already waits in the queue finds no timer of its id and is dropped there: the system counts ids
// through some 32,000 before it gives one out again.
void TimerTag::close(std::uintptr_t raw) noexcept {
    KillTimer(nullptr, raw);
    runningTimers().erase(raw);
}

TimerHandle startTimer(std::uint32_t milliseconds, std::function<void(std::uintptr_t id)> fire) {
    const UINT period = std::max<UINT>(milliseconds, USER_TIMER_MINIMUM);
    const UINT_PTR id = SetTimer(nullptr, 0, period, onTick);
    if (id == 0) return TimerHandle();
    runningTimers()[id] = std::make_shared<Fire>(std::move(fire));
    return TimerHandle(id);
}

}  // namespace platform
