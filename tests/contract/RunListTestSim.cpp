// The run list that refuses, which a registry does only where an administrator has said so.
#include <doctest/doctest.h>

#include "contract/Machine.h"
#include "platform/RunList.h"
#include "platform/sim/Sim.h"

TEST_CASE("a run list that refuses keeps what it has") {
    namespace sim = platform::sim;
    contract::freshMachine();
    sim::putRunEntry("Other", "C:\\other.exe");
    sim::refuseRunEntries(true);
    CHECK_FALSE(platform::writeRunEntry("Other", "changed"));
    CHECK_FALSE(platform::writeRunEntry("New", "new"));
    CHECK_FALSE(platform::deleteRunEntry("Other"));
    CHECK(platform::deleteRunEntry("New"));
    CHECK(sim::runEntry("other") == "C:\\other.exe");
    sim::refuseRunEntries(false);
    CHECK(platform::deleteRunEntry("Other"));
    CHECK_FALSE(sim::runEntry("Other"));
}
