// What the tip over a row of the process list tells of its process: how long it has been running, and what the
// user knows it by, the caption of its main window. Local times are seconds since 1601.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Process.h"
#include "process/SystemInfo.h"

namespace process {

// When the process was created, in 100-ns units since 1601 (UTC). nullopt for an empty handle, without the right
// to query, and where the system keeps no such time. GetProcessTimes.
std::optional<std::uint64_t> CreationTime(const platform::ProcessHandle& process);
// The same in local time; nullopt when the process cannot be opened. OpenProcess.
std::optional<std::int64_t> StartTime(platform::ProcessId id);
// GetSystemTimeAsFileTime, GetTimeZoneInformation.
std::int64_t LocalNow();
// From start to now as days:hours:minutes:seconds of at least two digits each; empty without a start, and for one
// that lies more than two seconds ahead.
std::string UptimeText(std::optional<std::int64_t> start, std::int64_t now);

// Number of the uppermost window of the process that stands on its own, is shown and has a caption; 0 when there
// is none. EnumWindows and the calls of platform::windowFacts.
std::uintptr_t MainWindowOf(platform::ProcessId id);
// Caption of that window without blanks at its ends, from its first 255 characters; empty without a window.
std::string CaptionOf(platform::ProcessId id);

// What the user knows the process by: the first line of that caption, at most 64 characters and then "...";
// "Windows Explorer" for the shell; empty without a window. Arguments as for RowTip.
std::string TitleOf(const std::string& fileText, platform::ProcessId id, const std::string& imagePath);

// The tip of a row. `fileText` is the row's File column, `imagePath` the process's image path (empty when it
// cannot be read).
TipText RowTip(const std::string& fileText, platform::ProcessId id, const std::string& imagePath);

}  // namespace process
