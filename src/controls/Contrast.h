// What can be told apart from its ground.
#pragma once

#include <initializer_list>

#include "platform/Canvas.h"

namespace controls {

// `percent` (0..100) of the way from one colour to another.
platform::Color Mix(platform::Color from, platform::Color to, int percent);

// Ratio of the brightness of two colours: 1 (of equal brightness) to 21 (black and white).
double Contrast(platform::Color a, platform::Color b);

// The least contrast of text with its ground, and of lines, for people who do not see sharply (WCAG 2).
inline constexpr double kTextContrast = 4.5;
inline constexpr double kLineContrast = 3;

// The first of the colours whose contrast with the ground is at least that (not above 4.5); black or white when
// none is.
platform::Color Distinct(platform::Color ground, std::initializer_list<platform::Color> wished, double least);

}  // namespace controls
