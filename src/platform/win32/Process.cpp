#include "platform/Process.h"

#include <algorithm>

#include "platform/Machine.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WineProcesses.h"

#define PSAPI_VERSION 1  // the names of XP
#include <psapi.h>

namespace platform {

namespace {

HANDLE handleOf(const ProcessHandle& process) {
    return reinterpret_cast<HANDLE>(process.raw());
}
HANDLE handleOf(const TokenHandle& token) {
    return reinterpret_cast<HANDLE>(token.raw());
}

// Of every Windows; before 7 the loader would look for their library beside the program.
struct ProcessStatus {
    template <class Function>
    static Function* find(const char* name) {
        return systemFunction<Function*>("psapi.dll", name);
    }
    decltype(&EnumProcesses) enumProcesses = find<decltype(EnumProcesses)>("EnumProcesses");
    decltype(&GetProcessMemoryInfo) memoryInfo = find<decltype(GetProcessMemoryInfo)>("GetProcessMemoryInfo");
    decltype(&GetModuleFileNameExW) moduleFileName = find<decltype(GetModuleFileNameExW)>("GetModuleFileNameExW");
};

const ProcessStatus& processStatus() {
    static const ProcessStatus functions;
    return functions;
}

std::uint64_t toNumber(const FILETIME& time) {
    return static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

}  // namespace

void ProcessTag::close(std::uintptr_t raw) noexcept {
    CloseHandle(reinterpret_cast<HANDLE>(raw));
}
void TokenTag::close(std::uintptr_t raw) noexcept {
    CloseHandle(reinterpret_cast<HANDLE>(raw));
}

ProcessId currentProcessId() {
    return GetCurrentProcessId();
}

bool enumerateProcesses(std::vector<ProcessId>& ids) {
    if (wine::present()) return wine::enumerateProcesses(ids);
    // A list that fills the buffer may have been cut: only one that leaves room is whole. The caller's vector
    // remembers the size that did, so that the next enumeration, half a second later, is a single call.
    constexpr std::size_t kLeastRoom = 256;
    constexpr std::size_t kMaxRoom = std::size_t{1} << 22;
    for (std::size_t room = std::max(kLeastRoom, ids.capacity()); room <= kMaxRoom; room *= 2) {
        ids.resize(room);
        const DWORD bytes = static_cast<DWORD>(room * sizeof(DWORD));
        DWORD used = 0;
        static_assert(sizeof(ProcessId) == sizeof(DWORD));
        if (processStatus().enumProcesses(reinterpret_cast<DWORD*>(ids.data()), bytes, &used) == 0) break;
        if (used < bytes) {
            ids.resize(used / sizeof(DWORD));
            return true;
        }
    }
    ids.clear();
    return false;
}

ProcessHandle openProcess(ProcessId id, std::uint32_t access) {
    return ProcessHandle(reinterpret_cast<std::uintptr_t>(OpenProcess(access, FALSE, id)));
}

std::optional<std::uint32_t> processAffinityMask(const ProcessHandle& process) {
    DWORD_PTR mask = 0;
    DWORD_PTR systemMask = 0;
    if (GetProcessAffinityMask(handleOf(process), &mask, &systemMask) == 0) return std::nullopt;
    return static_cast<std::uint32_t>(mask);
}

bool setProcessAffinityMask(const ProcessHandle& process, std::uint32_t mask) {
    return SetProcessAffinityMask(handleOf(process), mask) != 0;
}

std::uint32_t priorityClass(const ProcessHandle& process) {
    return GetPriorityClass(handleOf(process));
}

bool setPriorityClass(const ProcessHandle& process, std::uint32_t value) {
    return SetPriorityClass(handleOf(process), value) != 0;
}

bool terminateProcess(const ProcessHandle& process, std::uint32_t exitCode) {
    return TerminateProcess(handleOf(process), exitCode) != 0;
}

std::optional<std::uint64_t> workingSetBytes(const ProcessHandle& process) {
    PROCESS_MEMORY_COUNTERS counters = {};
    static_assert(sizeof(void*) == 8 || sizeof counters == 40);
    counters.cb = sizeof counters;
    if (processStatus().memoryInfo(handleOf(process), &counters, sizeof counters) == 0) return std::nullopt;
    return counters.WorkingSetSize;
}

std::optional<std::string> moduleFileName(const ProcessHandle& process) {
    // As wide characters: in UTF-8 a path within the limit may take three times as many bytes. One more than the
    // limit tells a path of just that length from one that was cut.
    constexpr DWORD kLongest = 260;
    wchar_t path[kLongest + 1];
    const DWORD length = processStatus().moduleFileName(handleOf(process), nullptr, path, kLongest + 1);
    if (length == 0 || length > kLongest) return std::nullopt;
    return narrowText({path, length});
}

std::optional<ProcessTimes> processTimes(const ProcessHandle& process) {
    if (wine::present()) {
        // Asking for the id takes the same right as asking for the times, so a handle without it fails here, too.
        const ProcessId id = wine::processId(handleOf(process));
        if (id == 0) return std::nullopt;
        if (id != GetCurrentProcessId()) return wine::processTimes(id);
    }
    FILETIME creation;
    FILETIME exit;
    FILETIME kernel;
    FILETIME user;
    if (GetProcessTimes(handleOf(process), &creation, &exit, &kernel, &user) == 0) return std::nullopt;
    return ProcessTimes{toNumber(creation), toNumber(kernel), toNumber(user), performanceCounter()};
}

TokenHandle openProcessToken(const ProcessHandle& process, std::uint32_t access) {
    HANDLE token = nullptr;
    if (OpenProcessToken(handleOf(process), access, &token) == 0) return TokenHandle();
    return TokenHandle(reinterpret_cast<std::uintptr_t>(token));
}

std::optional<std::uint64_t> lookupPrivilege(std::string_view name) {
    LUID id = {};
    if (LookupPrivilegeValueA(nullptr, std::string(name).c_str(), &id) == 0) return std::nullopt;
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(id.HighPart)) << 32 | id.LowPart;
}

bool adjustTokenPrivilege(const TokenHandle& token, std::uint64_t privilege, std::uint32_t attributes) {
    TOKEN_PRIVILEGES wanted = {};
    static_assert(sizeof wanted == 16);
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Luid.LowPart = static_cast<DWORD>(privilege);
    wanted.Privileges[0].Luid.HighPart = static_cast<LONG>(privilege >> 32);
    wanted.Privileges[0].Attributes = attributes;
    TOKEN_PRIVILEGES previous = {};
    DWORD previousBytes = 0;
    return AdjustTokenPrivileges(handleOf(token), FALSE, &wanted, sizeof wanted, &previous, &previousBytes) == 1;
}

void yieldThread() {
    Sleep(0);
}

}  // namespace platform
