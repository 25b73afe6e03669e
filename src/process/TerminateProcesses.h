// Ending processes after the user was asked: only those that the question was about.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Process.h"

namespace process {

class ProcessAccess;

struct Victim {
    platform::ProcessId id = 0;
    std::string fileText;                   // the row's File column
    std::optional<std::uint64_t> creation;  // tells the process from a later one of its id; nullopt: not readable
};

// To be called before the question is asked. OpenProcess, GetProcessTimes.
Victim MakeVictim(platform::ProcessId id, const std::string& fileText);

// Ends them in order, passing over this program itself and every process that has ended in the meantime, whether or
// not its id has gone to another program. nullopt when all went well, else the fileText of the first that could not
// be ended; those after it are not touched. TerminateProcess.
std::optional<std::string> TerminateAll(const std::vector<Victim>& victims, const ProcessAccess& access);

}  // namespace process
