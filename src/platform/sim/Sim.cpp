// Life of the simulated machine, its log and the count of open handles.
#include <cstdio>
#include <cstdlib>

#include "platform/sim/SimMachine.h"

namespace platform::sim {

std::uintptr_t nextSerial() {
    static std::uintptr_t last = 0;
    return ++last;
}

Machine& machine() {
    static Machine state;
    return state;
}

namespace {

void addFirstProcess(Machine& state, ProcessId id, const std::string& path) {
    auto record = std::make_unique<ProcessRecord>();
    record->data.id = id;
    record->data.path = path;
    record->data.creation = fileTime(id == 100 ? state.now : 0);
    record->serial = nextSerial();
    state.processes.byId[id] = record.get();
    state.processes.inOrder.push_back(std::move(record));
}

}  // namespace

Machine::Machine() {
    addFirstProcess(*this, 0, "");
    addFirstProcess(*this, 4, "");
    addFirstProcess(*this, 100, "C:\\Kestrum\\Kestrum2.exe");
    putEntry(*this, "C:\\Kestrum\\Kestrum2.exe", "MZ", false);
    putEntry(*this, "C:\\WINDOWS\\system32", "", true);
}

void reset() {
    // Swapped, not assigned: callbacks that die with the old state may close handles, and find a whole machine.
    auto old = std::make_unique<Machine>();
    std::swap(*old, machine());
}

void note(std::string_view what, std::string_view argument) {
    auto& entries = machine().log;
    if (entries.size() >= kMostRecorded) return;
    std::string& entry = entries.emplace_back(what);
    if (!argument.empty()) entry.append(" ").append(argument);
}

void fail(const char* message) {
    std::fprintf(stderr, "simulated machine: %s\n", message);
    std::abort();
}

std::vector<std::string> log() {
    return machine().log;
}

void clearLog() {
    machine().log.clear();
    machine().processes.accessesAsked.clear();
}

void forget() {
    clearLog();
    Machine& state = machine();
    state.balloons.clear();
    state.sounds.clear();
    state.openedDocuments.clear();
    state.launches.clear();
    state.desktop.modalScripts.clear();
    state.desktop.menuScripts.clear();
    state.desktop.drags.clear();
}

int openHandles(const std::string& kind) {
    const Machine& state = machine();
    if (kind == "process") return state.processes.open.count();
    if (kind == "token") return state.processes.tokens.count();
    if (kind == "icon") return state.icons.count();
    if (kind == "picture") return state.pictures.count();
    if (kind == "mutex") return state.mutexHandles.count();
    if (kind == "tooltip") return static_cast<int>(state.tooltips.size());
    if (kind == "window") return static_cast<int>(state.desktop.windows.size());
    if (kind != "timer") fail("openHandles: no such kind");
    int count = 0;
    for (const TimerRecord& timer : state.timers) count += timer.window == 0 ? 1 : 0;
    return count;
}

int openHandles() {
    int count = 0;
    for (const char* kind : {"process", "token", "timer", "icon", "picture", "window", "mutex", "tooltip"}) {
        count += openHandles(kind);
    }
    return count;
}

}  // namespace platform::sim
