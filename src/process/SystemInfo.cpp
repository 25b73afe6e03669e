#include "process/SystemInfo.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/Machine.h"
#include "text/Numbers.h"

namespace process {

namespace {

constexpr char kProcessorKey[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
constexpr std::int64_t kPerKb = 10'000;
constexpr std::int64_t kLeftOutKb = 100;

// Bytes in ten-thousandths of a KB, rounded; the largest number when they are too many for one (900 PB).
std::int64_t FixedKb(std::uint64_t bytes) {
    const std::uint64_t kb = bytes / 1024;
    if (kb >= std::numeric_limits<std::int64_t>::max() / kPerKb) return std::numeric_limits<std::int64_t>::max();
    const std::uint64_t rest = (bytes % 1024 * kPerKb + 512) / 1024;
    return static_cast<std::int64_t>(kb * kPerKb + rest);
}

// Grouped, without decimals. 0 shows no digit, as in the lists: there is no memory of 0 KB, only one that could
// not be read.
std::string KbText(std::int64_t fixedKb) {
    return text::Grouped(static_cast<std::uint64_t>(fixedKb / kPerKb + (fixedKb % kPerKb >= kPerKb / 2 ? 1 : 0)));
}

struct Figures {
    std::int64_t total = 0;
    std::int64_t available = 0;
};

// Both from one reading, so that they belong together.
Figures ReadMemory() {
    const auto memory = platform::physicalMemory();
    if (!memory) return {};
    return {FixedKb(memory->total), FixedKb(memory->available)};
}

}  // namespace

std::int64_t Memory(int which) {
    if (which != 0 && which != 1) return 0;
    const Figures memory = ReadMemory();
    return which == 1 ? memory.total : memory.available;
}

std::int16_t MemoryPercent() {
    const Figures memory = ReadMemory();
    const std::int64_t divisor = memory.total - kLeftOutKb * kPerKb;
    if (divisor <= 0) return 0;
    const double percent = static_cast<double>(memory.available) * 100 / static_cast<double>(divisor);
    constexpr double kMost = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::nearbyint(std::min(percent, kMost)));
}

TipText MemoryTip() {
    const Figures memory = ReadMemory();
    return {"Physical Memory Available (K)", KbText(memory.available) + " of " + KbText(memory.total)};
}

TipText ProcessorTip() {
    const std::string name = platform::machineText(kProcessorKey, "ProcessorNameString");
    const std::string identifier = platform::machineText(kProcessorKey, "Identifier");
    const std::string clock = text::Decimal(platform::machineNumber(kProcessorKey, "~MHz"));
    return {"Total CPU Usage", name + "\r\n" + identifier + "\r\n" + clock + " MHz"};
}

}  // namespace process
