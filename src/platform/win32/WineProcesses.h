// Processor times of other processes under Wine, whose GetProcessTimes gives the caller's own times for every
// process. The system's process table has the true ones, for all processes in one call.
#pragma once

#include <optional>
#include <vector>

#include "platform/Process.h"
#include "platform/win32/SystemLibrary.h"

namespace platform::wine {

// True when this "Windows" is Wine. wine_get_version in ntdll.
bool present();

// The id of the process behind a handle; 0 when the handle lacks the right 0x400. GetProcessId.
ProcessId processId(HANDLE process);

// The ids of all processes, idle and system process first as on Windows, and a fresh table with them: EnumProcesses
// reads the very same table, so this costs no more. False when the system refuses. NtQuerySystemInformation.
bool enumerateProcesses(std::vector<ProcessId>& ids);

// Times of a process from the table, with the counter of its reading. The table is read anew unless it is quite
// fresh: an enumeration was just made, or others are asked for their times in turn.
std::optional<ProcessTimes> processTimes(ProcessId id);

}  // namespace platform::wine
