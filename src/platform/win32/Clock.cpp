#include "platform/Clock.h"

#include "platform/win32/Win32.h"

namespace platform {

std::uint64_t systemTime() {
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    return static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
}

int localBiasMinutes() {
    TIME_ZONE_INFORMATION zone = {};
    const DWORD season = GetTimeZoneInformation(&zone);
    if (season == TIME_ZONE_ID_INVALID) return 0;
    const LONG seasonal = season == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightBias : zone.StandardBias;
    return static_cast<int>(zone.Bias + seasonal);
}

}  // namespace platform
