#include "controls/UcListGeometry.h"

#include <doctest/doctest.h>

using namespace controls;
using platform::Point;
using platform::Rect;

namespace {

constexpr int kWidths[] = {134, 82, 60, 40, 60, 70, 0};  // 446 in all

UcListLayout LayoutOf(platform::Size client, int rows, int topIndex = 0, int offset = 0) {
    UcListMetrics metrics;
    metrics.client = client;
    metrics.headerHeight = 20;
    metrics.widths = kWidths;
    metrics.columnCount = 7;
    metrics.drawnColumns = 6;
    metrics.listCount = rows;
    metrics.topIndex = topIndex;
    metrics.offset = offset;
    UcListLayout layout;
    pvListInit(metrics, layout);
    return layout;
}

// What painting covers at a point, found without the hit test.
int ZonePaintedAt(const UcListLayout& layout, Point at) {
    for (const Rect& cell : layout.columns) {
        if (cell.contains(at)) return kZoneHeader;
    }
    const int order[] = {kFirstArrow, kSecondArrow, kThumb, kTrack};
    for (const int part : order) {
        const auto index = static_cast<std::size_t>(part);
        if (layout.vertical.visible && layout.vertical.part[index].contains(at)) return kZoneUp + part;
        if (layout.horizontal.visible && layout.horizontal.part[index].contains(at)) return kZoneLeft + part;
    }
    return layout.listCount > 0 && layout.itemArea.contains(at) ? kZoneItems : kZoneNothing;
}

}  // namespace

TEST_CASE("bars appear only when needed, and each takes its room from the other") {
    struct Case {
        platform::Size client;
        int rows;
        bool vertical, horizontal;
        int visibleRows;
    };
    const Case cases[] = {
        {{446, 191}, 10, false, false, 10},  // all fits to the pixel
        {{446, 191}, 11, true, true, 9},     // the vertical bar makes the columns too wide
        {{463, 191}, 11, true, false, 10},  {{445, 191}, 9, false, true, 9},
        {{445, 191}, 10, true, true, 9},  // the horizontal bar takes the last row
        {{446, 190}, 10, true, true, 8},    {{0, 0}, 10, false, false, 0},
        {{30, 25}, 10, true, true, 0},
    };
    for (const Case& c : cases) {
        CAPTURE(c.client.width);
        CAPTURE(c.client.height);
        CAPTURE(c.rows);
        const UcListLayout layout = LayoutOf(c.client, c.rows);
        if (c.client.width > 0) CHECK(layout.vertical.visible == c.vertical);
        if (c.client.width > 0) CHECK(layout.horizontal.visible == c.horizontal);
        CHECK(layout.visibleRows == c.visibleRows);
        CHECK(layout.corner.empty() == !(c.vertical && c.horizontal));
    }
}

TEST_CASE("rows and columns lie where they always did") {
    const UcListLayout layout = LayoutOf({300, 200}, 50, 3, -20);
    // The item area begins at 20; row r is the 17 pixels that end at, and include, 20 + 17 * (r + 1).
    CHECK(layout.RowRect(0).top == 21);
    CHECK(layout.RowRect(4).bottom - 1 == 20 + 17 * 5);
    CHECK(layout.columns[0] == Rect{-20, 0, 114, 20});
    CHECK(layout.columns[1].left == 114);
    CHECK(layout.ColumnsRight() == 426);

    SUBCASE("scrolling stops at both ends") {
        // With whole pixels counted, the last column ends one pixel before the item area does.
        CHECK(LayoutOf({300, 200}, 50, 0, -9999).ColumnsRight() == 283 - 1);
        CHECK(LayoutOf({300, 200}, 50, 0, 50).offset == 0);
        CHECK(LayoutOf({300, 200}, 50, 9999).topIndex == 50 - layout.visibleRows);
        CHECK(LayoutOf({300, 200}, 50, -5).topIndex == 0);
        CHECK(LayoutOf({600, 200}, 50, 0, -30).offset == 0);
    }
}

TEST_CASE("the hit test finds what is painted, at every pixel") {
    const platform::Size sizes[] = {{600, 400}, {463, 191}, {300, 200}, {120, 90}, {60, 64}, {20, 30}, {5, 5}};
    for (const platform::Size size : sizes) {
        for (const int rows : {0, 1, 10, 100}) {
            for (const int scrolled : {0, 7, 1000}) {
                const UcListLayout layout = LayoutOf(size, rows, scrolled, -scrolled * 3);
                int wrong = 0;
                for (int y = -1; y <= size.height; ++y) {
                    for (int x = -1; x <= size.width; ++x) {
                        const UcListHit hit = HitTest(layout, {x, y});
                        if (hit.zone != ZonePaintedAt(layout, {x, y})) ++wrong;
                        if (hit.zone != kZoneItems || y == layout.itemArea.top) continue;
                        const int slot = hit.row - layout.topIndex;
                        if (slot >= layout.Slots() || !layout.RowRect(slot).contains({x, y})) ++wrong;
                        const bool right = x >= layout.ColumnsRight();
                        if (right != (hit.column < 0)) ++wrong;
                        if (!right && !layout.CellRect(slot, hit.column).contains({x, y})) ++wrong;
                    }
                }
                CAPTURE(size.width);
                CAPTURE(rows);
                CAPTURE(scrolled);
                CHECK(wrong == 0);
            }
        }
    }
}

TEST_CASE("thumbs show the position, and dragging them gives it back") {
    for (const int top : {0, 1, 45, 89, 90}) {
        const UcListLayout layout = LayoutOf({463, 191}, 100, top);
        const auto& part = layout.vertical.part;
        CHECK(part[kThumb].height() >= kUcListMinThumb);
        CHECK(part[kThumb].top >= part[kFirstArrow].bottom);
        CHECK(part[kThumb].bottom <= part[kSecondArrow].top);
        CHECK(TopIndexOfThumb(layout, part[kThumb].top) == doctest::Approx(top).epsilon(0.02));
        if (top == 0) CHECK(part[kThumb].top == part[kTrack].top);
        if (top == 90) CHECK(part[kThumb].bottom == part[kTrack].bottom);
    }
    const UcListLayout layout = LayoutOf({300, 200}, 100, 0, -50);
    CHECK(TopIndexOfThumb(layout, -500) == 0);
    CHECK(TopIndexOfThumb(layout, 5000) == layout.maxTopIndex);
    CHECK(OffsetOfThumb(layout, -500) == 0);
    CHECK(OffsetOfThumb(layout, 5000) == layout.minOffset);
    CHECK(OffsetOfThumb(layout, layout.horizontal.part[kThumb].left) == doctest::Approx(-50).epsilon(0.1));
}

TEST_CASE("a column is sized from the last pixels of its header cell") {
    const UcListLayout layout = LayoutOf({600, 200}, 5);
    CHECK(SizingColumn(layout, {133, 5}) == 0);
    CHECK(SizingColumn(layout, {130, 5}) == 0);
    CHECK(SizingColumn(layout, {129, 5}) == -1);
    CHECK(SizingColumn(layout, {134, 5}) == -1);
    CHECK(SizingColumn(layout, {133, 25}) == -1);
    CHECK(SizingColumn(layout, {445, 5}) == 5);
}
