#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "process/ApplyChanges.h"
#include "process/ProcessAccess.h"
#include "process/TerminateProcesses.h"

namespace {

namespace sim = platform::sim;
using platform::ProcessId;

constexpr std::uint32_t kEverything = 0x1F0FFF;

struct Bench {
    ~Bench() { CHECK(sim::openHandles() == 0); }

    static ProcessId Add(const std::string& name, std::uint32_t denied = 0, ProcessId id = 0) {
        sim::advance(1000);  // no two processes start at once
        sim::Process process;
        process.id = id;
        process.path = "C:\\Apps\\" + name;
        process.deniedRights = denied;
        return sim::addProcess(process);
    }
    process::ChangeResult Apply(const std::vector<process::TargetProcess>& targets,
                                const process::WantedChange& wanted) {
        return process::ApplyChanges(targets, wanted, leaveAlone, access);
    }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    process::ErrorCounters errors;
    process::ProcessAccess access{errors};
    std::function<bool(const std::string&)> leaveAlone;
};

}  // namespace

TEST_CASE_FIXTURE(Bench, "Applying changes sets what differs from the columns, and counts what fails") {
    errors.CountPriority();  // left by somebody else
    const ProcessId app = Add("App.exe");
    const ProcessId other = Add("Other.exe");
    const ProcessId noPath = Add("NoPath.exe", 0x10);
    const ProcessId denied = Add("Denied.exe", kEverything);
    const auto quiet = Apply({{app, "0123", "Low"}, {other, "02", "Normal"}, {denied, "02", "Low"}}, {"02", "Low"});
    CHECK_FALSE(quiet.Failed());  // nothing was asked of the denied one
    CHECK(sim::findProcess(app)->affinityMask == 5);
    CHECK(sim::findProcess(app)->priorityClass == 0x20);  // its column said otherwise
    CHECK(sim::findProcess(other)->affinityMask == 0xF);
    CHECK(sim::findProcess(other)->priorityClass == 0x40);
    CHECK_FALSE(Apply({{denied, "1", "Low"}}, {"1", "Default"}).Failed());  // no priority chosen
    CHECK_FALSE(Apply({{denied, "1", ""}}, {"", "High"}).Failed());         // no processor

    // Favourites are Auto Set's affair; what has no path is never one.
    leaveAlone = [](const std::string& path) { return path.empty() || path == "c:\\apps\\app.exe"; };
    const auto result = Apply({{app, "0123", "Normal"}, {noPath, "", "Normal"}, {denied, "", ""}}, {"3", "High"});
    CHECK(sim::findProcess(app)->affinityMask == 5);
    CHECK(sim::findProcess(app)->priorityClass == 0x20);
    CHECK(sim::findProcess(noPath)->priorityClass == 0x80);
    CHECK(result.Summary() == "Unable to make changes to some files.\r\nAffiniy Errors: 2\r\nPriority Errors: 1");
}

TEST_CASE_FIXTURE(Bench, "Only what the question was about is ended") {
    const ProcessId early = Add("Early.exe");
    const ProcessId secret = Add("Secret.exe", 0x400);  // can be ended, but not looked at
    const ProcessId stubborn = Add("Stubborn.exe", kEverything);
    const ProcessId late = Add("Late.exe");
    const auto runs = [](ProcessId id) { return sim::findProcess(id) != nullptr; };
    std::vector<process::Victim> victims;
    for (const ProcessId id : {early, platform::currentProcessId(), secret, stubborn, late}) {
        victims.push_back(process::MakeVictim(id, sim::findProcess(id)->path));
    }
    SUBCASE("this program stays, and the first failure is the last attempt") {
        CHECK(process::TerminateAll(victims, access) == "C:\\Apps\\Stubborn.exe");
        CHECK_FALSE(runs(early));
        CHECK_FALSE(runs(secret));
        CHECK(runs(platform::currentProcessId()));
        CHECK(runs(late));
    }
    SUBCASE("ids that went to others while the question stood, and processes that just went") {
        Add("Another.exe", 0, early);
        Add("Third.exe", 0, secret);
        sim::endProcess(stubborn);
        CHECK_FALSE(process::TerminateAll(victims, access));
        CHECK(runs(early));
        CHECK(runs(secret));
        CHECK_FALSE(runs(late));
        CHECK_FALSE(process::TerminateAll(victims, access));  // gone, though it could be looked at
    }
}
