#include "favorites/ApplyFavorites.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/sim/Sim.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;
using favorites::ApplyResult;
using favorites::Favorite;

namespace {

const std::string kGame = "C:\\Games\\Chess.exe";
constexpr std::uint32_t kNormal = 0x20, kHigh = 0x80, kAbove = 0x8000;

// A favourite of the game with these settings.
Favorite Game(const std::string& affinity, const std::string& priority) {
    return {"Chess.exe", affinity, priority, kGame, ""};
}

// A machine with processes, and what one run of the favourites does to it.
struct Bench {
    static platform::ProcessId Start(const std::string& path, std::uint32_t deniedRights = 0) {
        sim::Process process;
        process.path = path;
        process.deniedRights = deniedRights;
        return sim::addProcess(process);
    }
    ApplyResult Apply(const std::vector<Favorite>& favorites) {
        snapshot.Take();
        sim::clearLog();
        return favorites::ApplyFavorites(favorites, snapshot, access);
    }
    static std::uint32_t Mask(platform::ProcessId id) { return sim::findProcess(id)->affinityMask; }
    static std::uint32_t Class(platform::ProcessId id) { return sim::findProcess(id)->priorityClass; }
    static std::ptrdiff_t Asked(std::uint32_t access) {
        const auto asked = sim::accessesAsked();
        return std::count(asked.begin(), asked.end(), access);
    }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    process::ErrorCounters errors;
    process::ProcessAccess access{errors};
    process::ProcessSnapshot snapshot;
};

}  // namespace

TEST_CASE_FIXTURE(Bench, "every instance of a favourite gets its affinity and priority, nothing else does") {
    const auto first = Start(kGame);
    const auto second = Start("c:\\GAMES\\chess.EXE");
    const auto other = Start("C:\\Copy\\Chess.exe");
    const auto hidden = Start(kGame, process::rights::kQueryAndRead);
    sim::findProcess(4)->path = kGame;
    const Favorite nameless{"", "0", "High", "", ""};
    const std::vector<Favorite> list = {nameless, {"Chess.exe", "13", "High", "  c:\\games\\CHESS.exe ", ""}};
    const ApplyResult result = Apply(list);
    CHECK(result.changed);
    CHECK_FALSE(result.Failed());
    for (const auto id : {first, second}) {
        CHECK(Mask(id) == 0b1010);
        CHECK(Class(id) == kHigh);
    }
    // Another folder, no path that could be read, the system process.
    for (const auto id : {other, hidden, platform::ProcessId{4}}) {
        CHECK(Mask(id) == 0xF);
        CHECK(Class(id) == kNormal);
    }
    CHECK(sim::openHandles("process") == 0);
    CHECK(favorites::SelectFavMatch("c:\\GAMES\\chess.EXE", list));
    for (const char* path : {"C:\\Copy\\Chess.exe", "Chess.exe", ""}) {
        CHECK_FALSE(favorites::SelectFavMatch(path, list));
    }
}

TEST_CASE("only what differs is set") {
    const struct {
        const char* affinity;
        const char* priority;
        int affinitySets, prioritySets;
    } cases[] = {
        {"0123", "Normal", 0, 0}, {"0123", "Default", 0, 0}, {"", "Default", 0, 0},
        {"01", "Default", 1, 0},  {"0123", "High", 0, 1},    {"0", "Low", 1, 1},
    };
    for (const auto& each : cases) {
        CAPTURE(each.affinity);
        CAPTURE(each.priority);
        Bench bench;
        const auto id = Bench::Start(kGame);
        const std::vector<Favorite> list = {Game(each.affinity, each.priority)};
        CHECK(bench.Apply(list).changed == (each.affinitySets + each.prioritySets > 0));
        CHECK(Bench::Asked(process::rights::kAll) == each.affinitySets);
        CHECK(Bench::Asked(process::rights::kSetInformation) == each.prioritySets);
        if (each.prioritySets == 0) CHECK(Bench::Class(id) == kNormal);
        CHECK_FALSE(bench.Apply(list).changed);  // all is as it should be now
    }
}

TEST_CASE_FIXTURE(Bench, "failed sets are counted, run by run, and stop nothing") {
    const auto id = Start(kGame, process::rights::kSetInformation & ~0x410U);
    const auto other = Start("C:\\b.exe");
    errors.CountAffinity();  // left by somebody else
    ApplyResult result;
    SUBCASE("denied, and the next favourite is still set") {
        result = Apply({Game("01", "Above"), {"b.exe", "2", "High", "C:\\b.exe", ""}});
        CHECK(Mask(other) == 0b100);
        CHECK(Class(other) == kHigh);
    }
    SUBCASE("settings that no processor or class bears") {
        sim::findProcess(id)->deniedRights = 0;
        result = Apply({Game("9", "normal")});
        CHECK(Mask(id) == 0xF);
    }
    CHECK(result.changed);  // it was tried
    CHECK(favorites::ApplySummary(result) ==
          "Unable to make changes to some favorites.\r\nAffiniy Errors: 1\r\nPriority Errors :1");
    sim::findProcess(id)->deniedRights = 0;
    CHECK_FALSE(Apply({Game("0123", "Above")}).Failed());
    CHECK(Class(id) == kAbove);
}

TEST_CASE_FIXTURE(Bench, "a run opens each process once for its path, and none without favourites") {
    for (int i = 0; i < 10; ++i) Start("C:\\p" + std::to_string(i) + ".exe");
    CHECK_FALSE(Apply(std::vector<Favorite>(50, {"a.exe", "0", "High", "C:\\not running.exe", ""})).changed);
    const int listed = snapshot.Count() - 2;
    CHECK(sim::accessesAsked().size() == static_cast<std::size_t>(listed));
    CHECK(Asked(process::rights::kQueryAndRead) == listed);
    errors.CountAffinity();
    CHECK_FALSE(Apply({}).Failed());
    CHECK(errors.Affinity() == 0);
    CHECK(sim::accessesAsked().empty());
}
