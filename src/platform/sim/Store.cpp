// The settings store of the simulated machine. Sections and keys compare without regard to case.
#include "platform/Store.h"

#include "platform/CodePage.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

const sim::StoreValue* findValue(const std::string& section, const std::string& key) {
    const auto values = machine().store.find(lowerCase(section));
    if (values == machine().store.end()) return nullptr;
    const auto found = values->second.find(lowerCase(key));
    return found == values->second.end() ? nullptr : &found->second;
}

}  // namespace

std::optional<std::string> storeRead(const std::string& section, const std::string& key) {
    sim::note("storeRead", key);
    const sim::StoreValue* found = findValue(section, key);
    if (found == nullptr || !found->isText) return std::nullopt;
    return std::string(found->value.c_str());
}

bool storeWrite(const std::string& section, const std::string& key, const std::string& value) {
    sim::note("storeWrite", key + "=" + value);
    machine().store[lowerCase(section)][lowerCase(key)] = {std::string(value.c_str()), true};
    return true;
}

bool storeDeleteValue(const std::string& section, const std::string& key) {
    sim::note("storeDeleteValue", key);
    const auto values = machine().store.find(lowerCase(section));
    return values != machine().store.end() && values->second.erase(lowerCase(key)) != 0;
}

bool storeDelete(const std::string& section) {
    sim::note("storeDelete", section);
    return machine().store.erase(lowerCase(section)) != 0;
}

namespace sim {

void putSetting(const std::string& section, const std::string& key, const std::string& value) {
    machine().store[lowerCase(section)][lowerCase(key)] = {value, true};
}

std::optional<std::string> setting(const std::string& section, const std::string& key) {
    const StoreValue* found = findValue(section, key);
    if (found == nullptr || !found->isText) return std::nullopt;
    return std::string(found->value.c_str());
}

void putBinarySetting(const std::string& section, const std::string& key) {
    machine().store[lowerCase(section)][lowerCase(key)] = {std::string("\x01\x00\x02", 3), false};
}

}  // namespace sim

}  // namespace platform
