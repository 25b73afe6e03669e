#include "controls/ToolBarGeometry.h"

#include <algorithm>

namespace controls {

using platform::Point;
using platform::Rect;
using platform::Size;

namespace {

// The etched line is two pixels wide in the middle of a gap of eight: enough to part groups of buttons at
// either image size without making the strip noticeably longer.
constexpr int kGap = 8;
constexpr int kLine = 2;
constexpr int kLineInset = 3;  // the line is shorter than the buttons by this much at each end
constexpr int kMargin = 1;     // above and below a row of buttons

}  // namespace

int ToolBarLayout::Offset(int index) const {
    const auto gaps = std::count(separators.begin(), separators.begin() + index, true);
    return leftIndent + index * Pitch() + static_cast<int>(gaps) * kGap;
}

Rect ToolBarLayout::Place(int offset, int length) const {
    if (horizontal) return Rect::fromSize({offset, kMargin}, {length, Pitch()});
    return Rect::fromSize({kMargin, offset}, {Pitch(), length});
}

Rect ToolBarLayout::Button(int index) const {
    if (index < 0 || index >= Count()) return {};
    return Place(Offset(index), Pitch());
}

Rect ToolBarLayout::Separator(int index) const {
    if (index < 0 || index >= Count() || !separators[static_cast<std::size_t>(index)]) return {};
    const Rect line = Place(Offset(index) + Pitch() + (kGap - kLine) / 2, kLine);
    return horizontal ? line.inset(0, kLineInset) : line.inset(kLineInset, 0);
}

int ToolBarLayout::HitTest(Point at) const {
    for (int index = 0; index < Count(); ++index) {
        if (Button(index).contains(at)) return index;
    }
    return -1;
}

Size ToolBarLayout::Preferred() const {
    const int along = Offset(Count()) + leftIndent;
    const int across = Pitch() + 2 * kMargin;
    return horizontal ? Size{along, across} : Size{across, along};
}

}  // namespace controls
