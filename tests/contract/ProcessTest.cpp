#include "platform/Process.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "contract/Machine.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Machine.h"

using namespace contract;
using namespace platform;

namespace {

bool listed(ProcessId id) {
    std::vector<ProcessId> ids;
    return enumerateProcesses(ids) && std::find(ids.begin(), ids.end(), id) != ids.end();
}

// A process of no importance that a test may do to what it likes.
struct Watched : Fresh {
    Victim victim;
    ProcessHandle open(std::uint32_t access) const { return openProcess(victim.id(), access); }
};

// Processor time used so far, in 100-ns units, read after a fresh enumeration as the program does it.
std::uint64_t processorTime(const ProcessHandle& process) {
    const std::int64_t before = performanceCounter();
    std::vector<ProcessId> ids;
    enumerateProcesses(ids);
    const auto times = processTimes(process);
    REQUIRE(times);
    CHECK(times->counter >= before);
    CHECK(times->counter <= performanceCounter());
    return times->kernel + times->user;
}

}  // namespace

TEST_CASE_FIXTURE(Watched, "processes are listed while they run") {
    std::vector<ProcessId> ids(5000, 77777);
    REQUIRE(enumerateProcesses(ids));
    REQUIRE(ids.size() > 3);
    CHECK(ids[0] == 0);  // the idle process
    CHECK(ids[1] == 4);  // the system process
    CHECK(std::count(ids.begin(), ids.end(), victim.id()) == 1);
    CHECK(std::count(ids.begin(), ids.end(), currentProcessId()) == 1);
    CHECK(std::count(ids.begin(), ids.end(), 77777u) == 0);

    std::vector<ProcessId> again;
    REQUIRE(enumerateProcesses(again));
    CHECK(again == ids);
    victim.end();
    CHECK(waitFor([&] { return !listed(victim.id()); }));
    CHECK(waitFor([&] { return !open(0x400); }));
    CHECK_FALSE(openProcess(0, 0x400));
    CHECK_FALSE(openProcess(0x7FFFFFF0, 0x400));
}

TEST_CASE_FIXTURE(Watched, "a handle allows what its rights say") {
    const ProcessHandle query = open(0x400);
    CHECK(processAffinityMask(query));
    CHECK(priorityClass(query) == 0x20);
    CHECK(processTimes(query));
    CHECK_FALSE(setProcessAffinityMask(query, 1));
    CHECK_FALSE(setPriorityClass(query, 0x40));
    CHECK_FALSE(terminateProcess(query, 0));

    const ProcessHandle set = open(0x200);
    CHECK(setPriorityClass(set, 0x20));
    CHECK_FALSE(setPriorityClass({}, 0x20));
    const ProcessHandle none;
    for (const ProcessHandle* blind : {&set, &none}) {
        CHECK(priorityClass(*blind) == 0);
        CHECK_FALSE(processAffinityMask(*blind));
        CHECK_FALSE(processTimes(*blind));
        CHECK_FALSE(workingSetBytes(*blind));
        CHECK_FALSE(moduleFileName(*blind));
    }
    CHECK(listed(victim.id()));
    CHECK(terminateProcess(open(0x100001), 0));
    CHECK(waitFor([&] { return !listed(victim.id()); }));
}

TEST_CASE_FIXTURE(
    Watched, "affinity masks and priority classes are seen through another handle; wrong ones change nothing") {
    const ProcessHandle set = open(0x200);
    const ProcessHandle query = open(0x410);
    const int count = processorCount();
    for (int cpu = 0; cpu < std::min(count, 8); ++cpu) {
        CAPTURE(cpu);
        const std::uint32_t mask = 1u << cpu;
        CHECK(setProcessAffinityMask(set, mask));
        CHECK(processAffinityMask(query) == mask);
    }
    const auto before = processAffinityMask(query);
    CHECK_FALSE(setProcessAffinityMask(set, 0));
    if (count < 32) CHECK_FALSE(setProcessAffinityMask(set, 1u << count));
    if (count < 32) CHECK_FALSE(setProcessAffinityMask(set, 1u | 1u << count));
    CHECK(processAffinityMask(query) == before);

    for (const std::uint32_t value : {0x100u, 0x80u, 0x8000u, 0x20u, 0x4000u, 0x40u}) {
        CAPTURE(value);
        CHECK(setPriorityClass(set, value));
        CHECK(priorityClass(query) == value);
    }
    for (const std::uint32_t invalid : {0u, 1u, 0x60u, 0xFFFFu}) {
        CAPTURE(invalid);
        CHECK_FALSE(setPriorityClass(set, invalid));
        CHECK(priorityClass(query) == 0x40);
    }
}

TEST_CASE_FIXTURE(Watched, "the image path and the working set of another process") {
    const ProcessHandle process = open(0x410);
    // A process that has just been created has no modules yet.
    REQUIRE(waitFor([&] { return moduleFileName(process).has_value(); }));
    CHECK(lowerCase(*moduleFileName(process)) == lowerCase(victim.path()));
    const std::uint64_t workingSet = workingSetBytes(process).value_or(0);
    CHECK(workingSet >= 4096);
    CHECK(workingSet < std::uint64_t{1} << 30);
}

TEST_CASE_FIXTURE(Fresh, "paths are measured in characters, however many bytes these take") {
    const auto letters = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += "\xE3\x82\xAB";
        return text;
    };
    const std::string folder = scratch + letters(45) + "\\";
    REQUIRE(createFolders(folder));
    const Victim victim(folder + letters(45) + ".exe");
    const ProcessHandle process = openProcess(victim.id(), 0x410);
    REQUIRE(waitFor([&] { return moduleFileName(process).has_value(); }));
    const std::string tail = victim.path().substr(scratch.size());
    REQUIRE(tail.size() > 260);
    CHECK(moduleFileName(process).value_or("").ends_with(tail));
    CHECK(longPathName(victim.path()).value_or("").ends_with(tail));
}

TEST_CASE_FIXTURE(Watched, "processor time belongs to the process that used it") {
    const ProcessHandle idle = open(0x400);
    // The idle one first comes to rest: starting is work.
    std::uint64_t atRest = processorTime(idle);
    int readingsAtRest = 0;
    REQUIRE(waitFor([&] {
        const std::uint64_t now = processorTime(idle);
        readingsAtRest = now == atRest ? readingsAtRest + 1 : 0;
        atRest = now;
        return readingsAtRest >= 10;
    }));

    const Victim worker(Load::Busy);
    const ProcessHandle busy = openProcess(worker.id(), 0x400);
    const std::uint64_t before = processorTime(busy);
    constexpr std::uint64_t kHalfSecond = 5000000;
    CHECK(waitFor([&] { return processorTime(busy) >= before + kHalfSecond; }, 30000));
    CHECK(processorTime(idle) - atRest < kHalfSecond / 5);

    const auto createdAt = [](const ProcessHandle& process) {
        return processTimes(process).value_or(ProcessTimes{}).creation;
    };
    const auto own = openProcess(currentProcessId(), 0x400);
    CHECK(processTimes(own));
    CHECK(createdAt(own) <= createdAt(idle));
    CHECK(createdAt(idle) < createdAt(busy));
}

TEST_CASE_FIXTURE(Fresh, "privileges are adjusted through the token") {
    const ProcessHandle self = openProcess(currentProcessId(), 0x1F0FFF);
    const auto debug = lookupPrivilege("SeDebugPrivilege");
    REQUIRE(debug);
    CHECK_FALSE(lookupPrivilege("SeNoSuchPrivilege"));
    const TokenHandle token = openProcessToken(self, 0x28);
    CHECK(adjustTokenPrivilege(token, *debug, 2));
    CHECK(adjustTokenPrivilege(token, *debug, 0));
    CHECK_FALSE(adjustTokenPrivilege(openProcessToken(self, 0x8), *debug, 2));
    CHECK_FALSE(adjustTokenPrivilege(TokenHandle(), *debug, 2));
    CHECK_FALSE(openProcessToken(ProcessHandle(), 0x28));
}
