// What a list puts on the screen, and what it leaves alone.
#include <algorithm>

#include "UcListFixture.h"

using namespace controls;
using namespace platform;
using test::ListFixture;
using test::ProcessRow;

namespace {

std::vector<sim::Drawn> Texts(const std::vector<sim::Drawn>& drawn) {
    std::vector<sim::Drawn> texts;
    std::copy_if(drawn.begin(), drawn.end(), std::back_inserter(texts),
                 [](const auto& d) { return d.what == "text"; });
    return texts;
}

const sim::Drawn* FindText(const std::vector<sim::Drawn>& drawn, const std::string& text) {
    const auto found =
        std::find_if(drawn.begin(), drawn.end(), [&](const auto& d) { return d.what == "text" && d.text == text; });
    return found == drawn.end() ? nullptr : &*found;
}

// What the process list does twice a second.
template <class Row>
void Refill(UcList1& list, int rows, Row row, int selected, int sortColumn = 0) {
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

}  // namespace

TEST_CASE_FIXTURE(ListFixture, "cells are drawn inside their columns with their format") {
    Fill(3);
    const auto drawn = sim::paint(list, true);
    const UcListLayout& layout = list.Layout();
    for (const sim::Drawn& text : Texts(drawn)) {
        CAPTURE(text.text);
        bool inside = false;
        for (int i = 0; i < 6; ++i) {
            const Rect column = layout.columns[static_cast<std::size_t>(i)].inset(5, 0);
            inside = inside || (text.area.left >= column.left && text.area.right <= column.right);
        }
        CHECK(inside);
        CHECK((text.format & (kTextSingleLine | kTextNoPrefix | kTextWordEllipsis)) ==
              (kTextSingleLine | kTextNoPrefix | kTextWordEllipsis));
    }
    const sim::Drawn* name = FindText(drawn, "Name01");
    REQUIRE(name != nullptr);
    CHECK(name->area == Rect{5, 38, 129, 55});
    CHECK(name->font == Font::Bold);
    const sim::Drawn* memory = FindText(drawn, "1,002");
    REQUIRE(memory != nullptr);
    CHECK((memory->format & kTextRight) != 0);
    CHECK(FindText(drawn, "900") == nullptr);  // hidden
    CHECK(FindText(drawn, "CPU %") != nullptr);

    SUBCASE("an icon moves the text of the first column") {
        std::vector<int> rows;
        list.DrawIcon = [&](Canvas& canvas, Point at, int row) {
            rows.push_back(row);
            CHECK(at == Point{2, 21 + 17 * row + 1});
            canvas.icon(at, 900, 16);
        };
        const auto again = sim::paint(list, true);
        CHECK(rows == std::vector<int>{0, 1, 2});
        CHECK(FindText(again, "Name01")->area.left == 23);
    }
    SUBCASE("an endless text is cut before it is drawn") {
        list.SetList(0, 0, std::string(100000, 'w'));
        std::size_t longest = 0;
        for (const sim::Drawn& text : Texts(sim::paint(list, true))) longest = std::max(longest, text.text.size());
        CHECK(longest == 512);
    }
    SUBCASE("the sort mark and the caption keep clear of each other") {
        list.SortCol(5, true);
        list.ReDraw();
        const auto header = sim::paint(list);
        const sim::Drawn* caption = FindText(header, "Mem(KB)");
        REQUIRE(caption != nullptr);
        const Rect cell = list.Layout().columns[5];
        int marks = 0;
        for (const sim::Drawn& line : header) {
            // The cell's own edges are lines over its whole height or the whole header.
            if (line.what != "line" || !line.area.intersects(cell.inset(2, 4))) continue;
            ++marks;
            CHECK(line.area.left >= caption->area.right);
            CHECK(line.area.right < cell.right);
        }
        CHECK(marks == 4);
    }
}

TEST_CASE_FIXTURE(ListFixture, "rows show selection and focus in the desktop's colours") {
    sim::setSystemColor(SysColor::Highlight, 0x123456);
    Fill(5);
    sim::click(list, Cell(2, 0));
    auto drawn = sim::paint(list, true);
    CHECK(sim::pixelAt(list, {60, Cell(2, 0).y}) == 0x123456);
    CHECK(sim::pixelAt(list, {60, Cell(1, 0).y}) == 0xFFFFFF);
    CHECK(sim::pixelAt(list, {450, Cell(2, 0).y}) == 0xFFFFFF);  // right of the columns
    CHECK(FindText(drawn, "Name02")->color == list.HighlightTextColor());
    CHECK(FindText(drawn, "Name01")->color == 0);
    const auto focus = [&] {
        return std::find_if(drawn.begin(), drawn.end(), [](const auto& d) { return d.what == "focus"; });
    };
    REQUIRE(focus() != drawn.end());
    CHECK(focus()->area == Rect{0, 55, 446, 72});

    SUBCASE("colours that the host chose are kept") {
        list.SetBackColor(0x00FF00);
        list.SetHighlightColor(0x0000FF);
        sim::paint(list);
        CHECK(sim::pixelAt(list, {60, Cell(2, 0).y}) == 0x0000FF);
        CHECK(sim::pixelAt(list, {60, Cell(1, 0).y}) == 0x00FF00);
    }
    SUBCASE("an empty list shows the focus around its item area") {
        list.Clear();
        drawn = sim::paint(list);
        REQUIRE(focus() != drawn.end());
        CHECK(focus()->area.height() > 100);
    }
    SUBCASE("without the focus there is no rectangle") {
        owner.focus();
        drawn = sim::paint(list);
        CHECK_FALSE(drawn.empty());
        CHECK(focus() == drawn.end());
    }
}

TEST_CASE_FIXTURE(ListFixture, "every invalid pixel is covered at any size and position") {
    Fill(40);
    for (const Size size :
         {Size{470, 191}, Size{300, 200}, Size{90, 75}, Size{30, 40}, Size{12, 15}, Size{600, 480}}) {
        list.setBounds(Rect::fromSize({0, 0}, size));
        for (const int top : {0, 13, 40}) {
            list.SetTopIndex(top);
            sim::paint(list, true);
            int bare = 0;
            for (int y = 0; y < size.height; ++y) {
                for (int x = 0; x < size.width; ++x) bare += sim::pixelAt(list, {x, y}) > 0xFFFFFF ? 1 : 0;
            }
            CAPTURE(size.width);
            CHECK(bare == 0);
        }
    }
}

TEST_CASE_FIXTURE(ListFixture, "arrow glyphs have their sixteen pixels, and move when pressed") {
    Fill(40);
    const auto glyph = [&] {
        Rect box{9999, 9999, 0, 0};
        int pixels = 0;
        for (const sim::Drawn& d : sim::paint(list, true)) {
            if (d.what != "pixel" || d.area.top > 60) continue;
            ++pixels;
            box = {std::min(box.left, d.area.left), std::min(box.top, d.area.top),
                   std::max(box.right, d.area.right), std::max(box.bottom, d.area.bottom)};
        }
        CHECK(pixels == 16);
        return box;
    };
    // 17 by 17 at (453, 20): the glyph begins one pixel right of (17 - 7) / 2, and at (17 - 3) / 2.
    CHECK(glyph() == Rect{459, 27, 466, 31});
    sim::mouseDown(list, {460, 30});
    CHECK(glyph() == Rect{460, 28, 467, 32});
}

TEST_CASE_FIXTURE(ListFixture, "a refill invalidates only what looks different") {
    Fill(100);
    list.focus();
    list.SelectItem(3, true);
    list.SortCol(0, true);
    list.SetTopIndex(2);
    sim::run(20);
    const auto same = [](int i) { return ProcessRow(i); };

    SUBCASE("nothing, when it is the same") {
        Refill(list, 100, same, 3);
        CHECK(sim::invalidArea(list).empty());
        CHECK(sim::paint(list).empty());
        CHECK(list.TopIndex() == 2);
        CHECK(list.Selected(3));
    }
    SUBCASE("one cell that changed") {
        Refill(
            list, 100, [](int i) { return ProcessRow(i, i == 5 ? "77" : "05"); }, 3);
        const Rect invalid = sim::invalidArea(list);
        CHECK(invalid == list.Layout().CellRect(5 - 2, 4));
        const auto drawn = sim::paint(list);
        CHECK(Texts(drawn).size() == 1);
        CHECK(FindText(drawn, "77") != nullptr);
    }
    SUBCASE("a row whose hidden cell changed has another icon") {
        Refill(
            list, 100, [](int i) { return ProcessRow(i) + (i == 5 ? "1" : ""); }, 3);
        CHECK(sim::invalidArea(list) == list.Layout().RowRect(5 - 2));
    }
    SUBCASE("changes out of sight") {
        Refill(
            list, 100, [](int i) { return ProcessRow(i, i > 60 ? "77" : "05"); }, 3);
        CHECK(sim::invalidArea(list).empty());
    }
    SUBCASE("a selection that moved takes the focus rectangle along") {
        Refill(list, 100, same, 6);
        const Rect invalid = sim::invalidArea(list);
        CHECK(invalid.top == list.Layout().RowRect(1).top);
        CHECK(invalid.bottom == list.Layout().RowRect(4).bottom);
        CHECK(list.CurrentRow() == 6);
    }
    SUBCASE("the header alone when only the sort mark moves") {
        Refill(list, 100, same, 3, 5);
        CHECK(sim::invalidArea(list) == list.Layout().header);
    }
    SUBCASE("everything when a bar goes") {
        Refill(list, 5, same, 3);
        CHECK(sim::invalidArea(list).height() == list.clientSize().height);
        CHECK(list.TopIndex() == 0);
    }
    SUBCASE("a paint amid the refill is made good afterwards") {
        list.SetLocked(true);
        list.Clear();
        list.AddItem(ProcessRow(0));
        sim::paint(list, true);
        CHECK(Texts(sim::paint(list, true)).size() == 6 + 6);
        list.SetLocked(false);
        Refill(list, 100, same, 3);
        CHECK(Texts(sim::paint(list)).size() > 6 * 9);
        CHECK(sim::pixelAt(list, Cell(3, 5)) == systemColor(SysColor::Highlight));
    }
    SUBCASE("a paint before the deferred one does not leave a mixed picture") {
        list.SetTopIndex(3);
        list.invalidate(list.Layout().RowRect(0));
        sim::paint(list);  // row 0 shows the selected row 3 now
        CHECK(sim::pixelAt(list, {300, 30}) == systemColor(SysColor::Highlight));
        list.SetTopIndex(2);
        sim::run(20);
        CHECK(sim::pixelAt(list, {300, 30}) == 0xFFFFFF);
    }
}

TEST_CASE_FIXTURE(ListFixture, "properties come back as they were read, within reason") {
    UcListProperties properties = test::ProcessProperties();
    properties.backColor = 0x010203;
    properties.headerHeight = 24;
    list.ReadProperties(properties);
    const UcListProperties written = list.WriteProperties();
    CHECK(written.headerProperties == test::kProcessColumns);
    CHECK(written.columnCount == 7);
    CHECK(written.columnMaxSeen == 6);
    CHECK(written.backColor == 0x010203);
    CHECK(written.headerHeight == 24);
    CHECK(written.scrollbarColor == 13160660);

    SUBCASE("the column addressed by ColumnIndex") {
        std::string keys;
        list.PropertyChanged = [&](std::string_view key) { keys += std::string(key) + ' '; };
        list.SetColumnIndex(1);
        list.SetHeaderCaption("Mask");
        list.SetHeaderWidth(99);
        list.SetColumnIndex(70);
        list.SetHeaderCaption("Nowhere");
        CHECK(list.HeaderCaption().empty());
        CHECK(list.WriteProperties().headerProperties.find("|Mask,2,False,0,2,False,0,99|") != std::string::npos);
        list.SetColumnMaxSeen(3);
        CHECK(list.ColumnIndex() == 3);
        CHECK(keys == "m_sHeaderProperties m_sHeaderProperties ColumnMaxSeen ");
    }
    SUBCASE("a new count takes the rows away") {
        Fill(3);
        list.SetColumnCount(2);
        CHECK(list.ListCount() == 0);
        CHECK(list.ColumnMaxSeen() == 2);
        list.AddItem("a\tb\tc");
        CHECK(list.List(0, -1) == "a\tb");
    }
    SUBCASE("absurd values are brought into range") {
        properties.columnCount = 2000000000;
        properties.headerHeight = -5;
        properties.headerDrawStyle = 99;
        properties.columnMaxSeen = -1;
        list.ReadProperties(properties);
        list.AddItem("a");
        CHECK_FALSE(sim::paint(list, true).empty());
        CHECK(list.ColumnCount() == UcListModel::kMaxColumns);
        CHECK(list.HeaderDrawStyle() == 7);
    }
    SUBCASE("dropped files are handed on") {
        std::vector<std::string> dropped;
        list.FilesDropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
        list.acceptFiles(true);
        sim::dropFiles(list, {"C:\\a.exe", "C:\\b.exe"});
        CHECK(dropped.size() == 2);
    }
}
