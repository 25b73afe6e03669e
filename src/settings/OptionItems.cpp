#include "settings/OptionItems.h"

#include <algorithm>
#include <iterator>

#include "settings/Colours.h"
#include "text/Numbers.h"

namespace settings {

namespace {

constexpr const char* kTrayTypes[] = {"Disabled", "Graph", "Number Lrg", "Number Sml"};
constexpr int kSteps = 30;  // of the intervals

std::string Seconds(int steps) {
    return text::Decimal(steps * kIntervalStep) + " seconds";
}

}  // namespace

int ItemCount(OptionItems items) {
    switch (items) {
        case OptionItems::None:
            break;
        case OptionItems::Colours:
            return kColourCount;
        case OptionItems::TrayTypes:
            return std::size(kTrayTypes);
        case OptionItems::Profiles:
            return 5;
        case OptionItems::Intervals:
            return kSteps;
        case OptionItems::JrIntervals:
            return 1 + kSteps;
    }
    return 0;
}

std::string ItemText(OptionItems items, int index) {
    switch (items) {
        case OptionItems::None:
        case OptionItems::Profiles:
            break;
        case OptionItems::Colours:
            return ColourName(index);
        case OptionItems::TrayTypes:
            return kTrayTypes[index];
        case OptionItems::Intervals:
            return Seconds(index + 1);
        case OptionItems::JrIntervals:
            return index == 0 ? "Disabled" : Seconds(index);
    }
    return {};
}

int ItemForStored(OptionItems items, int stored) {
    const int nearest = std::clamp(stored, 0, std::max(0, ItemCount(items) - 1));
    // A colour that is none is drawn black, a tray icon of no known type is disabled: both are the first entry.
    const bool firstWhenDamaged = items == OptionItems::Colours || items == OptionItems::TrayTypes;
    return firstWhenDamaged && nearest != stored ? 0 : nearest;
}

}  // namespace settings
