// Failed sets, counted for the one summary that a batch of them ends in.
#pragma once

#include <cstdint>
#include <limits>

namespace process {

class ErrorCounters {
public:
    void Reset() { affinity_ = priority_ = 0; }
    void CountAffinity() { Raise(affinity_); }
    void CountPriority() { Raise(priority_); }
    std::int16_t Affinity() const { return affinity_; }
    std::int16_t Priority() const { return priority_; }

private:
    // The counters stop at their largest value: a negative count would hide the errors.
    static void Raise(std::int16_t& counter) {
        if (counter < std::numeric_limits<std::int16_t>::max()) ++counter;
    }

    std::int16_t affinity_ = 0;
    std::int16_t priority_ = 0;
};

}  // namespace process
