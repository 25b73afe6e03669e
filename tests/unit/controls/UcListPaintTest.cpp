// What a list puts on the screen, and what it leaves alone.
#include <algorithm>

#include "UcListFixture.h"
#include "controls/Contrast.h"

using namespace controls;
using namespace platform;
using test::ListFixture;
using test::ProcessRow;

namespace {

struct PaintedList : ListFixture {
    const sim::Drawn* FindText(const std::string& text) {
        texts = Painted("text");
        const auto found = std::ranges::find(texts, text, &sim::Drawn::text);
        return found == texts.end() ? nullptr : &*found;
    }
    // Its focus rectangle; empty for none.
    Rect Focus() {
        const auto drawn = Painted("focus");
        return drawn.empty() ? Rect{} : drawn[0].area;
    }
    // What the process list does twice a second.
    void Refill(int rows, int selected, const std::function<std::string(int)>& row, int sortColumn = 0) {
        const int top = list.TopIndex();
        list.SetLocked(true);
        list.Clear();
        for (int i = 0; i < rows; ++i) list.AddItem(row(i));
        list.SortCol(sortColumn, true);
        list.SelectItem(selected, true);
        list.SetTopIndex(top);
        list.SetVertBarPos(top);
        list.SetLocked(false);
    }

    std::vector<sim::Drawn> texts;
};

std::string Same(int i) {
    return ProcessRow(i);
}

}  // namespace

TEST_CASE_FIXTURE(PaintedList, "cells are drawn inside their columns with their format") {
    Fill(3);
    list.SetList(0, 0, std::string(100000, 'w'));  // what can't be seen is cut before it is drawn
    constexpr unsigned kFormat = kTextSingleLine | kTextNoPrefix | kTextWordEllipsis;
    const UcListLayout& layout = list.Layout();
    for (const sim::Drawn& text : Painted("text")) {
        CAPTURE(text.text);
        CHECK(std::ranges::any_of(layout.columns, [&](const Rect& column) {
            return text.area.left >= column.left + 5 && text.area.right <= column.right - 5;
        }));
        CHECK((text.format & kFormat) == kFormat);
        CHECK(text.text.size() <= 512);
    }
    REQUIRE(FindText("Name01") != nullptr);
    CHECK(FindText("Name01")->area == Rect{5, 38, 129, 55});
    CHECK(FindText("Name01")->font == Font::Bold);
    REQUIRE(FindText("1,002") != nullptr);
    CHECK((FindText("1,002")->format & kTextRight) != 0);
    CHECK(FindText("900") == nullptr);  // hidden
    CHECK(FindText("CPU %") != nullptr);

    // An icon moves the text of the first column.
    std::vector<int> rows;
    list.DrawIcon = [&](Canvas& canvas, Point at, int row) {
        rows.push_back(row);
        CHECK(at == Point{2, 21 + 17 * row + 1});
        canvas.icon(at, 900, 16);
    };
    CHECK(FindText("Name01")->area.left == 23);
    CHECK(rows == std::vector<int>{0, 1, 2});

    // The sort mark and the caption keep clear of each other.
    list.SortCol(5, true);
    const Rect caption = FindText("Mem(KB)")->area;
    auto marks = Painted("line");
    const Rect cell = layout.columns[5].inset(2, 4);  // without the cell's own edges
    std::erase_if(marks, [&](const sim::Drawn& line) { return !line.area.intersects(cell); });
    CHECK(marks.size() == 4);
    for (const sim::Drawn& line : marks) CHECK((line.area.left >= caption.right && line.area.right <= cell.right));
}

TEST_CASE_FIXTURE(PaintedList, "rows show selection and focus in the desktop's colours") {
    sim::setSystemColor(SysColor::Highlight, 0x123456);
    Fill(5);
    sim::click(list, Cell(2, 0));
    const int selected = Cell(2, 0).y;
    CHECK(PixelAt(60, selected) == 0x123456);
    CHECK(PixelAt(60, selected - 17) == 0xFFFFFF);
    CHECK(PixelAt(450, selected) == 0xFFFFFF);  // right of the columns
    CHECK(FindText("Name02")->color == list.HighlightTextColor());
    CHECK(FindText("Name01")->color == 0);
    CHECK(Focus() == Rect{0, 55, 446, 72});
    list.SetBackColor(0x00FF00);  // colours that the host chose are kept
    list.SetHighlightColor(0x0000FF);
    CHECK(PixelAt(60, selected) == 0x0000FF);
    CHECK(PixelAt(60, selected - 17) == 0x00FF00);
}

TEST_CASE_FIXTURE(PaintedList, "a list shows whether the keys go to it") {
    Fill(5);
    const Point edge{445, 21 + 17 * 8};  // right of the columns, below the rows
    const auto frame = [&] { return PixelAt(0, edge.y); };
    const int row = Cell(2, 0).y;
    CHECK(frame() == list.BackColor());
    list.focus();
    CHECK(frame() == systemColor(SysColor::Highlight));  // with nothing selected
    list.Clear();
    CHECK(frame() == systemColor(SysColor::Highlight));
    Fill(5);
    list.SelectItem(2, true);
    list.ReDraw();
    const Color solid = PixelAt(60, row);
    form.focus();
    CHECK(Focus().empty());
    CHECK(frame() == list.BackColor());

    // Without the focus the selection is pale, and its text can be read whatever the colours.
    for (const Color back : {0xFFFFFFU, 0x000000U, 0x808080U, 0x00FFFFU}) {
        for (const Color highlight : {0x800000U, 0xFFFFFFU, 0x808080U, 0x00D7FFU}) {
            CAPTURE(back);
            CAPTURE(highlight);
            list.SetBackColor(back);
            list.SetHighlightColor(highlight);
            const Color ground = PixelAt(60, row);
            CHECK(ground != solid);
            CHECK((ground == back) == (highlight == back));
            CHECK(Contrast(ground, FindText("Name02")->color) >= kTextContrast);
        }
    }
    sim::setHighContrast(true);
    list.SetBackColor(0);
    list.SetHighlightColor(0x00FFFF);
    CHECK(PixelAt(60, row) == 0);
    CHECK(PixelAt(0, row) == list.HighlightColor());
    CHECK(PixelAt(0, row + 17) == 0);
    list.focus();
    CHECK(PixelAt(60, row) == list.HighlightColor());
}

TEST_CASE_FIXTURE(PaintedList, "every invalid pixel is covered at any size and position") {
    Fill(40);
    for (const Size size : {Size{470, 191}, Size{300, 200}, Size{90, 75}, Size{12, 15}, Size{600, 480}}) {
        list.setBounds(Rect::fromSize({0, 0}, size));
        for (const int top : {0, 13, 40}) {
            list.SetTopIndex(top);
            sim::paint(list, true);
            int bare = 0;
            for (int i = 0; i < size.width * size.height; ++i) {
                bare += sim::pixelAt(list, {i % size.width, i / size.width}) == sim::kUnpainted ? 1 : 0;
            }
            CAPTURE(size.width);
            CHECK(bare == 0);
        }
    }
}

TEST_CASE_FIXTURE(PaintedList, "arrow glyphs have their sixteen pixels, and move when pressed") {
    Fill(40);
    // 17 by 17 at (453, 20): the glyph begins one pixel right of (17 - 7) / 2, and at (17 - 3) / 2.
    for (Rect box : {Rect{459, 27, 466, 31}, Rect{460, 28, 467, 32}}) {
        auto pixels = Painted("pixel");
        std::erase_if(pixels, [&](const sim::Drawn& pixel) { return pixel.area.intersect(box) != pixel.area; });
        CHECK(pixels.size() == 16);
        sim::mouseDown(list, {460, 30});
    }
}

TEST_CASE_FIXTURE(PaintedList, "a refill invalidates only what looks different") {
    Fill(100);
    list.focus();
    list.SetTopIndex(2);
    Refill(100, 3, Same);
    sim::run(20);
    const auto row = [this](int number) { return list.Layout().RowRect(number - 2); };
    const struct {
        const char* what;
        int selected, sortColumn;
        std::function<std::string(int)> cells;
        Rect invalid;
    } cases[] = {
        {"nothing", 3, 0, Same, {}},
        {"out of sight", 3, 0, [](int i) { return ProcessRow(i, i > 60 ? "77" : "05"); }, {}},
        {"one cell", 3, 0, [](int i) { return ProcessRow(i, i == 5 ? "77" : "05"); }, list.CellRect(5, 4)},
        {"a hidden cell: another icon", 3, 0, [](int i) { return ProcessRow(i) + (i == 5 ? "1" : ""); }, row(5)},
        {"the sort mark", 3, 5, Same, list.Layout().header},
        {"the selection, and the focus rectangle with it",
         6,
         0,
         Same,
         {0, row(3).top, row(6).right, row(6).bottom}},
    };
    for (const auto& one : cases) {
        CAPTURE(one.what);
        Refill(100, 3, Same);
        sim::paint(list);
        Refill(100, one.selected, one.cells, one.sortColumn);
        CHECK(sim::invalidArea(list) == one.invalid);
        CHECK(list.TopIndex() == 2);
        CHECK(list.CurrentRow() == one.selected);
        const auto drawn = sim::paint(list);
        if (one.invalid == list.CellRect(5, 4)) CHECK(std::ranges::count(drawn, "text", &sim::Drawn::what) == 1);
    }
    Refill(5, 3, Same);  // a bar goes
    CHECK(sim::invalidArea(list).height() == list.clientSize().height);
    CHECK(list.TopIndex() == 0);
}

TEST_CASE_FIXTURE(PaintedList, "a list that is created again starts empty") {
    Fill(40);
    sim::mouseDown(list, Part(&UcListLayout::vertical, kSecondArrow));  // the repaint for it waits
    list.SetLocked(true);
    const Rect bounds = list.bounds();
    list.destroy();
    REQUIRE(list.Create(form, "Control1", bounds));
    CHECK_FALSE(list.Locked());
    CHECK(list.ListCount() == 0);
    Fill(40);
    const auto drawn = sim::drawCount();
    list.SetTopIndex(7);
    sim::run(1000);
    CHECK(list.TopIndex() == 7);
    CHECK(sim::drawCount() > drawn);
}

TEST_CASE_FIXTURE(PaintedList, "a paint amid a change is made good afterwards") {
    Fill(100);
    list.focus();
    list.SetTopIndex(2);
    Refill(100, 3, Same);
    sim::run(20);
    SUBCASE("a refill") {
        list.SetLocked(true);
        list.Clear();
        list.AddItem(ProcessRow(0));
        CHECK(Painted("text").size() == 6 + 6);
        Refill(100, 3, Same);
        const auto drawn = sim::paint(list);
        CHECK(std::ranges::count(drawn, "text", &sim::Drawn::what) > 6 * 9);
        CHECK(sim::pixelAt(list, Cell(3, 5)) == systemColor(SysColor::Highlight));
    }
    SUBCASE("scrolling, which waits") {
        list.SetTopIndex(3);
        list.invalidate(list.Layout().RowRect(0));
        CHECK(PixelAt(300, 30) == systemColor(SysColor::Highlight));  // row 0 shows the selected row 3 now
        list.SetTopIndex(2);
        sim::run(20);
        CHECK(sim::pixelAt(list, {300, 30}) == 0xFFFFFF);
    }
}

TEST_CASE_FIXTURE(ListFixture, "each property that is set is kept within bounds, named once, and shown at once") {
    Fill(40);
    std::string keys;
    list.PropertyChanged = [&](std::string_view key) { keys += key; };
    const auto change = [&](std::string_view key, auto set, auto get, auto value, auto kept) {
        CAPTURE(key);
        CAPTURE(value);
        keys.clear();
        sim::paint(list);
        (list.*set)(value);
        CHECK((list.*get)() == kept);
        CHECK(keys == key);
        CHECK_FALSE(sim::invalidArea(list).empty());
    };
    using List = UcList1;
    constexpr Color kAny = 0x123456;
    change("lstBackColor", &List::SetBackColor, &List::BackColor, kAny, kAny);
    change("lstHighlightTextColor", &List::SetHighlightTextColor, &List::HighlightTextColor, kAny, kAny);
    change("lstHighlightColor", &List::SetHighlightColor, &List::HighlightColor, kAny, kAny);
    change("m_lHeaderBackColor", &List::SetHeaderBackColor, &List::HeaderBackColor, kAny, kAny);
    change("m_lScrollbarColor", &List::SetScrollBarColor, &List::ScrollBarColor, kAny, kAny);
    for (const auto& [style, kept] : {std::pair{99, 7}, std::pair{-1, 0}, std::pair{5, 5}}) {
        change("HeaderDrawStyle", &List::SetHeaderDrawStyle, &List::HeaderDrawStyle, style, kept);
        change("m_lScrollbarDrawStyle", &List::SetScrollbarDrawStyle, &List::ScrollbarDrawStyle, style, kept);
    }
    for (const auto& [height, kept] : {std::pair{999, 200}, std::pair{-1, 0}, std::pair{24, 24}}) {
        change("m_lHeaderHeight", &List::SetHeaderHeight, &List::HeaderHeight, height, kept);
    }

    list.SetColumnIndex(1);
    constexpr char kHeader[] = "m_sHeaderProperties";
    change(kHeader, &List::SetHeaderCaption, &List::HeaderCaption, std::string("Mask"), "Mask");
    for (const auto& [align, kept] : {std::pair{77, 0}, std::pair{1, 1}}) {
        change(kHeader, &List::SetListTextAlign, &List::ListTextAlign, align, kept);
        change(kHeader, &List::SetHeaderTextAlign, &List::HeaderTextAlign, align, kept);
    }
    change(kHeader, &List::SetListTextBold, &List::ListTextBold, true, true);
    change(kHeader, &List::SetListTextColor, &List::ListTextColor, kAny, kAny);
    change(kHeader, &List::SetHeaderTextBold, &List::HeaderTextBold, true, true);
    change(kHeader, &List::SetHeaderTextColor, &List::HeaderTextColor, kAny, kAny);
    change(kHeader, &List::SetColumnWidths, &List::ColumnWidthsText, "9,99", "11,99,60,40,60,70,");
    CHECK(list.WriteProperties().headerProperties.find("|Mask,1,True,1193046,1,True,1193046,99|") !=
          std::string::npos);
    change("ColumnMaxSeen", &List::SetColumnMaxSeen, &List::ColumnMaxSeen, 3, 3);
    CHECK(list.ColumnIndex() == 3);
    change("lstColumnCount", &List::SetColumnCount, &List::ColumnCount, 2, 2);
    CHECK(list.ListCount() == 0);  // rows of another shape
    CHECK(list.ColumnMaxSeen() == 2);

    keys.clear();
    list.SetColumnIndex(70);  // there is none
    list.SetHeaderCaption("Nowhere");
    list.SetHeaderWidth(50);
    CHECK(list.HeaderCaption().empty());
    CHECK(list.HeaderWidth() == 0);
    CHECK(keys.empty());
}

TEST_CASE_FIXTURE(ListFixture, "properties come back as they were read, within reason") {
    UcListProperties properties = test::ProcessProperties();
    properties.backColor = 0x010203;
    list.ReadProperties(properties);
    CHECK(list.WriteProperties().headerProperties == test::kProcessColumns);
    CHECK(list.WriteProperties().columnCount == 7);
    CHECK(list.WriteProperties().columnMaxSeen == 6);
    CHECK(list.WriteProperties().backColor == 0x010203);

    properties.columnCount = 2000000000;
    properties.headerHeight = -5;
    properties.headerDrawStyle = 99;
    properties.columnMaxSeen = -1;
    list.ReadProperties(properties);
    list.AddItem("a");
    CHECK_FALSE(sim::paint(list, true).empty());
    CHECK(list.ColumnCount() == UcListModel::kMaxColumns);
    CHECK(list.HeaderDrawStyle() == 7);
    CHECK(list.HeaderHeight() == 0);
}
