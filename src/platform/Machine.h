// Facts about the machine this program runs on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

// Number of logical processors, at least 1. GetSystemInfo.
int processorCount();

// Monotonic counter and its ticks per second (0 when there is none).
// QueryPerformanceCounter, QueryPerformanceFrequency.
std::int64_t performanceCounter();
std::int64_t performanceFrequency();

// The system's own figures, each nullopt when the system refuses. NtQuerySystemInformation.
// Number of processors (class 0: basic information, one byte).
std::optional<int> systemProcessors();
// The time of day in 100-ns units since 1601 (class 3).
std::optional<std::int64_t> systemTimeOfDay();
// Time that all processors together have been idle since the system started, in 100-ns units (class 2).
std::optional<std::int64_t> systemIdleTime();

struct PhysicalMemory {
    std::uint64_t total = 0;      // bytes
    std::uint64_t available = 0;  // bytes
};
// nullopt when the system refuses. GlobalMemoryStatusEx.
std::optional<PhysicalMemory> physicalMemory();

// A text of the machine's part of the registry (below HKEY_LOCAL_MACHINE), up to its first NUL; empty when it
// cannot be read. RegOpenKeyExA, RegQueryValueExA.
std::string machineText(const std::string& key, const std::string& name);
// A DWORD there; 0 when it cannot be read.
std::uint32_t machineNumber(const std::string& key, const std::string& name);

// The Windows directory without trailing "\" (usually), empty on failure. GetWindowsDirectoryA.
std::string windowsDirectory();

// Full path of this program's own executable file. GetModuleFileNameA.
std::string programPath();

// What this program was started with: everything behind its own name, blanks included. The name may stand in quotes
// or be the plain path, whatever blanks that holds. GetCommandLineA.
std::string commandLine();

}  // namespace platform
