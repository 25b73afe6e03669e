// Processes of the simulated machine: every operation checks that the process still runs and that its handle
// was opened with the right the operation needs.
#include "platform/Process.h"

#include <cmath>

#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

constexpr std::uint32_t kTerminate = 0x1;
constexpr std::uint32_t kReadMemory = 0x10;
constexpr std::uint32_t kSetInformation = 0x200;
constexpr std::uint32_t kQueryInformation = 0x400;
constexpr std::uint32_t kAdjustPrivileges = 0x20;
constexpr std::uint64_t kDebugPrivilege = 20;
constexpr std::size_t kLongestModule = 260;

// The process behind a handle that has all of `rights`; nullptr when it ended or a right is missing.
sim::Process* running(const ProcessHandle& handle, std::uint32_t rights) {
    auto& table = machine().processes;
    const sim::OpenProcess* open = table.open.find(handle.raw());
    if (open == nullptr || (open->access & rights) != rights) return nullptr;
    const auto found = table.byId.find(open->id);
    if (found == table.byId.end() || found->second->serial != open->serial) return nullptr;
    return &found->second->data;
}

std::uint32_t systemMask() {
    const int count = machine().processes.processorCount;
    return count >= 32 ? ~std::uint32_t{0} : (std::uint32_t{1} << count) - 1;
}

bool isPriorityClass(std::uint32_t value) {
    return value == 0x20 || value == 0x40 || value == 0x80 || value == 0x100 || value == 0x4000 || value == 0x8000;
}

}  // namespace

void ProcessTag::close(std::uintptr_t raw) noexcept {
    machine().processes.open.remove(raw);
}
void TokenTag::close(std::uintptr_t raw) noexcept {
    machine().processes.tokens.remove(raw);
}

ProcessId currentProcessId() {
    return 100;
}

bool enumerateProcesses(std::vector<ProcessId>& ids) {
    auto& table = machine().processes;
    ids.clear();
    if (table.enumerationFails) return false;
    bool vanishing = false;
    for (const auto& record : table.inOrder) {
        ids.push_back(record->data.id);
        vanishing = vanishing || record->data.vanishAfterListing;
    }
    if (vanishing) {
        for (const ProcessId id : ids) {
            if (table.byId[id]->data.vanishAfterListing) sim::endProcess(id);
        }
    }
    return true;
}

ProcessHandle openProcess(ProcessId id, std::uint32_t access) {
    auto& table = machine().processes;
    if (table.accessesAsked.size() < sim::kMostRecorded) table.accessesAsked.push_back(access);
    const auto found = table.byId.find(id);
    if (id == 0 || found == table.byId.end() || (found->second->data.deniedRights & access) != 0) return {};
    return ProcessHandle(table.open.add({id, found->second->serial, access}));
}

std::optional<std::uint32_t> processAffinityMask(const ProcessHandle& process) {
    const sim::Process* found = running(process, kQueryInformation);
    return found == nullptr ? std::nullopt : std::optional(found->affinityMask);
}

bool setProcessAffinityMask(const ProcessHandle& process, std::uint32_t mask) {
    sim::Process* found = running(process, kSetInformation);
    if (found == nullptr || mask == 0 || (mask & ~systemMask()) != 0) return false;
    sim::note("setAffinity", std::to_string(found->id) + " " + std::to_string(mask));
    found->affinityMask = mask;
    return true;
}

std::uint32_t priorityClass(const ProcessHandle& process) {
    const sim::Process* found = running(process, kQueryInformation);
    return found == nullptr ? 0 : found->priorityClass;
}

bool setPriorityClass(const ProcessHandle& process, std::uint32_t value) {
    sim::Process* found = running(process, kSetInformation);
    if (found == nullptr || !isPriorityClass(value)) return false;
    sim::note("setPriorityClass", std::to_string(found->id) + " " + std::to_string(value));
    found->priorityClass = value;
    return true;
}

bool terminateProcess(const ProcessHandle& process, std::uint32_t) {
    const sim::Process* found = running(process, kTerminate);
    if (found == nullptr) return false;
    sim::endProcess(found->id);
    return true;
}

std::optional<std::uint64_t> workingSetBytes(const ProcessHandle& process) {
    const sim::Process* found = running(process, kQueryInformation | kReadMemory);
    return found == nullptr ? std::nullopt : std::optional(found->workingSet);
}

std::optional<std::string> moduleFileName(const ProcessHandle& process) {
    const sim::Process* found = running(process, kQueryInformation | kReadMemory);
    if (found == nullptr || found->path.empty()) return std::nullopt;
    if (sim::firstUnits(found->path, kLongestModule).size() < found->path.size()) return std::nullopt;
    return found->path;
}

std::optional<ProcessTimes> processTimes(const ProcessHandle& process) {
    const sim::Process* found = running(process, kQueryInformation);
    if (found == nullptr) return std::nullopt;
    const auto used = static_cast<std::uint64_t>(std::llround(found->timesAge * 10'000.0 * found->load));
    const std::int64_t passed = found->timesAge * performanceFrequency() / 1000;
    return ProcessTimes{found->creation, found->kernel, found->user - used, performanceCounter() - passed};
}

TokenHandle openProcessToken(const ProcessHandle& process, std::uint32_t access) {
    if (running(process, kQueryInformation) == nullptr) return {};
    return TokenHandle(machine().processes.tokens.add(access));
}

std::optional<std::uint64_t> lookupPrivilege(std::string_view name) {
    return name == "SeDebugPrivilege" ? std::optional(kDebugPrivilege) : std::nullopt;
}

bool adjustTokenPrivilege(const TokenHandle& token, std::uint64_t privilege, std::uint32_t attributes) {
    const std::uint32_t* access = machine().processes.tokens.find(token.raw());
    if (access == nullptr || (*access & kAdjustPrivileges) == 0 || privilege != kDebugPrivilege) return false;
    sim::note("adjustTokenPrivilege", std::to_string(attributes));
    return true;
}

void yieldThread() {}

}  // namespace platform
