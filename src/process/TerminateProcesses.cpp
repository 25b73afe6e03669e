#include "process/TerminateProcesses.h"

#include <algorithm>

#include "process/ProcessAccess.h"
#include "process/ProcessDetails.h"

namespace process {

using platform::ProcessId;

namespace {

// Whether the system still lists the process. Opening it would not tell: a process that has ended can be opened for
// as long as anybody, its parent for one, keeps a handle of it. When the system refuses the list, it counts as
// running.
bool Runs(ProcessId id) {
    std::vector<ProcessId> ids;
    return !platform::enumerateProcesses(ids) || std::find(ids.begin(), ids.end(), id) != ids.end();
}

}  // namespace

Victim MakeVictim(ProcessId id, const std::string& fileText) {
    return {id, fileText, CreationTime(platform::openProcess(id, rights::kQuery))};
}

std::optional<std::string> TerminateAll(const std::vector<Victim>& victims, const ProcessAccess& access) {
    for (const Victim& victim : victims) {
        if (victim.id == platform::currentProcessId()) continue;
        // While this handle is open the system gives the id to no other process.
        const platform::ProcessHandle held = platform::openProcess(victim.id, rights::kQuery);
        if (CreationTime(held) != victim.creation) continue;
        // The user wanted the process to be gone. One that ended by itself while the question stood there is, and
        // a failure reported for it would keep the others alive. A process that shows its times to nobody is told
        // from a gone one by the list alone.
        if (!access.Terminate(victim.id) && Runs(victim.id)) return victim.fileText;
    }
    return std::nullopt;
}

}  // namespace process
