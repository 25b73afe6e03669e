#include "platform/Machine.h"

#include <doctest/doctest.h>

#include "contract/Machine.h"
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
