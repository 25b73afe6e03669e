// Notices that processes came or went, and for how many ticks the process set is taken to be settling.
#pragma once

#include <cstdint>

namespace process {
class ProcessSnapshot;
}

namespace favorites {

class ProcessSetWatch {
public:
    // Programs whose path cannot be read yet, or which change their own priority, in their first moments are
    // caught by doing the whole work on this many ticks after a change.
    static constexpr std::int16_t kSettleTicks = 3;

    // Compares the number of processes and the sum of their ids with the last ones.
    void Observe(const process::ProcessSnapshot& snapshot);
    // The process set has changed within the last ticks: rebuild, do not just update.
    bool Settling() const { return countdown_ > 0; }
    // A tick's whole work is done.
    void TickDone();
    // The next Observe finds a change, whatever it sees.
    void ForceChange() { count_ = 0; }

private:
    std::uint32_t count_ = 0;
    std::uint32_t sum_ = 0;
    std::int16_t countdown_ = 0;
};

}  // namespace favorites
