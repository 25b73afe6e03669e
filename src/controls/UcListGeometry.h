// Where everything of a list lies: pure functions from sizes and positions to rectangles. Painting, hit testing and
// invalidation all ask here; nobody else computes a rectangle of the list.
#pragma once

#include <array>
#include <vector>

#include "platform/Geometry.h"

namespace controls {

inline constexpr int kUcListRowHeight = 17;
inline constexpr int kUcListBarSize = 17;    // thickness of a scroll bar and length of its arrows, as the desktop's
inline constexpr int kUcListMinThumb = 12;   // a thumb stays large enough to be caught
inline constexpr int kUcListTextMargin = 5;  // left and right of a cell's text
inline constexpr int kUcListSizeMargin = 3;  // width of the zone at a header cell's right edge that sizes it

// What the layout depends on.
struct UcListMetrics {
    platform::Size client;
    int headerHeight = 0;
    const int* widths = nullptr;  // shown width of each column
    int columnCount = 0;
    int drawnColumns = 0;
    int listCount = 0;
    int topIndex = 0;
    int offset = 0;  // left edge of column 0 as wished, 0 or negative
};

enum UcListPart : int { kFirstArrow = 0, kSecondArrow = 1, kThumb = 2, kTrack = 3 };

// A scroll bar. `part` is indexed by UcListPart; the track reaches from arrow to arrow, under the thumb.
struct UcListBar {
    bool visible = false;
    platform::Rect area;
    std::array<platform::Rect, 4> part;
    friend bool operator==(const UcListBar&, const UcListBar&) = default;
};

struct UcListLayout {
    platform::Size client;
    platform::Rect header;                // the whole band, also right of the last column
    platform::Rect itemArea;              // its first pixel line separates header and rows
    platform::Rect corner;                // between the two bars; empty unless both are shown
    std::vector<platform::Rect> columns;  // header cells
    int drawnColumns = 0;
    int totalWidth = 0;   // pixels of all columns
    int offset = 0;       // left edge of column 0 after clamping
    int minOffset = 0;    // scrolled to the right end
    int visibleRows = 0;  // rows that fit whole
    int topIndex = 0;
    int maxTopIndex = 0;
    int listCount = 0;
    UcListBar vertical, horizontal;

    // Slots that show a row, the last one perhaps in part: row r of the visible area is display row topIndex + r.
    int Slots() const;
    platform::Rect RowRect(int slot) const;  // over the width of the item area; not clipped at its bottom
    platform::Rect CellRect(int slot, int column) const;
    int ColumnsRight() const;  // first pixel right of the last column
};

// Zones of the hit test.
enum UcListZone : int {
    kZoneUp = 1,
    kZoneDown = 2,
    kZoneVerticalThumb = 3,
    kZoneVerticalTrack = 4,
    kZoneLeft = 5,
    kZoneRight = 6,
    kZoneHorizontalThumb = 7,
    kZoneHorizontalTrack = 8,
    kZoneHeader = 9,
    kZoneItems = 10,
    kZoneNothing = 11,
};

struct UcListHit {
    int zone = kZoneNothing;
    int column = -1;  // header and items; -1 right of the last column
    int row = -1;     // display row for items; may be ListCount or more below the last row
};

// Lays out everything; `layout` is reused so that its memory is.
void pvListInit(const UcListMetrics& metrics, UcListLayout& layout);
// Decides on the scroll bars, and what they leave for the rows.
void pvListRect(const UcListMetrics& metrics, UcListLayout& layout);
// Header cells from the horizontal offset on.
void pvHeaderRect(const UcListMetrics& metrics, UcListLayout& layout);

UcListHit HitTest(const UcListLayout& layout, platform::Point at);
// The drawn column whose width is dragged from here; -1 when the point is at no cell's right edge.
int SizingColumn(const UcListLayout& layout, platform::Point at);
// TopIndex and horizontal offset for a thumb whose first pixel is dragged to `position`.
int TopIndexOfThumb(const UcListLayout& layout, int position);
int OffsetOfThumb(const UcListLayout& layout, int position);

}  // namespace controls
