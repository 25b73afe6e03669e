// Facts about the simulated machine; all time comes from its clock.
#include "platform/Machine.h"

#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

int processorCount() {
    return machine().processes.processorCount;
}

std::int64_t performanceCounter() {
    return static_cast<std::int64_t>(machine().now) * machine().performanceFrequency / 1000;
}

std::int64_t performanceFrequency() {
    return machine().performanceFrequency;
}
std::string windowsDirectory() {
    return "C:\\WINDOWS";
}
std::string programPath() {
    return "C:\\Kestrum\\Kestrum2.exe";
}

}  // namespace platform
