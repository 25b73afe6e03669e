// Named mutexes of the simulated machine, and windows as another copy of the program reaches them: by number.
#include "platform/Instance.h"

#include "platform/CodePage.h"
#include "platform/OtherWindows.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::findRecord;
using sim::machine;
using sim::WindowPointer;

void MutexTag::close(std::uintptr_t raw) noexcept {
    const std::string* open = machine().mutexHandles.find(raw);
    if (open == nullptr) return;
    const std::string name = *open;
    sim::note("closeMutex", name);
    machine().mutexHandles.remove(raw);
    sim::NamedMutex& mutex = machine().mutexes[name];
    if (--mutex.handles == 0 && !mutex.heldElsewhere) machine().mutexes.erase(name);
}

CreatedMutex createMutex(const std::string& name) {
    sim::note("createMutex", name);
    const auto [found, fresh] = machine().mutexes.try_emplace(name);
    if (found->second.deniesAccess) return {};
    ++found->second.handles;
    return {MutexHandle(machine().mutexHandles.add(name)), !fresh};
}

void releaseMutex(const MutexHandle& mutex) {
    const std::string* name = machine().mutexHandles.find(mutex.raw());
    if (name != nullptr) sim::note("releaseMutex", *name);
}

void acceptFromUnelevated(const Window& window, Request request) {
    if (const WindowPointer record = findRecord(window.native())) record->acceptedFromUnelevated.insert(request);
}

// Names of properties compare without regard to case, as the system keeps them as atoms.
bool setWindowProperty(const Window& window, const std::string& name, std::uintptr_t value) {
    const WindowPointer record = findRecord(window.native());
    if (!record) return false;
    sim::note("setProperty", name);
    record->properties[lowerCase(name)] = value;
    return true;
}

void removeWindowProperty(const Window& window, const std::string& name) {
    const WindowPointer record = findRecord(window.native());
    if (record && record->properties.erase(lowerCase(name)) != 0) sim::note("removeProperty", name);
}

std::uintptr_t windowProperty(std::uintptr_t window, const std::string& name) {
    const WindowPointer record = findRecord(window);
    if (!record) return 0;
    const auto found = record->properties.find(lowerCase(name));
    return found == record->properties.end() ? 0 : found->second;
}

std::vector<std::uintptr_t> topLevelWindowNumbers() {
    std::vector<std::uintptr_t> numbers;
    const auto& others = machine().desktop.otherWindows;
    for (auto at = others.rbegin(); at != others.rend(); ++at) numbers.push_back(at->first);
    for (const WindowPointer& window : sim::topLevelsFromTop()) numbers.push_back(window->native);
    return numbers;
}

std::uintptr_t parentWindow(std::uintptr_t window) {
    const std::optional<WindowFacts> facts = windowFacts(window);
    return facts ? facts->parent : 0;
}

void showNormalAsync(std::uintptr_t window) {
    const WindowPointer record = findRecord(window);
    if (!record || machine().elevated) return;
    sim::note("showNormalAsync", record->title);
    machine().desktop.showRequests.push_back(window);
}

void bringWindowToFront(std::uintptr_t window) {
    const WindowPointer record = findRecord(window);
    if (!record) return;
    sim::note("bringToFront", record->title);
    if (record->shown) sim::activate(record);
}

void sendText(std::uintptr_t window, const std::string& text) {
    const WindowPointer record = findRecord(window);
    if (!record || !sim::accepts(*record, Request::Text)) return;
    sim::note("sendText", text);
    sim::setTitle(record, text);
}

bool sim::accepts(const WindowRecord& record, Request request) {
    return !machine().elevated || record.acceptedFromUnelevated.contains(request);
}

void sim::holdMutex(const std::string& name, Others others) {
    NamedMutex& mutex = machine().mutexes[name];
    mutex.heldElsewhere = true;
    mutex.deniesAccess = others == Others::Denied;
}

void sim::setElevated(bool elevated) {
    machine().elevated = elevated;
}

}  // namespace platform
