#include "favorites/ApplyFavorites.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/sim/Sim.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;
using favorites::ApplyFavorites;
using favorites::ApplyResult;
using favorites::Favorite;

namespace {

const std::string kGame = "C:\\Games\\Chess.exe";
constexpr std::uint32_t kNormal = 0x20, kHigh = 0x80, kAbove = 0x8000;

// A machine with processes, and what one run of the favourites does to it.
struct Bench {
    Bench() { sim::reset(); }

    static platform::ProcessId Start(const std::string& path, std::uint32_t deniedRights = 0) {
        sim::Process process;
        process.path = path;
        process.deniedRights = deniedRights;
        return sim::addProcess(process);
    }
    ApplyResult Apply(const std::vector<Favorite>& favorites) {
        snapshot.Take();
        sim::clearLog();
        return ApplyFavorites(favorites, snapshot, access);
    }
    static std::uint32_t Mask(platform::ProcessId id) { return sim::findProcess(id)->affinityMask; }
    static std::uint32_t Class(platform::ProcessId id) { return sim::findProcess(id)->priorityClass; }
    static std::ptrdiff_t Asked(std::uint32_t access) {
        const auto asked = sim::accessesAsked();
        return std::count(asked.begin(), asked.end(), access);
    }

    process::ErrorCounters errors;
    process::ProcessAccess access{errors};
    process::ProcessSnapshot snapshot;
};

}  // namespace

TEST_CASE("every instance of a favourite gets its affinity and priority, nothing else does") {
    Bench bench;
    const auto first = Bench::Start(kGame);
    const auto other = Bench::Start("C:\\Copy\\Chess.exe");
    const auto second = Bench::Start("c:\\GAMES\\chess.EXE");
    const ApplyResult result = bench.Apply({{"Chess.exe", "13", "High", "  c:\\games\\CHESS.exe ", ""}});
    CHECK(result.changed);
    CHECK_FALSE(result.Failed());
    for (const auto id : {first, second}) {
        CHECK(Bench::Mask(id) == 0b1010);
        CHECK(Bench::Class(id) == kHigh);
    }
    CHECK(Bench::Mask(other) == 0xF);
    CHECK(Bench::Class(other) == kNormal);
    CHECK(sim::openHandles("process") == 0);
}

TEST_CASE("only what differs is set") {
    struct Case {
        const char* affinity;
        const char* priority;
        bool changed;
        int affinitySets, prioritySets;
    };
    const Case cases[] = {
        {"0123", "Normal", false, 0, 0}, {"0123", "Default", false, 0, 0}, {"01", "Default", true, 1, 0},
        {"0123", "High", true, 0, 1},    {"0", "Low", true, 1, 1},
    };
    for (const Case& each : cases) {
        CAPTURE(each.affinity);
        CAPTURE(each.priority);
        Bench bench;
        const auto id = Bench::Start(kGame);
        const std::vector<Favorite> list = {{"Chess.exe", each.affinity, each.priority, kGame, "x"}};
        CHECK(bench.Apply(list).changed == each.changed);
        CHECK(Bench::Asked(process::rights::kAll) == each.affinitySets);
        CHECK(Bench::Asked(process::rights::kSetInformation) == each.prioritySets);
        if (each.prioritySets == 0) CHECK(Bench::Class(id) == kNormal);
        CHECK_FALSE(bench.Apply(list).changed);  // all is as it should be now
    }
}

TEST_CASE("the entries of idle and system process, and processes without a path, are never matched") {
    Bench bench;
    const auto hidden = Bench::Start(kGame, process::rights::kQueryAndRead);
    sim::findProcess(4)->path = kGame;
    const auto before = Bench::Mask(4);
    CHECK_FALSE(bench.Apply({{"Chess.exe", "0", "High", kGame, ""}, {"", "0", "High", "", ""}}).changed);
    CHECK(Bench::Mask(hidden) == 0xF);
    CHECK(Bench::Mask(4) == before);
}

TEST_CASE("failed sets are counted, run by run, and reported once") {
    Bench bench;
    const auto id = Bench::Start(kGame, process::rights::kSetInformation & ~0x410U);
    bench.errors.CountAffinity();  // left by somebody else

    SUBCASE("priority denied") {
        const ApplyResult result = bench.Apply({{"Chess.exe", "0123", "Above", kGame, ""}});
        CHECK(result.changed);  // it was tried
        CHECK(result.Failed());
        CHECK(result.affinityErrors == 0);
        CHECK(result.priorityErrors == 1);
        CHECK(favorites::ApplySummary(result) ==
              "Unable to make changes to some favorites.\r\nAffiniy Errors: 0\r\nPriority Errors :1");
        sim::findProcess(id)->deniedRights = 0;
        const ApplyResult again = bench.Apply({{"Chess.exe", "0123", "Above", kGame, ""}});
        CHECK_FALSE(again.Failed());
        CHECK(Bench::Class(id) == kAbove);
    }
    SUBCASE("both denied, the next favourite is still set") {
        const auto other = Bench::Start("C:\\b.exe");
        const ApplyResult result =
            bench.Apply({{"Chess.exe", "01", "Above", kGame, ""}, {"b.exe", "2", "High", "C:\\b.exe", ""}});
        CHECK(result.affinityErrors == 1);
        CHECK(result.priorityErrors == 1);
        CHECK(Bench::Mask(other) == 0b100);
        CHECK(Bench::Class(other) == kHigh);
    }
    SUBCASE("settings that no processor or class bears") {
        sim::findProcess(id)->deniedRights = 0;
        const ApplyResult result = bench.Apply({{"Chess.exe", "9", "normal", kGame, ""}});
        CHECK(result.affinityErrors == 1);
        CHECK(result.priorityErrors == 1);
        CHECK(Bench::Mask(id) == 0xF);
    }
    SUBCASE("no processor at all asks for nothing") {
        sim::findProcess(id)->deniedRights = 0;
        const ApplyResult result = bench.Apply({{"Chess.exe", "", "Default", kGame, ""}});
        CHECK_FALSE(result.changed);
        CHECK_FALSE(result.Failed());
    }
    SUBCASE("nothing to do") {
        CHECK_FALSE(bench.Apply({}).Failed());
        CHECK(bench.errors.Affinity() == 0);
    }
}

TEST_CASE("a run opens each process once for its path, and none without favourites") {
    Bench bench;
    for (int i = 0; i < 10; ++i) Bench::Start("C:\\p" + std::to_string(i) + ".exe");
    bench.snapshot.Take();
    const int listed = bench.snapshot.Count() - 2;
    const std::vector<Favorite> favorites(50, {"a.exe", "0", "High", "C:\\not running.exe", ""});
    CHECK_FALSE(bench.Apply(favorites).changed);
    CHECK(sim::accessesAsked().size() == static_cast<std::size_t>(listed));
    CHECK(Bench::Asked(process::rights::kQueryAndRead) == listed);
    bench.Apply({});
    CHECK(sim::accessesAsked().empty());
}

TEST_CASE("a process belongs to a favourite by its whole path") {
    sim::reset();
    const Favorite favorite{"Chess.exe", "0", "High", " C:\\Games\\CHESS.exe  ", ""};
    const Favorite nameless{"", "", "", "", ""};
    CHECK(favorites::SelectFavMatch("c:\\games\\chess.EXE", favorite));
    CHECK(favorites::SelectFavMatch(kGame, std::vector<Favorite>{nameless, favorite}));
    CHECK_FALSE(favorites::SelectFavMatch("D:\\Games\\Chess.exe", favorite));
    CHECK_FALSE(favorites::SelectFavMatch("Chess.exe", favorite));
    CHECK_FALSE(favorites::SelectFavMatch("", nameless));
    CHECK_FALSE(favorites::SelectFavMatch(kGame, std::vector<Favorite>{nameless}));
}
