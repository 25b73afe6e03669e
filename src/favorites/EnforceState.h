// When favourites are applied again although no process came or went.
#pragma once

#include <cstdint>

namespace favorites {

class EnforceState {
public:
    bool On() const { return on_; }
    void SetOn(bool on) { on_ = on; }

    // The interval from its stored index: index * 10 + 10 seconds, held within 10..32767.
    void SetIntervalIndex(int index);
    // At least 1; beyond the range it counts as its end.
    void SetIntervalSeconds(int seconds);
    std::int16_t IntervalSeconds() const { return intervalSeconds_; }

    // Counts one refresh tick of half a second, to be called while Auto Set is on; does nothing while Enforce is
    // off. True when the interval has passed since the last Reset.
    bool TickDue();
    // The favourites have just been applied, for whatever reason.
    void Reset() { ticks_ = 0; }

private:
    bool on_ = false;
    std::int16_t intervalSeconds_ = 60;
    std::int16_t ticks_ = 0;
};

}  // namespace favorites
