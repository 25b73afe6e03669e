// The load of the whole machine since the counting began.
#pragma once

#include <cstdint>

namespace process {

// Every reading of the processor load since the start or the last reset, for an average.
struct CpuTotals {
    std::int64_t sum = 0;  // percent
    std::int64_t samples = 0;
    std::int32_t last = 0;  // the newest reading, as measured: it can be a little outside 0..100
};

}  // namespace process
