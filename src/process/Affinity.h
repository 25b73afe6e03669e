// CPU affinity as text: the digits of the allowed processors in ascending order, e.g. "013".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace process {

inline constexpr int kMostCpus = 8;

// The processors of `mask` from 0 to `highestCpu` (at most 7); empty for mask 0.
std::string AffinityText(std::uint32_t mask, int highestCpu);
// The mask of the text's digits, 0 for empty text. A character that is no digit reads as 0. The digits 8 and 9
// name no processor that the program handles and add nothing.
std::uint32_t AffinityMask(std::string_view text);

// The set bits of a mask as single-bit values, lowest first; empty for mask 0.
std::vector<std::uint32_t> SplitMask(std::uint32_t mask);

}  // namespace process
