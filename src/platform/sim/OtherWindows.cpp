// What any window of the simulated desktop says of itself: the program's own, and those that tests add for other
// programs.
#include "platform/OtherWindows.h"

#include <algorithm>

#include "platform/CodePage.h"
#include "platform/Instance.h"
#include "platform/Process.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;
using sim::WindowPointer;

namespace {

constexpr std::size_t kLongestCaption = 1023;
constexpr std::uint32_t kVisible = 0x1000'0000;
constexpr std::uint32_t kDisabled = 0x0800'0000;

// The styles of the system for such a window.
std::uint32_t styleOf(WindowKind kind) {
    switch (kind) {
        case WindowKind::Main:
            return 0x00CF'0000;
        case WindowKind::Dialog:
            return 0x80C8'0000;
        case WindowKind::Popup:
            return 0x8080'0000;
        case WindowKind::Gadget:
            return 0x8000'0000;
        case WindowKind::Child:
            break;
    }
    return 0x4000'0000;
}

WindowFacts factsOf(const sim::WindowRecord& record) {
    WindowFacts facts;
    facts.parent = record.kind == WindowKind::Main ? 0 : record.parent;  // which leaves out owners of such windows
    facts.owner = record.parent;
    facts.visible = sim::isVisible(record);
    facts.style = styleOf(record.kind) | (record.shown ? kVisible : 0) | (sim::isEnabled(record) ? 0 : kDisabled);
    facts.caption = record.title;
    facts.className = record.className;
    facts.process = currentProcessId();
    return facts;
}

}  // namespace

std::optional<WindowFacts> windowFacts(std::uintptr_t window) {
    std::optional<WindowFacts> facts;
    const auto& others = machine().desktop.otherWindows;
    if (const WindowPointer record = sim::findRecord(window)) {
        facts = factsOf(*record);
    } else if (const auto found = others.find(window); found != others.end()) {
        facts = found->second;
    }
    if (facts) facts->caption.resize(std::min(facts->caption.size(), kLongestCaption));
    return facts;
}

std::uintptr_t findWindow(const std::string& className, const std::string& caption) {
    for (const std::uintptr_t number : topLevelWindowNumbers()) {
        const std::optional<WindowFacts> facts = windowFacts(number);
        const bool sameClass = lowerCase(facts->className) == lowerCase(className);
        if (sameClass && lowerCase(facts->caption) == lowerCase(caption)) return number;
    }
    return 0;
}

void postClose(std::uintptr_t window) {
    sim::note("postClose", std::to_string(window));
    const WindowPointer record = sim::findRecord(window);
    if (record && !sim::accepts(*record, Request::Close)) return;
    machine().desktop.closesPosted.push_back(window);
    machine().desktop.closeRequests.push_back(window);
}

std::vector<std::uintptr_t> sim::closesPosted() {
    return machine().desktop.closesPosted;
}

std::uintptr_t sim::addOtherWindow(const WindowFacts& facts) {
    const std::uintptr_t number = nextSerial();
    machine().desktop.otherWindows.emplace(number, facts);
    return number;
}

}  // namespace platform
