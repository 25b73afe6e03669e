// The keyboard of the simulated machine: the keys that are down.
#include "platform/Keys.h"

#include "platform/sim/SimMachine.h"

namespace platform {

namespace {

constexpr std::uint16_t kLeftButton = 0x01;

}  // namespace

bool keyDown(std::uint16_t code) {
    const sim::Desktop& desktop = sim::machine().desktop;
    const bool byEvent = (code == key::kShift && desktop.modifiers.shift) ||
                         (code == key::kCtrl && desktop.modifiers.ctrl) ||
                         (code == key::kAlt && desktop.modifiers.alt);
    return byEvent || desktop.heldKeys.count(code) != 0 || (code == kLeftButton && desktop.leftHeld);
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
