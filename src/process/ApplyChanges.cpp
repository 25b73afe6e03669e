#include "process/ApplyChanges.h"

#include <cstdint>

#include "process/PriorityClass.h"
#include "process/ProcessAccess.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace process {

namespace {

// Auto Set would undo a change of its favourites. A process whose image path cannot be read is never one.
bool LookedAfter(platform::ProcessId id, const std::function<bool(const std::string&)>& leaveAlone,
                 const ProcessAccess& access) {
    if (!leaveAlone) return false;
    const std::string path = access.ImagePath(id);
    return !path.empty() && leaveAlone(text::Lower(path));
}

}  // namespace

std::string ChangeResult::Summary() const {
    // The spelling is what users of this program know.
    return "Unable to make changes to some files.\r\nAffiniy Errors: " + text::Decimal(affinityErrors) +
           "\r\nPriority Errors: " + text::Decimal(priorityErrors);
}

ChangeResult ApplyChanges(const std::vector<TargetProcess>& targets, const WantedChange& wanted,
                          const std::function<bool(const std::string&)>& leaveAlone, ProcessAccess& access) {
    access.Errors().Reset();
    if (wanted.affinity.empty()) return {};
    const std::uint32_t priority = PriorityValue(wanted.priority);
    for (const TargetProcess& target : targets) {
        if (LookedAfter(target.id, leaveAlone, access)) continue;
        if (target.affinity != wanted.affinity) access.SetAffinity(target.id, wanted.affinity);
        if (priority != 0 && target.priority != wanted.priority) access.SetPriorityClass(target.id, priority);
    }
    return {access.Errors().Affinity(), access.Errors().Priority()};
}

}  // namespace process
