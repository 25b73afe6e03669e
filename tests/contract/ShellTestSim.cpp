// The simulated shell launches nothing, but refuses what the real one would.
#include "contract/Probe.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/sim/Sim.h"

using namespace contract;
using namespace platform;

TEST_CASE("what is launched must be in its folder or have its whole path, and needs a shell") {
    Desk desk;
    const std::string folder = contract::scratchFolder();
    REQUIRE(writeFile(folder + "run.bat", ""));
    CHECK(launch(desk.main, "run.bat", "one two", folder));
    CHECK(launch(desk.main, folder + "run.bat", std::nullopt, "C:\\"));
    CHECK_FALSE(launch(desk.main, "missing.bat", std::nullopt, folder));
    const auto launches = sim::launches();
    REQUIRE(launches.size() == 3);
    CHECK(launches[0].parameters == "one two");
    CHECK(launches[0].folder == folder);
    CHECK(launches[1].file == folder + "run.bat");
    CHECK_FALSE(launches[1].parameters);
    sim::setShellRunning(false);
    CHECK_FALSE(launch(desk.main, "run.bat", std::nullopt, folder));
}
