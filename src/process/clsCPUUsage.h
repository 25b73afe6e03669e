// The load of the whole machine.
#pragma once

#include <cstdint>

namespace process {

class clsCPUUsage {
public:
    // Takes the first reading; when the system refuses, the first usage is counted from 0 on.
    clsCPUUsage();

    // Percent of all processors used since the previous call (or the creation), rounded half up. As measured: a
    // little below 0 when the idle time runs ahead of the clock, and 100 when neither has moved. 0 when the
    // system refuses a figure, and then the next call counts from the same moment as this one.
    // NtQuerySystemInformation.
    std::int32_t CurrentCPUUsage();

private:
    std::int64_t previousIdle_ = 0;  // 100-ns units, of all processors together
    std::int64_t previousTime_ = 0;  // 100-ns units
};

}  // namespace process
