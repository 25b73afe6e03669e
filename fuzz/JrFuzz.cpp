// Kestrum Jr.: any command line is understood or refused; whatever becomes of its profiles and of the machine,
// nothing is written, and nothing is left open at the end.
#include <string>
#include <vector>

#include "Bytes.h"
#include "Fuzz.h"
#include "MachineSteps.h"
#include "favorites/JrHandOff.h"
#include "favorites/Profiles.h"
#include "jr/JrForm.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;

namespace {

constexpr int kMostEnforce = 32767;  // seconds
constexpr int kLongestLine = 48;
constexpr int kMostSteps = 200;

void RequireTaskSettles(std::string_view arguments) {
    const auto task = favorites::ParseJrTask(arguments);
    if (!task) return;
    fuzz::Require(task->profile >= 1 && task->profile <= favorites::kProfileCount);
    fuzz::Require(task->enforceSeconds >= 0 && task->enforceSeconds <= kMostEnforce);
    fuzz::Require(favorites::ParseJrTask(favorites::FormatJrTask(*task)) == task);
}

void AcknowledgeMessages() {
    sim::whenModal([](platform::Window&) {
        AcknowledgeMessages();
        sim::pressKey(platform::key::kEnter);
    });
}

// The first items of the menu are what it does, the last but one the main program, the last one its end.
void ChooseInMenu(int item) {
    if (sim::trayIcons().empty()) return;
    sim::whenMenu([item](const std::vector<platform::MenuItem>& items) {
        return items[static_cast<std::size_t>(item) % items.size()].id;
    });
    sim::trayEvent(item % 2 == 0 ? platform::TrayEvent::RightUp : platform::TrayEvent::LeftUp);
}

void Do(const fuzz::Step& step) {
    switch (step.kind % 4) {
        case 0:
            sim::run(static_cast<std::uint32_t>(step.b) * 20);
            break;
        case 1:
            ChooseInMenu(step.a);
            break;
        case 2:
            if (step.a % 8 == 0) sim::restartShell();
            break;
        default:
            fuzz::ChangeMachine({step.kind / 4, step.a, step.b, step.c}, fuzz::When::Running);
            break;
    }
}

void RequireNothingWritten() {
    for (const std::string& entry : sim::log()) {
        for (const char* written : {"writeNewFile", "moveFileOver", "createFolders", "store"}) {
            fuzz::Require(!entry.starts_with(written));
        }
    }
}

void Run(const std::string& arguments, fuzz::Bytes& bytes) {
    jr::JrForm form;
    const bool started = form.Start(arguments);
    fuzz::Require(started == favorites::ParseJrTask(arguments).has_value());
    if (!started) return;
    for (int steps = 0; steps < kMostSteps && !bytes.Empty() && form.exists(); ++steps) {
        Do(fuzz::NextStep(bytes));
        fuzz::Require(sim::openHandles("process") == 0 && sim::openHandles("token") == 0);
    }
    if (form.exists()) sim::endSession();
    fuzz::Require(!form.exists() && sim::quitCode() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    fuzz::FurnishMachine();
    AcknowledgeMessages();
    const std::string arguments(bytes.Text(bytes.Below(kLongestLine)));
    RequireTaskSettles(arguments);
    for (int before = bytes.Below(8); before > 0; --before) {
        fuzz::ChangeMachine(fuzz::NextStep(bytes), fuzz::When::BeforeStart);
    }
    Run(arguments, bytes);
    fuzz::Require(sim::openHandles() == 0);
    RequireNothingWritten();
    return 0;
}
