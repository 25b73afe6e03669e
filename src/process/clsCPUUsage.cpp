#include "process/clsCPUUsage.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/Machine.h"

namespace process {

namespace {

// A damaged figure may be anything: the difference wraps instead of overflowing.
double Difference(std::int64_t now, std::int64_t before) {
    return static_cast<double>(
        static_cast<std::int64_t>(static_cast<std::uint64_t>(now) - static_cast<std::uint64_t>(before)));
}

double ToFourDecimals(double value) {
    return std::nearbyint(value * 10'000) / 10'000;
}

std::int32_t Whole(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp(std::floor(value), static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

}  // namespace

clsCPUUsage::clsCPUUsage() {
    const auto time = platform::systemTimeOfDay();
    const auto idle = platform::systemIdleTime();
    if (!time || !idle) return;
    previousTime_ = *time;
    previousIdle_ = *idle;
}

std::int32_t clsCPUUsage::CurrentCPUUsage() {
    // The number is a byte of the system's: 256 processors make it 0, which tells no more than a refusal.
    const int processors = platform::systemProcessors().value_or(0);
    const auto time = platform::systemTimeOfDay();
    const auto idle = platform::systemIdleTime();
    if (processors < 1 || !time || !idle) return 0;

    const double idleDelta = Difference(*idle, previousIdle_);
    const double timeDelta = Difference(*time, previousTime_);
    const double ratio = timeDelta == 0 ? idleDelta : ToFourDecimals(idleDelta / timeDelta);
    previousIdle_ = *idle;
    previousTime_ = *time;
    return Whole(ToFourDecimals(100 - ratio * 100 / processors + 0.5));
}

}  // namespace process
