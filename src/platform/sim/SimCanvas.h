// What a Canvas of the simulated machine draws on: the pixels and the record of the window that paints.
#pragma once

#include <algorithm>
#include <cstddef>

#include "platform/sim/SimMachine.h"

namespace platform::sim {

struct PaintContext {
    WindowRecord& record;
    Rect clip;
    std::vector<Rect> saved;  // clips to come back to

    // The part of an area that has pixels to set. The buffer is asked too: a paint within the paint may shrink it.
    Rect visible(const Rect& area) const {
        return area.intersect(clip).intersect(Rect::fromSize({}, record.bufferSize));
    }
    Color* row(int y) { return record.buffer.data() + static_cast<std::ptrdiff_t>(y) * record.bufferSize.width; }
    void fill(const Rect& area, Color color) {
        const Rect inside = visible(area);
        if (inside.empty()) return;
        for (int y = inside.top; y < inside.bottom; ++y)
            std::fill(row(y) + inside.left, row(y) + inside.right, color);
    }
};

}  // namespace platform::sim
