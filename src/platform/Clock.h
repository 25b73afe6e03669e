// The time of day.
#pragma once

#include <cstdint>

namespace platform {

// Now, in 100-ns units since 1601 (UTC). GetSystemTimeAsFileTime.
std::uint64_t systemTime();
// Minutes that local time is behind UTC (below 0 when it is ahead), daylight saving time included while it is in
// force. GetTimeZoneInformation.
int localBiasMinutes();

}  // namespace platform
