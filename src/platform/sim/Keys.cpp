// The keyboard of the simulated machine: the keys that are down.
#include "platform/Keys.h"

#include "platform/sim/SimMachine.h"

namespace platform {

bool keyDown(std::uint16_t code) {
    return sim::machine().desktop.heldKeys.count(code) != 0;
}

namespace sim {

void holdKey(std::uint16_t code) {
    machine().desktop.heldKeys.insert(code);
}

void releaseKey(std::uint16_t code) {
    machine().desktop.heldKeys.erase(code);
}

}  // namespace sim

}  // namespace platform
