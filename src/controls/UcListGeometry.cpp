#include "controls/UcListGeometry.h"

#include <algorithm>
#include <cstdint>

namespace controls {

using platform::Point;
using platform::Rect;

namespace {

// Length of an arrow on a bar of `length` pixels: both arrows always fit.
int ArrowLength(int length) {
    return std::clamp(length / 2, 0, kUcListBarSize);
}

int ThumbLength(int track, int shown, int total) {
    if (track < kUcListMinThumb || total <= 0) return 0;
    const auto share = static_cast<int>(static_cast<std::int64_t>(track) * shown / total);
    return std::clamp(share, kUcListMinThumb, track);
}

// Start of a thumb that stands `position` of `range` steps along its way.
int ThumbStart(int track, int thumb, int position, int range) {
    if (range <= 0) return 0;
    return static_cast<int>(static_cast<std::int64_t>(track - thumb) * position / range);
}

// The other way round: the first step whose thumb starts there. Rounded up as ThumbStart rounds down, so that every
// step comes back as long as there are no more of them than pixels.
int StepOf(int start, int way, int range) {
    if (way <= 0) return 0;
    const std::int64_t along = std::clamp(start, 0, way);
    return static_cast<int>((along * range + way - 1) / way);
}

// The stretch from `from` to `to` (first pixel behind it) along a bar.
Rect Along(const Rect& area, bool upright, int from, int to) {
    return upright ? Rect{area.left, area.top + from, area.right, area.top + to}
                   : Rect{area.left + from, area.top, area.left + to, area.bottom};
}

void PlaceBar(UcListBar& bar, bool upright, int shown, int total, int position, int range) {
    if (!bar.visible) {
        bar = UcListBar{};
        return;
    }
    const int length = upright ? bar.area.height() : bar.area.width();
    const int arrow = ArrowLength(length);
    const int track = std::max(0, length - 2 * arrow);
    const int thumb = ThumbLength(track, shown, total);
    const int start = arrow + ThumbStart(track, thumb, position, range);
    bar.part[kFirstArrow] = Along(bar.area, upright, 0, arrow);
    bar.part[kSecondArrow] = Along(bar.area, upright, length - arrow, length);
    bar.part[kThumb] = Along(bar.area, upright, start, start + thumb);
    bar.part[kTrack] = Along(bar.area, upright, arrow, arrow + track);
}

// Rows that fit whole under the separating line.
int RowsIn(int height) {
    return std::max(0, (height - 1) / kUcListRowHeight);
}

}  // namespace

int UcListLayout::Slots() const {
    return itemArea.height() <= 1 ? 0 : visibleRows + 1;
}

Rect UcListLayout::RowRect(int slot) const {
    const int top = itemArea.top + 1 + kUcListRowHeight * slot;
    return {itemArea.left, top, itemArea.right, top + kUcListRowHeight};
}

Rect UcListLayout::CellRect(int slot, int column) const {
    const Rect row = RowRect(slot);
    const Rect& cell = columns[static_cast<std::size_t>(column)];
    return {cell.left, row.top, cell.right, row.bottom};
}

int UcListLayout::ColumnsRight() const {
    return columns.empty() ? 0 : columns.back().right;
}

// A bar appears only when it is needed; each takes room from the other, so the rows are asked again.
void pvListRect(const UcListMetrics& metrics, UcListLayout& layout) {
    const int width = std::max(0, metrics.client.width);
    const int height = std::max(0, metrics.client.height - metrics.headerHeight);
    const auto barOr0 = [](bool visible) { return visible ? kUcListBarSize : 0; };
    bool across = layout.totalWidth > width;
    const bool down = metrics.listCount > RowsIn(height - barOr0(across));
    if (down && !across) across = layout.totalWidth > width - kUcListBarSize;

    layout.client = metrics.client;
    layout.vertical.visible = down && width > 0;
    layout.horizontal.visible = across && height > 0;
    const int right = std::max(0, width - barOr0(layout.vertical.visible));
    const int top = metrics.headerHeight;
    const int bottom = top + std::max(0, height - barOr0(layout.horizontal.visible));
    layout.header = {0, 0, width, metrics.headerHeight};
    layout.itemArea = {0, top, right, bottom};
    layout.vertical.area = {right, top, width, bottom};
    layout.horizontal.area = {0, bottom, right, top + height};
    layout.corner = down && across ? Rect{right, bottom, width, top + height} : Rect{};
    layout.visibleRows = RowsIn(bottom - top);
}

void pvHeaderRect(const UcListMetrics& metrics, UcListLayout& layout) {
    layout.columns.resize(static_cast<std::size_t>(metrics.columnCount));
    int left = layout.offset;
    for (int i = 0; i < metrics.columnCount; ++i) {
        const int right = left + metrics.widths[i];
        layout.columns[static_cast<std::size_t>(i)] = {left, 0, right, metrics.headerHeight};
        left = right;
    }
}

void pvListInit(const UcListMetrics& metrics, UcListLayout& layout) {
    layout.totalWidth = 0;
    for (int i = 0; i < metrics.columnCount; ++i) layout.totalWidth += metrics.widths[i];
    layout.drawnColumns = metrics.drawnColumns;
    layout.listCount = metrics.listCount;
    pvListRect(metrics, layout);
    // One pixel of ground stays right of the last column, so that its edge can be seen and caught.
    layout.minOffset = layout.horizontal.visible ? layout.itemArea.right - layout.totalWidth - 1 : 0;
    layout.offset = std::clamp(metrics.offset, layout.minOffset, 0);
    pvHeaderRect(metrics, layout);
    layout.maxTopIndex = std::max(0, metrics.listCount - layout.visibleRows);
    layout.topIndex = std::clamp(metrics.topIndex, 0, layout.maxTopIndex);
    PlaceBar(layout.vertical, true, layout.visibleRows, metrics.listCount, layout.topIndex, layout.maxTopIndex);
    PlaceBar(layout.horizontal, false, layout.itemArea.width(), layout.totalWidth, -layout.offset,
             -layout.minOffset);
}

UcListHit HitTest(const UcListLayout& layout, Point at) {
    for (std::size_t i = 0; i < layout.columns.size(); ++i) {
        if (layout.columns[i].contains(at)) return {kZoneHeader, static_cast<int>(i), -1};
    }
    for (const UcListBar* bar : {&layout.vertical, &layout.horizontal}) {
        const int first = bar == &layout.vertical ? kZoneUp : kZoneLeft;
        for (int part = 0; bar->visible && part < 4; ++part) {
            if (bar->part[static_cast<std::size_t>(part)].contains(at)) return {first + part, -1, -1};
        }
    }
    if (layout.listCount <= 0 || !layout.itemArea.contains(at)) return {};
    const auto column =
        std::find_if(layout.columns.begin(), layout.columns.end(), [&](const Rect& c) { return at.x < c.right; });
    // The separating line above row 0 counts as part of it.
    const int slot = std::max(0, at.y - layout.itemArea.top - 1) / kUcListRowHeight;
    return {kZoneItems, column == layout.columns.end() ? -1 : static_cast<int>(column - layout.columns.begin()),
            layout.topIndex + slot};
}

int SizingColumn(const UcListLayout& layout, Point at) {
    for (int i = 0; i < layout.drawnColumns; ++i) {
        const Rect& cell = layout.columns[static_cast<std::size_t>(i)];
        if (cell.contains(at) && at.x >= cell.right - 1 - kUcListSizeMargin) return i;
    }
    return -1;
}

int TopIndexOfThumb(const UcListLayout& layout, int position) {
    const auto& part = layout.vertical.part;
    return StepOf(position - part[kTrack].top, part[kTrack].height() - part[kThumb].height(), layout.maxTopIndex);
}

int OffsetOfThumb(const UcListLayout& layout, int position) {
    const auto& part = layout.horizontal.part;
    return -StepOf(position - part[kTrack].left, part[kTrack].width() - part[kThumb].width(), -layout.minOffset);
}

}  // namespace controls
