#include "graphs/CpuHistory.h"

#include <algorithm>

namespace graphs {

void CpuHistory::SetDivisor(int divisor) {
    divisor_ = std::max(divisor, 1);
    countdown_ = divisor_;
}

bool CpuHistory::TickDue() {
    if (--countdown_ >= 1) return false;
    countdown_ = divisor_;
    return true;
}

bool CpuHistory::Add(int percent) {
    if (percent < 0) return false;
    const auto before = samples_;
    std::shift_left(samples_.begin(), samples_.end(), 1);
    samples_.back() = static_cast<std::int16_t>(std::min(percent, 100));
    return samples_ != before;
}

}  // namespace graphs
