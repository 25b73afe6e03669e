// What the machine says of itself, and what its code page makes of text.
#include "platform/Machine.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <utility>

#include "contract/Machine.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/Files.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Fresh, "facts about the machine") {
    CHECK(processorCount() >= 1);

    const std::string windows = windowsDirectory();
    CHECK(windows.find(":\\") == 1);
    CHECK_FALSE(windows.ends_with('\\'));

    const std::string program = programPath();
    CHECK(fileExists(program));
    CHECK(lowerCase(program).ends_with(".exe"));

    const std::int64_t frequency = performanceFrequency();
    REQUIRE(frequency > 0);
    const std::int64_t start = performanceCounter();
    CHECK(waitFor([&] { return performanceCounter() - start > frequency / 20; }));

    // What the machine's part of the registry lacks is empty.
    for (const char* key : {"SOFTWARE\\No such key of Kestrum 2", ""}) {
        CHECK(machineText(key, "no such value of Kestrum 2").empty());
        CHECK(machineNumber(key, "no such value of Kestrum 2") == 0);
    }
}

TEST_CASE_FIXTURE(Fresh, "the system's own figures") {
    CHECK(systemProcessors() == processorCount());
    const auto now = systemTimeOfDay();
    REQUIRE(now);
    CHECK(waitFor([&] { return systemTimeOfDay() > now; }));
    // That it grows is more than a machine that others keep busy can promise.
    const std::int64_t idle = systemIdleTime().value_or(0);
    CHECK(idle > 0);
    CHECK(systemIdleTime() >= idle);

    const PhysicalMemory memory = physicalMemory().value_or(PhysicalMemory{});
    CHECK(memory.total >= std::uint64_t{64} << 20);
    CHECK(memory.available > 0);
    CHECK(memory.available <= memory.total);

    // The time of day is the one that processes are stamped with.
    constexpr std::uint64_t kMinute = std::uint64_t{60} * 10'000'000;
    const std::uint64_t before = systemTime();
    CHECK(waitFor([&] { return systemTime() > before; }));

    const Victim victim;
    const ProcessTimes times = processTimes(openProcess(victim.id(), 0x400)).value_or(ProcessTimes{});
    CHECK(times.creation + kMinute > before);
    CHECK(times.creation < systemTime() + kMinute);
    CHECK(std::abs(localBiasMinutes()) < 24 * 60);
}

TEST_CASE_FIXTURE(Fresh, "valid text") {
    for (const char* text : {"", "plain", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "a\xC3\xA4z"}) {
        CAPTURE(text);
        CHECK(isValidText(text));
    }
    CHECK(isValidText(std::string("a\0b", 3)));
    // Cut, stray, overlong, half a pair, beyond the last character, no lead byte.
    for (const char* text : {"\xC3", "a\xE2\x82", "\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        CAPTURE(text);
        CHECK_FALSE(isValidText(text));
        CHECK_FALSE(isValidText(std::string(text) + "z"));
    }
}

TEST_CASE_FIXTURE(Fresh, "lower and upper case") {
    const std::pair<const char*, const char*> pairs[] = {
        {"c:\\windows\\a-z_0.exe", "C:\\WINDOWS\\A-Z_0.EXE"},
        {"\xC3\xA4\xC3\xB6\xC3\xBC.exe", "\xC3\x84\xC3\x96\xC3\x9C.EXE"},
        {"\xC3\xA0\xC3\xBE", "\xC3\x80\xC3\x9E"},
        // No letters, or none with another case; the multiplication and the division sign look like a pair.
        {"", ""},
        {"@[`{", "@[`{"},
        {"\xC3\x97\xC3\xB7", "\xC3\x97\xC3\xB7"},
        {"\xE2\x82\xAC\xE6\xBC\xA2\xE5\xAD\x97", "\xE2\x82\xAC\xE6\xBC\xA2\xE5\xAD\x97"},
    };
    for (const auto& [lower, upper] : pairs) {
        CAPTURE(upper);
        for (const char* text : {lower, upper}) {
            CHECK(lowerCase(text) == lower);
            CHECK(upperCase(text) == upper);
        }
    }
    CHECK(lowerCase(std::string("A\0B", 3)) == std::string("a\0b", 3));
    // Damaged text keeps its damage, and its letters still change.
    CHECK(lowerCase("A\xFF\xC3\x84Z\xC3") == "a\xFF\xC3\xA4z\xC3");
    CHECK(upperCase("a\xE2\x82z") == "A\xE2\x82Z");
}
