// The whole program on the simulated machine: whatever users, files and other programs do, it goes on, ends when it
// is told to, leaves nothing open, and starts again.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Fuzz.h"
#include "MachineSteps.h"
#include "UserSteps.h"
#include "app/Form1.h"
#include "platform/sim/Sim.h"
#include "platform/sim/SimMachine.h"
#include "settings/SettingKeys.h"

namespace sim = platform::sim;
using app::Form1;

namespace {

constexpr int kMostSteps = 500;
constexpr int kMostTimers = 16;
constexpr int kMostRows = kMostSteps + 100;  // a step starts one process at most

bool Ended(const Form1& form) {
    return !form.exists() || sim::quitCode() != -1;
}

void RequireSaneList(const controls::UcList1& list) {
    fuzz::Require(list.ListCount() >= 0 && list.ListCount() <= kMostRows);
    fuzz::Require(list.TopIndex() >= 0 && list.TopIndex() <= list.ListCount());
    for (const int row : list.SelectedRows()) fuzz::Require(row >= 0 && row < list.ListCount());
}

// The timers of process list, meter and total graph, which nothing may leave stopped.
void RequireUpToDate(Form1& form) {
    static_assert(app::kRefreshMilliseconds == app::kTrayMilliseconds);
    static_assert(app::kRefreshMilliseconds == graphs::kMeterMilliseconds);
    const auto& timers = sim::machine().timers;
    const auto running = std::count_if(timers.begin(), timers.end(), [](const sim::TimerRecord& timer) {
        return timer.window == 0 && timer.period == app::kRefreshMilliseconds;
    });
    fuzz::Require(running >= (form.TotalGraph().exists() ? 3 : 2));
}

void RequireSane(Form1& form) {
    fuzz::Require(sim::openHandles("process") == 0 && sim::openHandles("token") == 0);
    fuzz::Require(sim::openHandles("timer") <= kMostTimers);
    if (Ended(form)) return;
    RequireUpToDate(form);
    RequireSaneList(form.ProcessList());
    RequireSaneList(form.FavoritesListControl());
}

// As log-off or the menu's Exit does it.
void End(Form1& form) {
    if (!Ended(form)) sim::endSession();
    sim::run(1000);
    fuzz::Require(!form.exists() && sim::quitCode() == 0);
}

// What is there of the favourites when the program has ended; nullopt when they need not be the same at the next
// start: it did not run, all was forgotten, or files and settings were not left to the program.
using Favorites = std::optional<std::vector<std::string>>;

Favorites Use(Form1& form, fuzz::Bytes& bytes) {
    fuzz::User user(form, bytes);
    user.Attend();
    if (form.Start() != Form1::StartResult::Running) return std::nullopt;
    for (int steps = 0; steps < kMostSteps && !bytes.Empty() && !Ended(form); ++steps) {
        user.Do(fuzz::NextStep(bytes));
        RequireSane(form);
    }
    End(form);
    const bool saved = sim::setting(settings::kSection, "FavColSort").has_value();
    if (user.Meddled() || !saved) return std::nullopt;
    const controls::UcList1& list = form.FavoritesListControl();
    std::vector<std::string> rows;
    for (int row = 0; row < list.ListCount(); ++row) {
        std::string& text = rows.emplace_back();
        for (int column = 0; column < list.ColumnMaxSeen(); ++column) text += list.CellText(row, column) + '\t';
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

Favorites RunOnce(fuzz::Bytes& bytes) {
    Favorites favorites;
    {
        Form1 form;
        favorites = Use(form, bytes);
    }
    fuzz::Require(sim::openHandles() == 0);
    return favorites;
}

void Print(const char* when, const std::vector<std::string>& rows) {
    for (const std::string& row : rows) std::fprintf(stderr, "%s: %s\n", when, row.c_str());
}

void RequireSame(const std::vector<std::string>& left, const std::vector<std::string>& found) {
    if (left == found) return;
    Print("left", left);
    Print("found", found);
    fuzz::Require(false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::FurnishMachine();
    fuzz::Bytes bytes(data, size);
    bool failing = false;
    for (int before = bytes.Below(16); before > 0; --before) {
        const fuzz::Step step = fuzz::NextStep(bytes);
        fuzz::ChangeMachine(step, fuzz::When::BeforeStart);
        failing = failing || fuzz::Meddles(step);
    }
    const Favorites left = RunOnce(bytes);
    // Whatever it left behind, the next start comes to terms with it, and finds the favourites as they were.
    fuzz::MendMachine();
    sim::startAgain();
    fuzz::Bytes nothing(data, 0);
    const Favorites found = RunOnce(nothing);
    if (!failing && left && found) RequireSame(*left, *found);
    return 0;
}
