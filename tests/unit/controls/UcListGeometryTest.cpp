#include "controls/UcListGeometry.h"

#include <doctest/doctest.h>

using namespace controls;
using platform::Rect;
using platform::Size;

namespace {

constexpr int kWidths[] = {134, 82, 60, 40, 60, 70, 0};  // 446 in all

UcListLayout LayoutOf(Size client, int rows, int topIndex = 0, int offset = 0) {
    UcListLayout layout;
    pvListInit({client, 20, kWidths, 7, 6, rows, topIndex, offset}, layout);
    return layout;
}

// What the hit test finds at the first and the last pixel of an area: one zone and row, or the test fails.
UcListHit HitAll(const UcListLayout& layout, const Rect& area) {
    const UcListHit first = HitTest(layout, area.origin());
    const UcListHit last = HitTest(layout, {area.right - 1, area.bottom - 1});
    CHECK(first.zone == last.zone);
    CHECK(first.row == last.row);
    return first;
}

}  // namespace

TEST_CASE("bars appear only when needed, and each takes its room from the other") {
    const struct {
        Size client;
        int rows;
        bool vertical, horizontal;
        int visibleRows;
    } cases[] = {
        {{446, 191}, 10, false, false, 10},  // all fits to the pixel
        {{446, 191}, 11, true, true, 9},     // the vertical bar makes the columns too wide
        {{463, 191}, 11, true, false, 10},  {{445, 191}, 9, false, true, 9},
        {{445, 191}, 10, true, true, 9},  // the horizontal bar takes the last row
        {{30, 25}, 10, true, true, 0},
    };
    for (const auto& c : cases) {
        CAPTURE(c.client.width);
        CAPTURE(c.rows);
        const UcListLayout layout = LayoutOf(c.client, c.rows);
        CHECK(layout.vertical.visible == c.vertical);
        CHECK(layout.horizontal.visible == c.horizontal);
        CHECK(layout.visibleRows == c.visibleRows);
        CHECK(layout.corner.empty() == !(c.vertical && c.horizontal));
    }
    CHECK(LayoutOf({0, 0}, 10).visibleRows == 0);
}

TEST_CASE("rows and columns lie where they always did, and scrolling stops at both ends") {
    const UcListLayout layout = LayoutOf({300, 200}, 50, 3, -20);
    // The item area begins at 20; row r is the 17 pixels that end at, and include, 20 + 17 * (r + 1).
    CHECK(layout.RowRect(0).top == 21);
    CHECK(layout.RowRect(4).bottom - 1 == 20 + 17 * 5);
    CHECK(layout.columns[0] == Rect{-20, 0, 114, 20});
    CHECK(layout.columns[1].left == 114);
    CHECK(layout.ColumnsRight() == 426);
    // With whole pixels counted, the last column ends one pixel before the item area does.
    CHECK(LayoutOf({300, 200}, 50, 0, -9999).ColumnsRight() == 283 - 1);
    CHECK(LayoutOf({300, 200}, 50, 0, 50).offset == 0);
    CHECK(LayoutOf({300, 200}, 50, 9999).topIndex == 50 - layout.visibleRows);
    CHECK(LayoutOf({300, 200}, 50, -5).topIndex == 0);
    CHECK(LayoutOf({600, 200}, 50, 0, -30).offset == 0);
}

TEST_CASE("the hit test finds what is painted") {
    for (const Size size : {Size{600, 400}, Size{463, 191}, Size{300, 200}, Size{100, 120}}) {
        for (const int scrolled : {0, 7, 1000}) {
            CAPTURE(size.width);
            CAPTURE(scrolled);
            const UcListLayout layout = LayoutOf(size, 100, scrolled, -scrolled * 3);
            for (const UcListBar* bar : {&layout.vertical, &layout.horizontal}) {
                const int zone = bar == &layout.vertical ? kZoneUp : kZoneLeft;
                for (int part = kFirstArrow; bar->visible && part <= kThumb; ++part) {
                    const Rect& area = bar->part[static_cast<std::size_t>(part)];
                    if (!area.empty()) CHECK(HitAll(layout, area).zone == zone + part);
                }
            }
            for (int slot = 0; slot < layout.Slots(); ++slot) {
                const Rect seen = layout.RowRect(slot).intersect(layout.itemArea);
                if (seen.empty()) continue;
                const UcListHit hit = HitAll(layout, seen);
                CHECK(hit.zone == kZoneItems);
                CHECK(hit.row == layout.topIndex + slot);
            }
            for (int column = 0; column < 6; ++column) {
                const Rect cell = layout.columns[static_cast<std::size_t>(column)];
                CHECK(HitTest(layout, cell.origin()).column == column);
                const Rect seen = layout.CellRect(0, column).intersect(layout.itemArea);
                if (!seen.empty()) CHECK(HitTest(layout, {seen.right - 1, seen.top}).column == column);
            }
            CHECK(HitTest(layout, layout.corner.origin()).zone ==
                  (layout.corner.empty() ? kZoneHeader : kZoneNothing));
        }
    }
    CHECK(HitTest(LayoutOf({600, 400}, 5), {500, 100}).column == -1);  // right of the last one
    CHECK(HitTest(LayoutOf({600, 400}, 5), {500, 5}).zone == kZoneNothing);
    CHECK(HitTest(LayoutOf({600, 400}, 0), {50, 100}).zone == kZoneNothing);
}

TEST_CASE("thumbs show the position, lie above their track, and dragging them gives the position back") {
    for (int top = 0; top <= 90; ++top) {
        const UcListLayout layout = LayoutOf({463, 191}, 100, top);
        const auto& part = layout.vertical.part;
        CHECK(part[kThumb].height() >= kUcListMinThumb);
        CHECK(part[kThumb].intersect(part[kTrack]) == part[kThumb]);
        CHECK((part[kThumb].top == part[kTrack].top) == (top == 0));
        CHECK((part[kThumb].bottom == part[kTrack].bottom) == (top == 90));
        CHECK(HitTest(layout, part[kThumb].origin()).zone == kZoneVerticalThumb);
        CHECK(TopIndexOfThumb(layout, part[kThumb].top) == top);
    }
    const UcListLayout layout = LayoutOf({300, 200}, 100, 0, -50);
    CHECK(TopIndexOfThumb(layout, -500) == 0);
    CHECK(OffsetOfThumb(layout, -500) == 0);
}

TEST_CASE("a column is sized from the last pixels of its header cell") {
    const UcListLayout layout = LayoutOf({600, 200}, 5);
    const std::pair<platform::Point, int> cases[] = {{{133, 5}, 0},  {{130, 5}, 0},   {{129, 5}, -1},
                                                     {{134, 5}, -1}, {{133, 25}, -1}, {{445, 5}, 5}};
    for (const auto& [at, column] : cases) CHECK(SizingColumn(layout, at) == column);
}
