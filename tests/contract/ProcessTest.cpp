#include "platform/Process.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "contract/Machine.h"
#include "platform/CodePage.h"
#include "platform/Machine.h"

using contract::Load;
using contract::Victim;
using contract::waitFor;

namespace {

bool listed(platform::ProcessId id) {
    std::vector<platform::ProcessId> ids;
    return platform::enumerateProcesses(ids) && std::find(ids.begin(), ids.end(), id) != ids.end();
}

// Processor time used so far, in 100-ns units, read after a fresh enumeration as the program does it.
std::uint64_t processorTime(const platform::ProcessHandle& process) {
    std::vector<platform::ProcessId> ids;
    platform::enumerateProcesses(ids);
    const auto times = platform::processTimes(process);
    REQUIRE(times);
    return times->kernel + times->user;
}

}  // namespace

TEST_CASE("processes are listed while they run") {
    contract::freshMachine();
    Victim victim;
    std::vector<platform::ProcessId> ids(5000, 77777);
    REQUIRE(platform::enumerateProcesses(ids));
    REQUIRE(ids.size() > 3);
    CHECK(ids[0] == 0);  // the idle process
    CHECK(ids[1] == 4);  // the system process
    CHECK(std::count(ids.begin(), ids.end(), victim.id()) == 1);
    CHECK(std::count(ids.begin(), ids.end(), platform::currentProcessId()) == 1);
    CHECK(std::count(ids.begin(), ids.end(), 77777u) == 0);

    std::vector<platform::ProcessId> again;
    REQUIRE(platform::enumerateProcesses(again));
    CHECK(again == ids);

    victim.end();
    CHECK(waitFor([&] { return !listed(victim.id()); }));
}

TEST_CASE("a handle allows what its rights say") {
    contract::freshMachine();
    Victim victim;
    const auto open = [&](std::uint32_t access) { return platform::openProcess(victim.id(), access); };

    const auto query = open(0x400);
    REQUIRE(query);
    CHECK(platform::processAffinityMask(query));
    CHECK(platform::priorityClass(query) == 0x20);
    CHECK(platform::processTimes(query));
    CHECK_FALSE(platform::setProcessAffinityMask(query, 1));
    CHECK_FALSE(platform::setPriorityClass(query, 0x40));
    CHECK_FALSE(platform::terminateProcess(query, 0));

    const auto set = open(0x200);
    REQUIRE(set);
    CHECK(platform::setPriorityClass(set, 0x20));
    CHECK(platform::priorityClass(set) == 0);
    CHECK_FALSE(platform::processAffinityMask(set));
    CHECK_FALSE(platform::processTimes(set));
    CHECK_FALSE(platform::workingSetBytes(set));
    CHECK_FALSE(platform::moduleFileName(set));

    const platform::ProcessHandle none;
    CHECK(platform::priorityClass(none) == 0);
    CHECK_FALSE(platform::processTimes(none));
    CHECK_FALSE(platform::setPriorityClass(none, 0x20));
    CHECK(listed(victim.id()));
}

TEST_CASE("what does not run cannot be opened") {
    contract::freshMachine();
    CHECK_FALSE(platform::openProcess(0, 0x400));
    CHECK_FALSE(platform::openProcess(0x7FFFFFF0, 0x400));
    Victim victim;
    victim.end();
    CHECK(waitFor([&] { return !platform::openProcess(victim.id(), 0x400); }));
}

TEST_CASE("affinity masks") {
    contract::freshMachine();
    Victim victim;
    const auto all = platform::openProcess(victim.id(), 0x1F0FFF);
    const auto other = platform::openProcess(victim.id(), 0x410);
    REQUIRE(all);
    REQUIRE(other);
    const int count = platform::processorCount();
    for (int cpu = 0; cpu < std::min(count, 8); ++cpu) {
        CAPTURE(cpu);
        const std::uint32_t mask = 1u << cpu;
        CHECK(platform::setProcessAffinityMask(all, mask));
        CHECK(platform::processAffinityMask(other) == mask);
    }
    const auto before = platform::processAffinityMask(other);
    CHECK_FALSE(platform::setProcessAffinityMask(all, 0));
    if (count < 32) CHECK_FALSE(platform::setProcessAffinityMask(all, 1u << count));
    if (count < 32) CHECK_FALSE(platform::setProcessAffinityMask(all, 1u | 1u << count));
    CHECK(platform::processAffinityMask(other) == before);
}

TEST_CASE("priority classes") {
    contract::freshMachine();
    Victim victim;
    const auto set = platform::openProcess(victim.id(), 0x200);
    const auto query = platform::openProcess(victim.id(), 0x400);
    for (const std::uint32_t value : {0x100u, 0x80u, 0x8000u, 0x20u, 0x4000u, 0x40u}) {
        CAPTURE(value);
        CHECK(platform::setPriorityClass(set, value));
        CHECK(platform::priorityClass(query) == value);
    }
    for (const std::uint32_t invalid : {0u, 1u, 0x60u, 0xFFFFu}) {
        CAPTURE(invalid);
        CHECK_FALSE(platform::setPriorityClass(set, invalid));
        CHECK(platform::priorityClass(query) == 0x40);
    }
}

TEST_CASE("the image path and the working set of another process") {
    contract::freshMachine();
    Victim victim;
    const auto process = platform::openProcess(victim.id(), 0x410);
    REQUIRE(process);
    // A process that has just been created has no modules yet.
    REQUIRE(waitFor([&] { return platform::moduleFileName(process).has_value(); }));
    CHECK(platform::lowerCase(*platform::moduleFileName(process)) == platform::lowerCase(victim.path()));
    const auto workingSet = platform::workingSetBytes(process);
    REQUIRE(workingSet);
    CHECK(*workingSet >= 4096);
    CHECK(*workingSet < std::uint64_t{1} << 30);
}

TEST_CASE("processor time belongs to the process that used it") {
    contract::freshMachine();
    Victim idle;
    const auto idleProcess = platform::openProcess(idle.id(), 0x400);
    REQUIRE(idleProcess);

    // The idle one first comes to rest: starting is work.
    std::uint64_t atRest = processorTime(idleProcess);
    int readingsAtRest = 0;
    REQUIRE(waitFor([&] {
        const std::uint64_t now = processorTime(idleProcess);
        readingsAtRest = now == atRest ? readingsAtRest + 1 : 0;
        atRest = now;
        return readingsAtRest >= 10;
    }));

    Victim busy(Load::Busy);
    const auto busyProcess = platform::openProcess(busy.id(), 0x400);
    REQUIRE(busyProcess);
    const std::uint64_t ownBefore = processorTime(platform::openProcess(platform::currentProcessId(), 0x400));
    const std::uint64_t before = processorTime(busyProcess);
    constexpr std::uint64_t kHalfSecond = 5000000;
    CHECK(waitFor([&] { return processorTime(busyProcess) >= before + kHalfSecond; }, 30000));
    CHECK(processorTime(idleProcess) - atRest < kHalfSecond / 5);
    const std::uint64_t own = processorTime(platform::openProcess(platform::currentProcessId(), 0x400));
    CHECK(own >= ownBefore);

    const auto idleTimes = platform::processTimes(idleProcess);
    const auto busyTimes = platform::processTimes(busyProcess);
    REQUIRE(idleTimes);
    REQUIRE(busyTimes);
    CHECK(idleTimes->creation > 0);
    CHECK(idleTimes->creation < busyTimes->creation);
    CHECK(platform::processTimes(idleProcess)->creation == idleTimes->creation);
}

TEST_CASE("terminating") {
    contract::freshMachine();
    Victim victim;
    CHECK(platform::terminateProcess(platform::openProcess(victim.id(), 0x100001), 0));
    CHECK(waitFor([&] { return !listed(victim.id()); }));
}

TEST_CASE("privileges are adjusted through the token") {
    contract::freshMachine();
    const auto self = platform::openProcess(platform::currentProcessId(), 0x1F0FFF);
    REQUIRE(self);
    const auto debug = platform::lookupPrivilege("SeDebugPrivilege");
    REQUIRE(debug);
    CHECK_FALSE(platform::lookupPrivilege("SeNoSuchPrivilege"));

    const auto token = platform::openProcessToken(self, 0x28);
    REQUIRE(token);
    CHECK(platform::adjustTokenPrivilege(token, *debug, 2));
    CHECK(platform::adjustTokenPrivilege(token, *debug, 0));
    CHECK_FALSE(platform::adjustTokenPrivilege(platform::openProcessToken(self, 0x8), *debug, 2));
    CHECK_FALSE(platform::adjustTokenPrivilege(platform::TokenHandle(), *debug, 2));
    CHECK_FALSE(platform::openProcessToken(platform::ProcessHandle(), 0x28));
}
