// The run list of the simulated machine's user. Names compare without regard to case.
#include "platform/RunList.h"

#include "platform/CodePage.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

bool runEntryExists(const std::string& name) {
    return machine().runList.count(lowerCase(name)) != 0;
}

bool writeRunEntry(const std::string& name, const std::string& command) {
    sim::note("writeRunEntry", name);
    if (machine().runListRefused || name.find('\0') != std::string::npos) return false;
    sim::putRunEntry(name, command);
    return true;
}

bool deleteRunEntry(const std::string& name) {
    sim::note("deleteRunEntry", name);
    if (!machine().runListRefused) machine().runList.erase(lowerCase(name));
    return !runEntryExists(name);
}

namespace sim {

std::optional<std::string> runEntry(const std::string& name) {
    const auto found = machine().runList.find(lowerCase(name));
    return found == machine().runList.end() ? std::nullopt : std::optional(found->second);
}

void putRunEntry(const std::string& name, const std::string& bytes) {
    machine().runList[lowerCase(name)] = bytes;
}

void refuseRunEntries(bool refuse) {
    machine().runListRefused = refuse;
}

}  // namespace sim

}  // namespace platform
