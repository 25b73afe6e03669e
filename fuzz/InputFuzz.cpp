// The whole program on the simulated machine: whatever users, files and other programs do, it goes on, ends when it
// is told to, leaves nothing open, and starts again.
#include "Bytes.h"
#include "Fuzz.h"
#include "MachineSteps.h"
#include "UserSteps.h"
#include "app/Form1.h"
#include "favorites/ProfileFile.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using app::Form1;

namespace {

constexpr int kMostSteps = 500;
constexpr int kMostTimers = 16;
constexpr int kMostRows = 256;

bool Ended(const Form1& form) {
    return !form.exists() || sim::quitCode() != -1;
}

void RequireSaneList(const controls::UcList1& list) {
    fuzz::Require(list.ListCount() >= 0 && list.ListCount() <= kMostRows);
    fuzz::Require(list.TopIndex() >= 0 && list.TopIndex() <= list.ListCount());
    for (const int row : list.SelectedRows()) fuzz::Require(row >= 0 && row < list.ListCount());
}

void RequireSane(Form1& form) {
    fuzz::Require(sim::openHandles("process") == 0 && sim::openHandles("token") == 0);
    fuzz::Require(sim::openHandles("timer") <= kMostTimers);
    if (Ended(form)) return;
    RequireSaneList(form.ProcessList());
    RequireSaneList(form.FavoritesListControl());
}

// As log-off or the menu's Exit does it.
void End(Form1& form) {
    if (!Ended(form)) sim::endSession();
    sim::run(1000);
    fuzz::Require(!form.exists() && sim::quitCode() == 0);
}

void Use(Form1& form, fuzz::Bytes& bytes) {
    fuzz::User user(form, bytes);
    user.Attend();
    if (form.Start() == Form1::StartResult::Running) {
        for (int steps = 0; steps < kMostSteps && !bytes.Empty() && !Ended(form); ++steps) {
            user.Do(fuzz::NextStep(bytes));
            RequireSane(form);
        }
        End(form);
    }
}

void RunOnce(fuzz::Bytes& bytes) {
    {
        Form1 form;
        Use(form, bytes);
    }
    fuzz::Require(sim::openHandles() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FurnishMachine();
    fuzz::Bytes bytes(data, size);
    for (int before = bytes.Below(16); before > 0; --before) {
        fuzz::ChangeMachine(fuzz::NextStep(bytes), fuzz::When::BeforeStart);
    }
    RunOnce(bytes);
    // Whatever it left behind, the next start comes to terms with it.
    fuzz::MendMachine();
    sim::startAgain();
    fuzz::Bytes nothing(data, 0);
    RunOnce(nothing);
    return 0;
}
