// How graphs look. All of them share ground, grid and strip of text, and the rule that whatever colours the user
// has chosen can be read: light ones stand on a dark ground and dark ones on a light one.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Canvas.h"

namespace graphs {

// The ground of a graph that is seen through: no other part of it is painted in this colour. The nearest of the
// colours to choose from, Purple, is one step off, and no mixture of one of them with a ground comes to it.
inline constexpr platform::Color kHole = platform::rgb(255, 0, 255);

inline constexpr int kPlotHeight = 100;  // pixels: one for each percent

// The ground on which `ink` can be read.
platform::Color GroundFor(platform::Color ink);
// `percent` of `b` in `a`.
platform::Color Mixed(platform::Color a, platform::Color b, int percent);

// A place for text: `ground` within a thin frame.
void DrawPanel(platform::Canvas& canvas, const platform::Rect& area, platform::Color ground);

// An empty graph, as it is behind what it shows: `ground` with grid lines at the quarters and a thin frame.
void DrawGround(platform::Canvas& canvas, platform::Size size, platform::Color ground);

// The same seen through: all that is there is a line below, so that a graph of nothing is found.
void DrawHole(platform::Canvas& canvas, platform::Size size, platform::Color ground);

// The course of the samples (percent, the newest one at the right): a line from (i, 100 - sample) on for each, on
// its ground. Seen through, only the line remains, with an outline that sets it off from any desktop.
void DrawPlot(platform::Canvas& canvas, platform::Size size, std::span<const std::int16_t> samples,
              platform::Color ink, bool seenThrough);

// One line of text on a strip of ground along the upper edge, and over it the plot where that reaches so high. Seen
// through, the strip is as wide as its text.
void DrawCaption(platform::Canvas& canvas, platform::Size size, std::string_view text, platform::Color ink,
                 std::span<const std::int16_t> samples, platform::Color plotInk, bool seenThrough);

}  // namespace graphs
