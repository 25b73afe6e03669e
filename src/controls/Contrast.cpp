#include "controls/Contrast.h"

#include <algorithm>
#include <cmath>

namespace controls {

using platform::Color;

namespace {

// The light that a channel (0..255) gives on a screen, of 1.
double Light(Color channel) {
    const double share = static_cast<double>(channel & 0xFFU) / 255;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// How bright the eye sees a colour, of 1: green gives the most.
double Luminance(Color color) {
    return 0.2126 * Light(color) + 0.7152 * Light(color >> 8) + 0.0722 * Light(color >> 16);
}

}  // namespace

Color Mix(Color from, Color to, int percent) {
    Color mixed = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const int a = static_cast<int>(from >> shift & 0xFFU);
        const int b = static_cast<int>(to >> shift & 0xFFU);
        mixed |= static_cast<Color>(a + (b - a) * percent / 100) << shift;
    }
    return mixed;
}

double Contrast(Color a, Color b) {
    const auto [darker, brighter] = std::minmax({Luminance(a), Luminance(b)});
    return (brighter + 0.05) / (darker + 0.05);
}

Color Distinct(Color ground, std::initializer_list<Color> wished, double least) {
    for (const Color color : wished) {
        if (Contrast(ground, color) >= least) return color;
    }
    constexpr Color kBlack = 0, kWhite = 0xFFFFFF;
    return Contrast(ground, kBlack) > Contrast(ground, kWhite) ? kBlack : kWhite;
}

}  // namespace controls
