#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "process/ApplyChanges.h"
#include "process/ProcessAccess.h"
#include "process/TerminateProcesses.h"

namespace {

namespace sim = platform::sim;

constexpr std::uint32_t kEverything = 0x1F0FFF;

platform::ProcessId Add(const std::string& name, std::uint32_t denied = 0, platform::ProcessId id = 0) {
    sim::advance(1000);  // no two processes start at once
    sim::Process process;
    process.id = id;
    process.path = "C:\\Apps\\" + name;
    process.deniedRights = denied;
    return sim::addProcess(process);
}

}  // namespace

TEST_CASE("Applying changes sets what differs from the columns, and counts what fails") {
    sim::reset();
    process::ErrorCounters errors;
    process::ProcessAccess access(errors);
    errors.CountPriority();  // left by somebody else
    const platform::ProcessId app = Add("App.exe");
    const platform::ProcessId other = Add("Other.exe");
    const platform::ProcessId denied = Add("Denied.exe", kEverything);
    std::function<bool(const std::string&)> leaveAlone;

    SUBCASE("affinity and priority one by one") {
        const auto result =
            process::ApplyChanges({{app, "0123", "Low"}, {other, "02", "Normal"}, {denied, "02", "Low"}},
                                  {"02", "Low"}, leaveAlone, access);
        CHECK_FALSE(result.Failed());  // nothing was asked of the denied one
        CHECK(sim::findProcess(app)->affinityMask == 5);
        CHECK(sim::findProcess(app)->priorityClass == 0x20);  // its column said otherwise
        CHECK(sim::findProcess(other)->affinityMask == 0xF);
        CHECK(sim::findProcess(other)->priorityClass == 0x40);
    }
    SUBCASE("no priority chosen, then no processor") {
        CHECK_FALSE(process::ApplyChanges({{app, "1", "Low"}}, {"1", "Default"}, leaveAlone, access).Failed());
        CHECK_FALSE(process::ApplyChanges({{denied, "1", ""}}, {"", "High"}, leaveAlone, access).Failed());
    }
    SUBCASE("favourites are Auto Set's affair") {
        const platform::ProcessId noPath = Add("NoPath.exe", 0x10);
        leaveAlone = [](const std::string& path) { return path.empty() || path == "c:\\apps\\app.exe"; };
        const auto result = process::ApplyChanges({{app, "0123", "Normal"}, {noPath, "", "Normal"}}, {"3", "High"},
                                                  leaveAlone, access);
        CHECK(sim::findProcess(app)->affinityMask == 0xF);
        CHECK(sim::findProcess(app)->priorityClass == 0x20);
        CHECK(sim::findProcess(noPath)->priorityClass == 0x80);
        CHECK(result.affinityErrors == 1);
    }
    SUBCASE("failures stop nothing") {
        sim::endProcess(other);
        const auto result =
            process::ApplyChanges({{denied, "", ""}, {other, "0123", "High"}, {app, "0123", "Normal"}},
                                  {"0", "High"}, leaveAlone, access);
        CHECK(sim::findProcess(app)->affinityMask == 1);
        CHECK(result.Summary() ==
              "Unable to make changes to some files.\r\nAffiniy Errors: 2\r\nPriority Errors: 1");
    }
}

TEST_CASE("Only what the question was about is ended") {
    sim::reset();
    process::ErrorCounters errors;
    const process::ProcessAccess access(errors);
    const platform::ProcessId early = Add("Early.exe");
    const platform::ProcessId secret = Add("Secret.exe", 0x400);  // can be ended, but not looked at
    const platform::ProcessId stubborn = Add("Stubborn.exe", kEverything);
    const platform::ProcessId late = Add("Late.exe");
    std::vector<process::Victim> victims;
    for (const platform::ProcessId id : {early, platform::currentProcessId(), secret, stubborn, late})
        victims.push_back(process::MakeVictim(id, sim::findProcess(id)->path));

    SUBCASE("this program stays, and the first failure is the last attempt") {
        CHECK(process::TerminateAll(victims, access) == "C:\\Apps\\Stubborn.exe");
        CHECK_FALSE(sim::findProcess(early));
        CHECK_FALSE(sim::findProcess(secret));
        CHECK(sim::findProcess(platform::currentProcessId()));
        CHECK(sim::findProcess(late));
    }
    SUBCASE("ids that went to others while the question stood, and processes that just went") {
        Add("Another.exe", 0, early);
        Add("Third.exe", 0, secret);
        sim::endProcess(stubborn);
        CHECK_FALSE(process::TerminateAll(victims, access));
        CHECK(sim::findProcess(early));
        CHECK(sim::findProcess(secret));
        CHECK_FALSE(sim::findProcess(late));
        CHECK_FALSE(process::TerminateAll(victims, access));  // gone, though it could be looked at
    }
    CHECK(sim::openHandles() == 0);
}
