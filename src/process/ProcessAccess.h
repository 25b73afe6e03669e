// Every look at, and change to, another process: opens it with exactly the rights the one call needs, makes the
// call and closes it again. No handle outlives a call, so a process that ends in between costs one failed open.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Process.h"
#include "process/ErrorCounters.h"

namespace process {

// The rights each operation asks for.
namespace rights {
inline constexpr std::uint32_t kTerminate = 0x100001;    // terminate, synchronise
inline constexpr std::uint32_t kSetInformation = 0x200;  // set information
inline constexpr std::uint32_t kQuery = 0x400;           // query information
inline constexpr std::uint32_t kQueryAndRead = 0x410;    // query information, read memory
inline constexpr std::uint32_t kAll = 0x1F0FFF;          // all access
inline constexpr std::uint32_t kTokenAdjust = 0x28;      // of a token: adjust privileges, query
}  // namespace rights

class ProcessAccess {
public:
    // Reads the processor count and the Windows directory once. `errors` outlives this object.
    explicit ProcessAccess(ErrorCounters& errors);

    // Number of the highest processor handled: the machine's last one, at most 7.
    int HighestCpu() const { return highestCpu_; }
    ErrorCounters& Errors() { return errors_; }

    // Lets this process open protected processes. AdjustTokenPrivileges.
    bool EnableDebugPrivilege(bool enable);

    // Bit n = may run on CPU n; 0 when it cannot be read. GetProcessAffinityMask.
    std::uint32_t GetAffinity(platform::ProcessId id) const;
    // The class value; 0 when it cannot be read. GetPriorityClass.
    std::uint32_t GetPriorityClass(platform::ProcessId id) const;
    // Nothing is opened for setting when the class is already the wanted one; a failure counts as one priority
    // error. SetPriorityClass.
    void SetPriorityClass(platform::ProcessId id, std::uint32_t value);
    // Always calls the system; a failure counts as one affinity error. SetProcessAffinityMask.
    void SetAffinity(platform::ProcessId id, std::string_view affinityText);
    // False when the process cannot be opened or ended. TerminateProcess, exit code 0.
    bool Terminate(platform::ProcessId id) const;

    // Working set in KB, nullopt when it cannot be read. GetProcessMemoryInfo.
    std::optional<std::uint32_t> WorkingSetKb(platform::ProcessId id) const;
    // The same as text, "0" below 1024 bytes, empty when it cannot be read.
    std::string WorkingSetText(platform::ProcessId id) const;

    // Long path of the program file, empty when it cannot be read or no longer leads to a file: such a process
    // is not shown. GetModuleFileNameExW, GetLongPathNameW.
    std::string ImagePath(platform::ProcessId id) const;

private:
    ErrorCounters& errors_;
    int highestCpu_;
    std::string windowsDirectory_;
};

}  // namespace process
