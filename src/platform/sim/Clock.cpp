// The time of day of the simulated machine, which is that of its clock.
#include "platform/Clock.h"

#include "platform/sim/SimMachine.h"

namespace platform {

std::uint64_t systemTime() {
    return sim::fileTime(sim::machine().now);
}

int localBiasMinutes() {
    return sim::machine().localBias;
}

void sim::setLocalBias(int minutes) {
    machine().localBias = minutes;
}

}  // namespace platform
