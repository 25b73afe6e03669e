#include "process/ProcessAccess.h"

#include <algorithm>

#include "platform/Files.h"
#include "platform/Machine.h"
#include "process/Affinity.h"
#include "process/ImageName.h"
#include "text/Numbers.h"

namespace process {

using platform::ProcessHandle;
using platform::ProcessId;

ProcessAccess::ProcessAccess(ErrorCounters& errors)
    : errors_(errors),
      highestCpu_(std::clamp(platform::processorCount() - 1, 0, kMostCpus - 1)),
      windowsDirectory_(WindowsDirectoryWithSlash()) {}

bool ProcessAccess::EnableDebugPrivilege(bool enable) {
    constexpr std::uint32_t kEnabled = 2;
    const ProcessHandle self = platform::openProcess(platform::currentProcessId(), rights::kAll);
    if (!self) return false;
    const platform::TokenHandle token = platform::openProcessToken(self, rights::kTokenAdjust);
    if (!token) return false;
    const auto privilege = platform::lookupPrivilege("SeDebugPrivilege");
    return privilege && platform::adjustTokenPrivilege(token, *privilege, enable ? kEnabled : 0);
}

std::uint32_t ProcessAccess::GetAffinity(ProcessId id) const {
    const ProcessHandle process = platform::openProcess(id, rights::kQueryAndRead);
    return process ? platform::processAffinityMask(process).value_or(0) : 0;
}

std::uint32_t ProcessAccess::GetPriorityClass(ProcessId id) const {
    const ProcessHandle process = platform::openProcess(id, rights::kQuery);
    return process ? platform::priorityClass(process) : 0;
}

void ProcessAccess::SetPriorityClass(ProcessId id, std::uint32_t value) {
    if (GetPriorityClass(id) == value) return;
    ProcessHandle process = platform::openProcess(id, rights::kSetInformation);
    if (!process || !platform::setPriorityClass(process, value)) {
        errors_.CountPriority();
        return;
    }
    process.reset();
    platform::yieldThread();
}

void ProcessAccess::SetAffinity(ProcessId id, std::string_view affinityText) {
    const ProcessHandle process = platform::openProcess(id, rights::kAll);
    if (!process || !platform::setProcessAffinityMask(process, AffinityMask(affinityText))) {
        errors_.CountAffinity();
        return;
    }
    platform::yieldThread();
}

bool ProcessAccess::Terminate(ProcessId id) const {
    const ProcessHandle process = platform::openProcess(id, rights::kTerminate);
    return process && platform::terminateProcess(process, 0);
}

std::optional<std::uint32_t> ProcessAccess::WorkingSetKb(ProcessId id) const {
    const ProcessHandle process = platform::openProcess(id, rights::kQueryAndRead);
    if (!process) return std::nullopt;
    const auto bytes = platform::workingSetBytes(process);
    if (!bytes) return std::nullopt;
    return static_cast<std::uint32_t>(*bytes / 1024);
}

std::string ProcessAccess::WorkingSetText(ProcessId id) const {
    const auto kilobytes = WorkingSetKb(id);
    return kilobytes ? text::Decimal(*kilobytes) : std::string();
}

std::string ProcessAccess::ImagePath(ProcessId id) const {
    const ProcessHandle process = platform::openProcess(id, rights::kQueryAndRead);
    if (!process) return {};
    const auto name = platform::moduleFileName(process);
    if (!name || name->empty()) return {};
    return platform::longPathName(NormalizedModulePath(*name, windowsDirectory_)).value_or(std::string());
}

}  // namespace process
