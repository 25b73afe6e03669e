#include "process/Affinity.h"

namespace process {

std::string AffinityText(std::uint32_t mask, int highestCpu) {
    std::string text;
    for (int cpu = 0; cpu <= highestCpu && cpu < kMostCpus; ++cpu) {
        if ((mask >> cpu & 1u) != 0) text += static_cast<char>('0' + cpu);
    }
    return text;
}

std::uint32_t AffinityMask(std::string_view text) {
    std::uint32_t mask = 0;
    for (const char c : text) {
        const int digit = c >= '0' && c <= '9' ? c - '0' : 0;
        if (digit < kMostCpus) mask |= 1u << digit;
    }
    return mask;
}

std::vector<std::uint32_t> SplitMask(std::uint32_t mask) {
    std::vector<std::uint32_t> bits;
    for (; mask != 0; mask &= mask - 1) bits.push_back(mask & (~mask + 1));
    return bits;
}

}  // namespace process
