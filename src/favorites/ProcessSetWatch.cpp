#include "favorites/ProcessSetWatch.h"

#include "process/ProcessSnapshot.h"

namespace favorites {

void ProcessSetWatch::Observe(const process::ProcessSnapshot& snapshot) {
    const auto count = static_cast<std::uint32_t>(snapshot.Count());
    const std::uint32_t sum = snapshot.IdSum();
    if (count == count_ && sum == sum_) return;
    count_ = count;
    sum_ = sum;
    countdown_ = kSettleTicks;
}

void ProcessSetWatch::TickDone() {
    if (countdown_ > 0) --countdown_;
}

}  // namespace favorites
