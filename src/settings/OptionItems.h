// The entries of the lists in the options dialog.
#pragma once

#include <string>

namespace settings {

enum class OptionItems { None, Colours, TrayTypes, Profiles, Intervals, JrIntervals };

inline constexpr int kIntervalStep = 10;  // seconds from one entry of the intervals to the next

// Number of entries of a list.
int ItemCount(OptionItems items);
// What the entry `index` (from 0) says; empty for profiles, whose captions tell what they hold.
std::string ItemText(OptionItems items, int index);
// The entry that stands for a stored index: of one outside the list what the program makes of it, too.
int ItemForStored(OptionItems items, int stored);

}  // namespace settings
