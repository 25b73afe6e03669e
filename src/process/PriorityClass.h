// Priority classes: the platform's values and the names they are shown, stored and chosen by.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace process {

inline constexpr std::uint32_t kNormalPriority = 0x20, kLowPriority = 0x40, kHighPriority = 0x80,
                               kRealPriority = 0x100, kBelowNormalPriority = 0x4000, kAboveNormalPriority = 0x8000;

struct PriorityClassName {
    std::string_view name;
    std::uint32_t value;
};

// Highest first: the order of every list of priorities.
inline constexpr std::array<PriorityClassName, 6> kPriorityClasses = {{{"Real", kRealPriority},
                                                                       {"High", kHighPriority},
                                                                       {"Above", kAboveNormalPriority},
                                                                       {"Normal", kNormalPriority},
                                                                       {"Below", kBelowNormalPriority},
                                                                       {"Low", kLowPriority}}};

// Empty for a value that is no priority class, 0 included.
std::string_view PriorityName(std::uint32_t value);
// 0 for any other text, "Default" and "No Set" included. Letter case matters.
std::uint32_t PriorityValue(std::string_view name);

}  // namespace process
