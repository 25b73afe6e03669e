// The run list that refuses, which a registry does only where an administrator has said so.
#include <doctest/doctest.h>

#include "contract/Machine.h"
#include "platform/RunList.h"
#include "platform/sim/Sim.h"

using namespace contract;
using namespace platform;

TEST_CASE("a run list that refuses keeps what it has") {
    namespace sim = sim;
    freshMachine();
    sim::putRunEntry("Other", "C:\\other.exe");
    sim::refuseRunEntries(true);
    CHECK_FALSE(writeRunEntry("Other", "changed"));
    CHECK_FALSE(writeRunEntry("New", "new"));
    CHECK_FALSE(deleteRunEntry("Other"));
    CHECK(deleteRunEntry("New"));
    CHECK(sim::runEntry("other") == "C:\\other.exe");
    sim::refuseRunEntries(false);
    CHECK(deleteRunEntry("Other"));
    CHECK_FALSE(sim::runEntry("Other"));
}
