// The last hundred readings of a process's CPU usage, and how often one is taken.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace graphs {

class CpuHistory {
public:
    static constexpr int kSamples = 100;

    // Every how many ticks a reading is taken (1 or more). The next one is due after that many.
    void SetDivisor(int divisor);
    int Divisor() const { return divisor_; }

    // To be called once a tick; true when a reading is due.
    bool TickDue();
    // Takes a reading; one above 100 counts as 100, one below 0 is none. True when what there is to be seen is
    // no longer what it was.
    bool Add(int percent);

    // Percent; the last one is the newest.
    std::span<const std::int16_t, kSamples> Samples() const { return samples_; }
    int Newest() const { return samples_.back(); }

private:
    std::array<std::int16_t, kSamples> samples_{};
    int divisor_ = 1;
    int countdown_ = 1;
};

}  // namespace graphs
