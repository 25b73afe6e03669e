#include "favorites/EnforceState.h"

#include <algorithm>
#include <limits>

#include "settings/OptionItems.h"

namespace favorites {

namespace {

constexpr int kMost = std::numeric_limits<std::int16_t>::max();

}  // namespace

void EnforceState::SetIntervalIndex(int index) {
    // A damaged index below 0 would apply the favourites on every tick: it counts as 0.
    const int safeIndex = std::clamp(index, 0, kMost);
    SetIntervalSeconds((safeIndex + 1) * settings::kIntervalStep);
}

void EnforceState::SetIntervalSeconds(int seconds) {
    intervalSeconds_ = static_cast<std::int16_t>(std::clamp(seconds, 1, kMost));
}

bool EnforceState::TickDue() {
    if (!on_) return false;
    // The counter stops at its end instead of running over. It can measure half its range in seconds; an
    // interval beyond that (4.5 hours) is due there rather than never.
    if (ticks_ < kMost) ++ticks_;
    return std::min<int>(intervalSeconds_, kMost / 2) <= ticks_ / 2;
}

}  // namespace favorites
