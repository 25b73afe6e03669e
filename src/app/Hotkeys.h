// The program's hotkeys, which work whatever program the user is in.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/Timer.h"

namespace app {

// Looks twenty times a second whether the user holds a combination of keys: Ctrl+Shift+S applies the favourites,
// once a second while it is held; Ctrl+Shift+1 to 5 switches the profile, once. platform::keyDown.
class Hotkeys {
public:
    struct Actions {
        std::function<void()> SetNow;
        std::function<void(int number)> SwitchProfile;  // 1..5
    };
    // Actions may call Stop and Start, or destroy the object.
    explicit Hotkeys(Actions actions);
    ~Hotkeys();
    Hotkeys(const Hotkeys&) = delete;
    Hotkeys& operator=(const Hotkeys&) = delete;

    // Either does nothing the second time.
    void Start();
    void Stop();
    bool Running() const { return wanted_; }

private:
    void Arm(std::uint32_t milliseconds);
    void Tick();
    void LookAtKeys();
    void Act(const std::function<void()>& action);

    const Actions actions_;
    platform::TimerHandle timer_;
    std::uint32_t period_ = 0;  // milliseconds, of the timer
    bool wanted_ = false;       // started and not stopped; the timer rests while an action runs
    bool latch_ = false;        // a profile was switched and its keys have not been let go since
    bool* gone_ = nullptr;      // while an action runs: set when the object goes
};

}  // namespace app
