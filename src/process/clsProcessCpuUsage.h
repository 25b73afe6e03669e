// The share of the machine's processor time that one process uses.
#pragma once

#include <cstdint>

#include "platform/Process.h"

namespace process {

class clsProcessCpuUsage {
public:
    // `highestCpu` is the number of the last processor handled (ProcessAccess::HighestCpu).
    explicit clsProcessCpuUsage(int highestCpu) : highestCpu_(highestCpu) {}

    platform::ProcessId PID() const { return pid_; }
    // Another id than before starts the measurement anew; the same one lets it go on.
    void SetPID(platform::ProcessId pid);

    // Percent of all processors used since the previous call, or since SetPID; at most 100. Below 0 when the
    // times went back. 0 when no time has passed. GetProcessTimes, QueryPerformanceCounter.
    double GetCpuUsage();

private:
    void Reset();
    void ReadTimes();

    int highestCpu_;
    platform::ProcessId pid_ = 0;
    int processorCount_ = 1;
    std::uint64_t kernelTime_ = 0;  // 100-ns units, as last read
    std::uint64_t userTime_ = 0;
    std::uint64_t previousKernelTime_ = 0;
    std::uint64_t previousUserTime_ = 0;
    std::int64_t frequency_ = 0;  // counter ticks per second
    std::int64_t counter_ = 0;    // of the times as last read
    std::int64_t previousCounter_ = 0;
};

}  // namespace process
