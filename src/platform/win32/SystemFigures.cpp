// What the system knows about itself: its own figures, memory, and the machine's part of the registry.
#include <cstddef>
#include <cstring>

#include "platform/Machine.h"
#include "platform/win32/RegistryKey.h"
#include "platform/win32/SystemLibrary.h"

namespace platform {

namespace {

constexpr ULONG kBasicInformation = 0;
constexpr ULONG kPerformanceInformation = 2;
constexpr ULONG kTimeOfDayInformation = 3;

// Class 0. Its length must be exactly right.
struct BasicInformation {
    ULONG reserved;
    ULONG timerResolution;
    ULONG pageSize;
    ULONG physicalPages;
    ULONG lowestPage;
    ULONG highestPage;
    ULONG allocationGranularity;
    ULONG_PTR lowestAddress;
    ULONG_PTR highestAddress;
    ULONG_PTR activeProcessors;
    BYTE processors;
};
static_assert(sizeof(BasicInformation) == (sizeof(void*) == 8 ? 64 : 44));

// Class 2: the idle time, then counters of which there have come to be more with every Windows. A buffer that is
// too small is refused, one that is too large is not.
struct PerformanceInformation {
    LONGLONG idleTime;
    BYTE counters[1016];
};
static_assert(sizeof(PerformanceInformation) == 1024);

// Class 3, its first half, as Windows 2000 has it: a shorter buffer is filled as far as it goes, a longer one than
// the system's own is refused.
struct TimeOfDayInformation {
    LONGLONG bootTime;
    LONGLONG currentTime;
    LONGLONG timeZoneBias;
    ULONG timeZoneId;
    ULONG reserved;
};
static_assert(sizeof(TimeOfDayInformation) == 32);

template <class Information>
std::optional<Information> query(ULONG informationClass) {
    using QuerySystemInformation = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    static const auto function = systemFunction<QuerySystemInformation>("ntdll.dll", "NtQuerySystemInformation");
    Information information{};
    ULONG used = 0;
    if (function == nullptr || function(informationClass, &information, sizeof information, &used) < 0) {
        return std::nullopt;
    }
    return information;
}

KeyHandle openMachineKey(const std::string& key) {
    return openKey(HKEY_LOCAL_MACHINE, key, KEY_READ);
}

}  // namespace

std::optional<int> systemProcessors() {
    const auto information = query<BasicInformation>(kBasicInformation);
    return information ? std::optional<int>(information->processors) : std::nullopt;
}

std::optional<std::int64_t> systemTimeOfDay() {
    const auto information = query<TimeOfDayInformation>(kTimeOfDayInformation);
    return information ? std::optional<std::int64_t>(information->currentTime) : std::nullopt;
}

std::optional<std::int64_t> systemIdleTime() {
    const auto information = query<PerformanceInformation>(kPerformanceInformation);
    return information ? std::optional<std::int64_t>(information->idleTime) : std::nullopt;
}

std::optional<PhysicalMemory> physicalMemory() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status)) return std::nullopt;
    return PhysicalMemory{status.ullTotalPhys, status.ullAvailPhys};
}

std::string machineText(const std::string& key, const std::string& name) {
    return textValue(openMachineKey(key), name).value_or(std::string());
}

std::uint32_t machineNumber(const std::string& key, const std::string& name) {
    const std::optional<std::string> bytes = valueBytes(openMachineKey(key), name, REG_DWORD);
    std::uint32_t number = 0;
    if (!bytes || bytes->size() != sizeof number) return 0;
    std::memcpy(&number, bytes->data(), sizeof number);
    return number;
}

}  // namespace platform
