#include "controls/UcListPaint.h"

#include <algorithm>

#include "controls/Contrast.h"

namespace controls {

using platform::Color;
using platform::Point;
using platform::Rect;

namespace {

constexpr Color kBlack = 0;
constexpr Color kWhite = 0xFFFFFF;
constexpr int kIconGap = 18;                // what the text moves for the icon
constexpr int kSortMarkRoom = 12;           // what the caption leaves for the sort mark
constexpr int kPaleSelection = 35;          // percent of the highlight in a selection without the focus
constexpr std::size_t kMaxDrawnText = 512;  // bytes; more cannot be seen and costs time to measure

// One string of pixel rows for each direction: up, down, left, right.
constexpr std::string_view kArrows[] = {
    "0001000,0011100,0111110,1111111",
    "1111111,0111110,0011100,0001000",
    "0001,0011,0111,1111,0111,0011,0001",
    "1000,1100,1110,1111,1110,1100,1000",
};

unsigned AlignFormat(int align) {
    if (align == kAlignRight) return platform::kTextRight;
    return align == kAlignCenter ? platform::kTextCenter : platform::kTextLeft;
}

platform::Font FontOf(bool bold) {
    return bold ? platform::Font::Bold : platform::Font::Normal;
}

constexpr unsigned kCellFormat =
    platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix | platform::kTextWordEllipsis;

// Black, the colour of columns that name none, follows the desktop while the ground does.
Color Readable(Color color, bool desktop, Color desktopColor) {
    return desktop && color == kBlack ? desktopColor : color;
}

}  // namespace

void UcListPaint::pvDrawFilledRect(const Rect& area, Color color) {
    if (!area.empty()) canvas_.fill(area, color);
}

void UcListPaint::pvDrawLine(Point from, Point to, Color color) {
    canvas_.line(from, to, color);
}

// ---- header ----

void UcListPaint::pvHeaderDraw() {
    const Rect& band = view_.layout.header;
    if (band.empty() || !canvas_.needsPaint(band)) return;
    const platform::ClipGuard clip(canvas_, band);  // one that is low has no room for all of it
    const Color ground = view_.look.headerBack;
    if (view_.look.headerDrawStyle >= 4) {
        canvas_.gradient(band, Mix(ground, kWhite, 70), ground, platform::Direction::Vertical);
    } else {
        pvDrawFilledRect(band, ground);
    }
    for (int i = 0; i < view_.layout.drawnColumns; ++i) pvHeaderCellDraw(i);
    pvDrawLine({band.left, band.bottom - 1}, {band.right, band.bottom - 1}, Mix(ground, kBlack, 22));
}

void UcListPaint::pvHeaderCellDraw(int column) {
    const Rect& cell = view_.layout.columns[static_cast<std::size_t>(column)];
    if (!canvas_.needsPaint(cell)) return;
    const UcListColumn& header = view_.model.Column(column);
    const UcListLook& look = view_.look;
    const bool pressed = look.pressedColumn == column;
    if (pressed) pvDrawFilledRect(cell, Mix(look.headerBack, kBlack, 12));
    pvDrawLine({cell.right - 1, cell.top + 3}, {cell.right - 1, cell.bottom - 4}, Mix(look.headerBack, kBlack, 22));

    const Color color = Readable(header.headerTextColor, look.desktopHeaderText, look.headerText);
    Rect text = cell.inset(kUcListTextMargin, 0).offset(pressed ? 1 : 0, pressed ? 1 : 0);
    if (header.sorted) {
        pvSortMarkDraw(cell, header.ascending, color);
        text.right -= kSortMarkRoom;
    }
    if (text.empty()) return;
    const std::string_view caption(header.caption);
    canvas_.text(text, caption.substr(0, kMaxDrawnText), color, FontOf(header.headerTextBold),
                 kCellFormat | AlignFormat(header.headerTextAlign));
}

// A triangle of seven by four pixels at the right end of the cell, pointing up when ascending.
void UcListPaint::pvSortMarkDraw(const Rect& cell, bool ascending, Color color) {
    const int left = cell.right - kUcListTextMargin - 7;
    if (left <= cell.left) return;
    const int top = cell.top + (cell.height() - 4) / 2;
    for (int row = 0; row < 4; ++row) {
        const int half = ascending ? row : 3 - row;
        pvDrawLine({left + 3 - half, top + row}, {left + 4 + half, top + row},
                   Mix(color, view_.look.headerBack, 30));
    }
}

// ---- rows ----

void UcListPaint::pvListDraw() {
    const UcListLayout& layout = view_.layout;
    const Rect& area = layout.itemArea;
    if (area.empty() || !canvas_.needsPaint(area)) return;
    const platform::ClipGuard clip(canvas_, area);
    pvDrawFilledRect({area.left, area.top, area.right, area.top + 1}, view_.look.back);
    const int slots = layout.Slots();
    for (int slot = 0; slot < slots; ++slot) pvItemDraw(slot);
    if (slots == 0) pvDrawFilledRect(area, view_.look.back);
    // Whatever is selected or scrolled out of sight, the user sees which list the keys go to.
    if (view_.look.focused) canvas_.frame(area, pvFrameColor());
}

Color UcListPaint::pvFrameColor() const {
    return Distinct(view_.look.back, {view_.look.highlight, view_.look.text}, kLineContrast);
}

// The ground of a row.
Color UcListPaint::pvGround(bool selected) const {
    const UcListLook& look = view_.look;
    if (!selected) return look.back;
    switch (look.selection) {
        case UcListSelection::Solid:
            return look.highlight;
        case UcListSelection::Pale:
            return Mix(look.back, look.highlight, kPaleSelection);
        case UcListSelection::Framed:
            break;
    }
    return look.back;
}

void UcListPaint::pvItemDraw(int slot) {
    const UcListLayout& layout = view_.layout;
    const Rect row = layout.RowRect(slot);
    if (!canvas_.needsPaint(row)) return;
    const int displayRow = layout.topIndex + slot;
    if (displayRow >= layout.listCount) {
        pvDrawFilledRect(row, view_.look.back);
        return;
    }
    const bool selected = view_.model.Selected(displayRow);
    const int right = std::min(row.right, layout.ColumnsRight());
    const Rect columns{row.left, row.top, right, row.bottom};
    pvDrawFilledRect(columns, pvGround(selected));
    pvDrawFilledRect({right, row.top, row.right, row.bottom}, view_.look.back);
    for (int i = 0; i < layout.drawnColumns; ++i) pvCellDraw(slot, i, selected);
    if (selected && view_.look.selection == UcListSelection::Framed) canvas_.frame(columns, pvFrameColor());
    if (view_.look.focused && view_.look.focusRow == displayRow && !columns.empty()) canvas_.focusRect(columns);
}

void UcListPaint::pvCellDraw(int slot, int column, bool selected) {
    const Rect cell = view_.layout.CellRect(slot, column);
    if (!canvas_.needsPaint(cell)) return;
    const int row = view_.layout.topIndex + slot;
    const UcListLook& look = view_.look;
    Rect text = cell.inset(kUcListTextMargin, 0);
    if (column == 0 && look.icons && drawIcon_) {
        const platform::ClipGuard clip(canvas_, cell);
        drawIcon_(canvas_, {text.left - 3, cell.top + 1}, row);
        text.left += kIconGap;
    }
    const std::string_view content(view_.model.CellText(row, column));
    if (text.empty() || content.empty()) return;
    const UcListColumn& format = view_.model.Column(column);
    const Color plain = Readable(format.listTextColor, look.desktopText, look.text);
    Color color = plain;
    if (selected && look.selection == UcListSelection::Solid) color = look.highlightText;
    if (selected && look.selection == UcListSelection::Pale) {
        color = Distinct(pvGround(selected), {plain, look.highlightText}, kTextContrast);
    }
    canvas_.text(text, content.substr(0, kMaxDrawnText), color, FontOf(format.listTextBold),
                 kCellFormat | AlignFormat(format.listTextAlign));
}

// ---- scroll bars ----

void UcListPaint::pvScrollbarDraw() {
    const UcListLayout& layout = view_.layout;
    pvBarDraw(layout.vertical, kZoneUp, 0);
    pvBarDraw(layout.horizontal, kZoneLeft, 2);
    if (!layout.corner.empty() && canvas_.needsPaint(layout.corner)) {
        pvDrawFilledRect(layout.corner, view_.look.bar);
    }
}

// Arrows and thumb lie on the track; styles up to 3 show them raised, later ones flat.
void UcListPaint::pvBarDraw(const UcListBar& bar, int firstZone, int firstArrow) {
    if (!bar.visible || !canvas_.needsPaint(bar.area)) return;
    const bool raised = view_.look.scrollbarDrawStyle < 4;
    const Color ground = raised ? Mix(view_.look.bar, kWhite, 40) : view_.look.bar;
    const auto isPressed = [&](int part) { return view_.look.pressedZone == firstZone + part; };
    pvDrawFilledRect(bar.area, ground);
    if (isPressed(kTrack)) pvDrawFilledRect(bar.part[kTrack], Mix(ground, kBlack, 8));
    for (int arrow = 0; arrow < 2; ++arrow) {
        const Rect& area = bar.part[static_cast<std::size_t>(arrow)];
        pvButtonDraw(area, isPressed(arrow), raised ? view_.look.bar : ground);
        pvArrowDraw(area, firstArrow + arrow, isPressed(arrow));
    }
    const Rect& thumb = bar.part[kThumb];
    pvButtonDraw(thumb, isPressed(kThumb), raised ? view_.look.bar : Mix(view_.look.bar, kBlack, 17));
}

void UcListPaint::pvButtonDraw(const Rect& area, bool pressed, Color color) {
    if (area.empty()) return;
    pvDrawFilledRect(area, pressed ? Mix(color, kBlack, 25) : color);
    if (view_.look.scrollbarDrawStyle < 4) {
        canvas_.edge(area, pressed ? platform::Edge::SunkenInner : platform::Edge::RaisedInner);
    }
}

// The glyph is centred in its button; a pressed one moves by a pixel. Columns count from 1, and the height is taken
// one row short: the glyph keeps the place it has always had.
void UcListPaint::pvArrowDraw(Rect area, int direction, bool pressed) {
    if (pressed) area = area.offset(1, 1);
    const std::string_view pattern = kArrows[direction];
    const auto rowLength = static_cast<int>(pattern.find(','));
    const auto rows = static_cast<int>(std::count(pattern.begin(), pattern.end(), ',')) + 1;
    const int x0 = area.left + (area.width() - rowLength) / 2;
    const int y0 = area.top + (area.height() - (rows - 1)) / 2;
    for (int row = 0; row < rows; ++row) {
        for (int i = 1; i <= rowLength; ++i) {
            const bool set = pattern[static_cast<std::size_t>(row * (rowLength + 1) + i - 1)] == '1';
            const Point at{x0 + i, y0 + row};
            if (set && area.contains(at)) canvas_.pixel(at, kBlack);
        }
    }
}

}  // namespace controls
