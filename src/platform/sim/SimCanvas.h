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
    // What has no pixels of its own changes the highest byte of those that it covers, which colours leave at 0.
    template <class Change>
    void mark(const Rect& area, Change change) {
        const Rect inside = visible(area);
        for (int y = inside.top; y < inside.bottom; ++y) {
            for (int x = inside.left; x < inside.right; ++x) {
                Color& pixel = row(y)[x];
                if (pixel != kUnpainted) pixel = (pixel & 0xFFFFFFU) | change(pixel >> 24) << 24;
            }
        }
    }
};

}  // namespace platform::sim
