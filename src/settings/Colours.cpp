#include "settings/Colours.h"

namespace settings {

namespace {

struct NamedColour {
    const char* name;
    platform::Color value;
};

// Purple and White are one step short of full intensity.
constexpr NamedColour kColours[kColourCount] = {
    {"Black", platform::rgb(0, 0, 0)},       {"Blue", platform::rgb(0, 0, 255)},
    {"Cyan", platform::rgb(0, 255, 255)},    {"Green", platform::rgb(0, 255, 0)},
    {"Purple", platform::rgb(254, 0, 254)},  {"Red", platform::rgb(255, 0, 0)},
    {"White", platform::rgb(254, 254, 254)}, {"Yellow", platform::rgb(255, 255, 0)},
};

}  // namespace

platform::Color ColourFromIndex(int index) {
    return index >= 0 && index < kColourCount ? kColours[index].value : 0;
}

const char* ColourName(int index) {
    return index >= 0 && index < kColourCount ? kColours[index].name : nullptr;
}

}  // namespace settings
