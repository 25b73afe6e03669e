// Facts about the machine this program runs on.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

// Number of logical processors, at least 1. GetSystemInfo.
int processorCount();

// Monotonic counter and its ticks per second (0 when there is none).
// QueryPerformanceCounter, QueryPerformanceFrequency.
std::int64_t performanceCounter();
std::int64_t performanceFrequency();

// The Windows directory without trailing "\" (usually), empty on failure. GetWindowsDirectoryA.
std::string windowsDirectory();

// Full path of this program's own executable file. GetModuleFileNameA.
std::string programPath();

}  // namespace platform
