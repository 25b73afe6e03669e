// Giving processes the affinity and priority that the user has chosen: the rules of "Apply Changes", without the
// windows around them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Process.h"

namespace process {

class ProcessAccess;

// A row of the process list; the columns as shown.
struct TargetProcess {
    platform::ProcessId id = 0;
    std::string affinity;
    std::string priority;
};

struct WantedChange {
    std::string affinity;
    std::string priority;  // "Default", as any text that names no priority class, leaves the priority alone
};

struct ChangeResult {
    int affinityErrors = 0;
    int priorityErrors = 0;
    bool Failed() const { return affinityErrors > 0 || priorityErrors > 0; }
    // The message that reports a run with errors; its lines end in CR LF.
    std::string Summary() const;
};

// Sets what differs from the columns; without any processor in `wanted` nothing is touched. Starts the shared error
// counters at 0 and gives them in the result. `leaveAlone` gets a process's lower-cased image path and says whether
// Auto Set looks after it; when it is empty, no process is passed over.
ChangeResult ApplyChanges(const std::vector<TargetProcess>& targets, const WantedChange& wanted,
                          const std::function<bool(const std::string&)>& leaveAlone, ProcessAccess& access);

}  // namespace process
