// Sounds of the simulated machine are only remembered.
#include "platform/Sound.h"

#include "platform/sim/SimMachine.h"

namespace platform {

void beep() {
    sim::note("beep");
    if (sim::machine().sounds.size() < sim::kMostRecorded) sim::machine().sounds.emplace_back("beep");
}

void playSound(const std::string& alias) {
    sim::note("playSound", alias);
    if (sim::machine().sounds.size() < sim::kMostRecorded) sim::machine().sounds.push_back(alias);
}

std::vector<std::string> sim::sounds() {
    return machine().sounds;
}

}  // namespace platform
