// What the total CPU graph says about the average load since a start time.
#pragma once

#include <cstdint>
#include <string>

#include "process/CpuTotals.h"

namespace graphs {

// Local times are seconds since 1601.
class AverageUsage {
public:
    explicit AverageUsage(std::int64_t now) { Begin(now); }

    // Counts from now on.
    void Begin(std::int64_t now) { start_ = checked_ = now; }
    // To be called whenever the time is looked at without a use for it.
    void Checked(std::int64_t now) { checked_ = now; }
    // Between two looks lies half a second: where it is more than four seconds, forward or back, the clock was set
    // and the start time goes along.
    void FollowClock(std::int64_t now);
    // Elapsed time, and below it the average, once there is one.
    std::string Text(const process::CpuTotals& totals, std::int64_t now) const;

    std::int64_t Start() const { return start_; }

private:
    std::int64_t start_ = 0;
    std::int64_t checked_ = 0;
};

}  // namespace graphs
