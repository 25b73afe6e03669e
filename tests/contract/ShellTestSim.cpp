// The simulated shell launches nothing, but refuses what the real one would.
#include "contract/Probe.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/sim/Sim.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Desk, "what is launched must be in its folder or have its whole path, and needs a shell") {
    REQUIRE(writeFile(scratch + "run.bat", ""));
    CHECK(launch(main, "run.bat", "one two", scratch));
    CHECK(launch(main, scratch + "run.bat", std::nullopt, "C:\\"));
    CHECK_FALSE(launch(main, "missing.bat", std::nullopt, scratch));
    const auto launches = sim::launches();
    REQUIRE(launches.size() == 3);
    CHECK(launches[0].parameters == "one two");
    CHECK(launches[0].folder == scratch);
    CHECK(launches[1].file == scratch + "run.bat");
    CHECK_FALSE(launches[1].parameters);
    sim::setShellRunning(false);
    CHECK_FALSE(launch(main, "run.bat", std::nullopt, scratch));
}
