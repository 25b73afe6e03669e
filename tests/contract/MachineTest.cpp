#include "platform/Machine.h"

#include <doctest/doctest.h>

#include <cstdlib>

#include "contract/Machine.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Files.h"

TEST_CASE("facts about the machine") {
    contract::freshMachine();
    CHECK(platform::processorCount() >= 1);

    const std::string windows = platform::windowsDirectory();
    REQUIRE(windows.size() > 3);
    CHECK(windows.substr(1, 2) == ":\\");
    CHECK(windows.back() != '\\');

    const std::string program = platform::programPath();
    CHECK(platform::fileExists(program));
    REQUIRE(program.size() > 4);
    CHECK(platform::lowerCase(program.substr(program.size() - 4)) == ".exe");
}

TEST_CASE("the performance counter runs forward") {
    contract::freshMachine();
    const std::int64_t frequency = platform::performanceFrequency();
    REQUIRE(frequency > 0);
    const std::int64_t start = platform::performanceCounter();
    CHECK(contract::waitFor([&] { return platform::performanceCounter() - start > frequency / 20; }));
}

TEST_CASE("the system's own figures") {
    contract::freshMachine();
    const std::optional<int> processors = platform::systemProcessors();
    REQUIRE(processors);
    CHECK(*processors == platform::processorCount());

    const auto now = platform::systemTimeOfDay();
    const auto idle = platform::systemIdleTime();
    REQUIRE(now);
    REQUIRE(idle);
    CHECK(contract::waitFor([&] { return platform::systemTimeOfDay() > now; }));
    // That it grows is more than a machine that others keep busy can promise.
    CHECK(*idle > 0);
    CHECK(platform::systemIdleTime() >= idle);

    const std::optional<platform::PhysicalMemory> memory = platform::physicalMemory();
    REQUIRE(memory);
    CHECK(memory->total >= std::uint64_t{64} << 20);
    CHECK(memory->available > 0);
    CHECK(memory->available <= memory->total);
}

TEST_CASE("the time of day is the one that processes are stamped with") {
    contract::freshMachine();
    constexpr std::uint64_t kMinute = std::uint64_t{60} * 10'000'000;
    const std::uint64_t before = platform::systemTime();
    CHECK(contract::waitFor([&] { return platform::systemTime() > before; }));

    const contract::Victim victim;
    const auto times = platform::processTimes(platform::openProcess(victim.id(), 0x400));
    REQUIRE(times);
    CHECK(times->creation + kMinute > before);
    CHECK(times->creation < platform::systemTime() + kMinute);
    CHECK(std::abs(platform::localBiasMinutes()) < 24 * 60);
}

TEST_CASE("what the machine's part of the registry lacks is empty") {
    contract::freshMachine();
    const std::string missing = "SOFTWARE\\No such key of Kestrum 2";
    CHECK(platform::machineText(missing, "name").empty());
    CHECK(platform::machineNumber(missing, "name") == 0);
    CHECK(platform::machineText("", "no such value of Kestrum 2").empty());
    CHECK(platform::machineNumber("", "no such value of Kestrum 2") == 0);
}
