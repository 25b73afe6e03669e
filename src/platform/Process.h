// Single operations on processes: each is one system call, decoded. Which access right an operation
// asks for and what a failure means are decided by the callers (process/ProcessAccess).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Handle.h"

namespace platform {

using ProcessId = std::uint32_t;

struct ProcessTag {
    static void close(std::uintptr_t raw) noexcept;  // CloseHandle
};
using ProcessHandle = Handle<ProcessTag>;

struct TokenTag {
    static void close(std::uintptr_t raw) noexcept;  // CloseHandle
};
using TokenHandle = Handle<TokenTag>;

// Processor time a process has used, in 100-ns units; creation time as 100-ns units since 1601 (UTC).
struct ProcessTimes {
    std::uint64_t creation = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
    std::int64_t counter = 0;  // performanceCounter of the moment they are of
};

// The id of this process. GetCurrentProcessId.
ProcessId currentProcessId();

// The ids of all processes, idle and system process first; replaces the content of `ids`. The buffer
// grows until the whole list fits. False, with `ids` empty, when the system refuses. EnumProcesses.
bool enumerateProcesses(std::vector<ProcessId>& ids);

// Opens a process with exactly the rights in `access`; empty when it is gone or denied. OpenProcess.
ProcessHandle openProcess(ProcessId id, std::uint32_t access);

// Bit n set = may run on CPU n. nullopt when the call fails (right 0x400 missing). GetProcessAffinityMask.
std::optional<std::uint32_t> processAffinityMask(const ProcessHandle& process);
// False when the right 0x200 is missing or `mask` names no or an absent CPU. SetProcessAffinityMask.
bool setProcessAffinityMask(const ProcessHandle& process, std::uint32_t mask);

// The priority class value, 0 on failure (right 0x400 missing). GetPriorityClass.
std::uint32_t priorityClass(const ProcessHandle& process);
// False when the right 0x200 is missing or the value is no priority class. SetPriorityClass.
bool setPriorityClass(const ProcessHandle& process, std::uint32_t value);

// False when the right 0x1 is missing. TerminateProcess.
bool terminateProcess(const ProcessHandle& process, std::uint32_t exitCode);

// Working set in bytes; needs 0x410. GetProcessMemoryInfo.
std::optional<std::uint64_t> workingSetBytes(const ProcessHandle& process);

// Path of the main module as the system writes it (it may start with "\??\"); nullopt when it is longer than 260
// UTF-16 units. Needs 0x410. GetModuleFileNameExW.
std::optional<std::string> moduleFileName(const ProcessHandle& process);

// Needs 0x400. They may be up to a second old, as their counter tells. GetProcessTimes, QueryPerformanceCounter.
std::optional<ProcessTimes> processTimes(const ProcessHandle& process);

// Opens the access token of a process. OpenProcessToken.
TokenHandle openProcessToken(const ProcessHandle& process, std::uint32_t access);
// The local id of a privilege name, e.g. "SeDebugPrivilege". LookupPrivilegeValueA.
std::optional<std::uint64_t> lookupPrivilege(std::string_view name);
// Sets the attributes (2 enabled, 0 disabled) of one privilege; true when the call returns exactly 1.
// AdjustTokenPrivileges.
bool adjustTokenPrivilege(const TokenHandle& token, std::uint64_t privilege, std::uint32_t attributes);

// Gives the rest of the time slice away. Sleep(0).
void yieldThread();

}  // namespace platform
