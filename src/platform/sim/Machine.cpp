// Facts about the simulated machine; all time comes from its clock.
#include "platform/Machine.h"

#include "platform/CodePage.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

// The value of the machine's registry if it is of type T; nullptr otherwise.
template <class T>
const T* findMachineValue(const std::string& key, const std::string& name) {
    const auto found = machine().figures.registry.find(lowerCase(key + "\\" + name));
    return found == machine().figures.registry.end() ? nullptr : std::get_if<T>(&found->second);
}

}  // namespace

int processorCount() {
    return machine().processes.processorCount;
}

std::int64_t performanceCounter() {
    return static_cast<std::int64_t>(machine().now) * machine().performanceFrequency / 1000;
}

std::int64_t performanceFrequency() {
    return machine().performanceFrequency;
}

std::optional<int> systemProcessors() {
    return machine().figures.refused ? std::nullopt : std::optional(processorCount());
}

std::optional<std::int64_t> systemTimeOfDay() {
    if (machine().figures.refused) return std::nullopt;
    return static_cast<std::int64_t>(sim::fileTime(machine().now));
}

std::optional<std::int64_t> systemIdleTime() {
    return machine().figures.refused ? std::nullopt : std::optional(machine().figures.idleTime);
}

std::optional<PhysicalMemory> physicalMemory() {
    return machine().figures.refused ? std::nullopt : std::optional(machine().figures.memory);
}

std::string machineText(const std::string& key, const std::string& name) {
    const auto* text = findMachineValue<std::string>(key, name);
    return text == nullptr ? std::string() : std::string(text->c_str());
}

std::uint32_t machineNumber(const std::string& key, const std::string& name) {
    const auto* number = findMachineValue<std::uint32_t>(key, name);
    return number == nullptr ? 0 : *number;
}

std::string windowsDirectory() {
    return "C:\\WINDOWS";
}
std::string programPath() {
    return "C:\\Kestrum\\Kestrum2.exe";
}
std::string commandLine() {
    return machine().commandLine;
}

namespace sim {

void setCommandLine(const std::string& text) {
    machine().commandLine = text;
}

void failSystemFigures(bool refuse) {
    machine().figures.refused = refuse;
}

void setPhysicalMemory(std::uint64_t total, std::uint64_t available) {
    machine().figures.memory = {total, available};
}

void putMachineText(const std::string& key, const std::string& name, const std::string& value) {
    machine().figures.registry[lowerCase(key + "\\" + name)] = value;
}

void putMachineNumber(const std::string& key, const std::string& name, std::uint32_t value) {
    machine().figures.registry[lowerCase(key + "\\" + name)] = value;
}

}  // namespace sim

}  // namespace platform
