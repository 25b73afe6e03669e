// What a Canvas of the simulated machine draws on: the pixels of a window or a picture, and where it is recorded.
#pragma once

#include <algorithm>
#include <cstddef>

#include "platform/sim/SimMachine.h"

namespace platform::sim {

struct PaintContext {
    Size& size;
    std::vector<Color>& pixels;
    std::vector<Drawn>& drawn;
    Rect clip;
    std::vector<Rect> saved;  // clips to come back to

    // The part of an area that has pixels to set. The size is asked too: a paint within the paint may shrink it.
    Rect visible(const Rect& area) const { return area.intersect(clip).intersect(Rect::fromSize({}, size)); }
    Color* row(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * size.width; }
    void fill(const Rect& area, Color color) {
        const Rect inside = visible(area);
        if (inside.empty()) return;
        for (int y = inside.top; y < inside.bottom; ++y)
            std::fill(row(y) + inside.left, row(y) + inside.right, color);
    }
};

}  // namespace platform::sim
