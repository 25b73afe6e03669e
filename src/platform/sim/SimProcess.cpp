// Processes and processors, as tests set them up.
#include <algorithm>

#include "platform/sim/SimMachine.h"

namespace platform::sim {

ProcessId addProcess(Process process) {
    auto& table = machine().processes;
    if (process.id == 0) {
        while (table.byId.count(table.nextId) != 0) table.nextId += 4;
        process.id = table.nextId;
        table.nextId += 4;
    }
    endProcess(process.id);
    if (process.creation == 0) process.creation = fileTime(machine().now);
    // The system writes some paths in its own form; the file behind them has a drive.
    const std::string image = process.path.rfind("\\??\\", 0) == 0 ? process.path.substr(4) : process.path;
    if (!pathKey(image).empty() && !file(image)) putFile(image, "MZ");

    auto record = std::make_unique<ProcessRecord>();
    record->data = std::move(process);
    record->serial = nextSerial();
    const ProcessId id = record->data.id;
    table.byId[id] = record.get();
    table.inOrder.push_back(std::move(record));
    return id;
}

void endProcess(ProcessId id) {
    auto& table = machine().processes;
    if (table.byId.erase(id) == 0) return;
    const auto found = std::find_if(table.inOrder.begin(), table.inOrder.end(),
                                    [id](const auto& record) { return record->data.id == id; });
    table.inOrder.erase(found);
}

Process* findProcess(ProcessId id) {
    const auto found = machine().processes.byId.find(id);
    return found == machine().processes.byId.end() ? nullptr : &found->second->data;
}

std::vector<std::uint32_t> accessesAsked() {
    return machine().processes.accessesAsked;
}
void setProcessorCount(int count) {
    machine().processes.processorCount = count;
}
void failEnumeration(bool refuse) {
    machine().processes.enumerationFails = refuse;
}

}  // namespace platform::sim
