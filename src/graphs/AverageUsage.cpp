#include "graphs/AverageUsage.h"

#include <algorithm>

#include "process/ProcessDetails.h"
#include "text/Numbers.h"

namespace graphs {

namespace {

constexpr std::int64_t kMostBetweenLooks = 4;  // seconds

// With two digits behind the point, rounded half up.
std::string AverageText(const process::CpuTotals& totals) {
    const std::int64_t sum = std::max<std::int64_t>(totals.sum, 0);
    const std::int64_t hundredths = (sum * 200 + totals.samples) / (totals.samples * 2);
    return text::Decimal(hundredths / 100) + '.' + text::TwoDigits(static_cast<double>(hundredths % 100));
}

}  // namespace

void AverageUsage::FollowClock(std::int64_t now) {
    const std::int64_t passed = now - checked_;
    if (passed < -kMostBetweenLooks || passed > kMostBetweenLooks) start_ += passed;
    checked_ = now;
}

std::string AverageUsage::Text(const process::CpuTotals& totals, std::int64_t now) const {
    std::string text = "    " + process::UptimeText(start_, now) + "\r\n";
    if (totals.samples > 0) text += "        " + AverageText(totals) + '%';
    return text;
}

}  // namespace graphs
