#include "controls/UcListModel.h"

#include <doctest/doctest.h>

#include <random>

#include "UcListFixture.h"
#include "text/Case.h"

using controls::UcListModel;

namespace {

UcListModel ModelOf(int columns, const std::vector<std::string>& rows) {
    UcListModel model;
    model.SetColumnMaxSeen(columns);
    model.SetColumnCount(columns);
    for (const std::string& row : rows) model.AddItem(row);
    return model;
}

std::string Shown(const UcListModel& model, int column = 0) {
    std::string cells;
    for (int row = 0; row < model.ListCount(); ++row) cells += model.CellText(row, column) + ' ';
    return cells;
}

std::string Sorted(const std::vector<std::string>& rows, bool ascending = true) {
    UcListModel model = ModelOf(1, rows);
    model.SortCol(0, ascending);
    return Shown(model);
}

}  // namespace

TEST_CASE("rows are tab-separated cells, cut or padded to the columns") {
    platform::sim::reset();
    UcListModel model = ModelOf(3, {"a\tb\tc\td\te", "f", "", "g\t\th"});
    CHECK(model.List(0, -1) == "a\tb\tc");
    CHECK(model.List(1, -1) == "f\t\t");
    CHECK(model.List(2, -1) == "\t\t");
    CHECK(model.CellText(3, 2) == "h");

    SUBCASE("one cell, or the whole row, is replaced") {
        CHECK(model.SetList(1, 1, "new\tcell"));
        CHECK(model.CellText(1, 1) == "new\tcell");
        CHECK(model.SetList(1, -5, "x\ty"));
        CHECK(model.List(1, -1) == "x\ty\t");
    }
    SUBCASE("out of range gives nothing and changes nothing") {
        for (const int row : {-1, 4, 2000000000}) {
            CHECK(model.List(row, 0).empty());
            CHECK(model.List(row, -1).empty());
            CHECK_FALSE(model.SetList(row, 0, "z"));
            CHECK_FALSE(model.RemoveItem(row));
            CHECK_FALSE(model.Selected(row));
            model.SelectItem(row, true);
        }
        CHECK(model.CellText(0, 3).empty());
        CHECK_FALSE(model.SetList(0, 3, "z"));
        CHECK(Shown(model) == "a f  g ");
    }
    SUBCASE("cells of rows that were cleared do not shine through") {
        model.Clear();
        model.AddItem("only");
        CHECK(model.ListCount() == 1);
        CHECK(model.List(0, -1) == "only\t\t");
    }
}

TEST_CASE("removing a row closes the gap in order and selection") {
    platform::sim::reset();
    UcListModel model = ModelOf(2, {"d\t0", "a\t1", "c\t2", "b\t3"});
    model.SortCol(0, true);
    model.SelectItem(2, true);   // c
    CHECK(model.RemoveItem(0));  // a, which was added second
    CHECK(Shown(model) == "b c d ");
    CHECK(Shown(model, 1) == "3 2 0 ");
    CHECK(model.Selected(1));
    CHECK(model.FirstSelected() == 1);
    model.AddItem("aa\t4");
    CHECK(Shown(model) == "b c d aa ");
    CHECK_FALSE(model.Selected(3));
}

TEST_CASE("a column sorts as numbers only when all its cells are numbers without leading zero") {
    platform::sim::reset();
    CHECK(Sorted({"1,234", "56", "-3", "7.6"}) == "-3 7.6 56 1,234 ");
    CHECK(Sorted({"9", "10", "0"}) == "0 10 9 ");
    CHECK(Sorted({"9", "10", ""}) == " 10 9 ");
    CHECK(Sorted({"9", "10", "x"}) == "10 9 x ");
    CHECK(Sorted({"013", "2", "01"}) == "01 013 2 ");
    CHECK(Sorted({"b", "C", "A", "_"}) == "_ A b C ");
    CHECK(Sorted({"longname2", "longname10", "LONGNAME1", "long"}) == "long LONGNAME1 longname10 longname2 ");
    CHECK(Sorted({"b", "a"}, false) == "b a ");
    CHECK(Sorted({"only"}) == "only ");
    CHECK(Sorted({}) == "");
    // Above 32 bits numbers are equal, so their order stays.
    CHECK(Sorted({"9999999999", "8888888888", "1"}) == "1 9999999999 8888888888 ");
}

// The order of equal cells is what the exchange sort leaves, on cells compared one pair at a time.
TEST_CASE("ties come out as the gap-halving exchange leaves them") {
    platform::sim::reset();
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        const bool numbers = round % 2 == 0;
        std::vector<std::string> cells(static_cast<std::size_t>(round));
        for (std::string& cell : cells) {
            const auto pick = static_cast<int>(random() % 9) + 1;
            cell = numbers ? std::to_string(pick * 37)
                           : std::string(pick % 2 ? "Svchost." : "svcHOST.") + static_cast<char>('a' + pick);
        }
        UcListModel model = ModelOf(1, cells);
        model.SortCol(0, true);

        std::vector<int> order(cells.size());
        for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i);
        const auto greater = [&](int a, int b) {
            const std::string& left = cells[static_cast<std::size_t>(a)];
            const std::string& right = cells[static_cast<std::size_t>(b)];
            return numbers ? std::stoi(left) > std::stoi(right) : text::Lower(left) > text::Lower(right);
        };
        const int last = static_cast<int>(order.size()) - 1;
        for (int gap = last / 2 == 0 ? last : last / 2; gap > 0; gap /= 2) {
            for (int limit = last - gap, exchanged = 1; exchanged != 0; limit = exchanged - gap) {
                exchanged = 0;
                for (int i = 0; i <= limit; ++i) {
                    int& a = order[static_cast<std::size_t>(i)];
                    int& b = order[static_cast<std::size_t>(i + gap)];
                    if (greater(a, b)) std::swap(a, b), exchanged = i;
                }
            }
        }
        for (int row = 0; row <= last; ++row) CHECK(model.ItemAt(row) == order[static_cast<std::size_t>(row)]);
    }
}

TEST_CASE("sorting keeps the selection with its item and marks one column") {
    platform::sim::reset();
    UcListModel model = ModelOf(2, {"c\t1", "a\t3", "b\t2"});
    model.SelectItem(0, true);
    model.SortCol(0, true);
    CHECK(model.Selected(2));
    CHECK(model.SortedColumn() == 0);
    CHECK(model.Column(0).ascending);

    SUBCASE("another column takes the mark over") {
        model.SortCol(1, false);
        CHECK(Shown(model) == "a b c ");
        CHECK(model.SortedColumn() == 1);
        CHECK_FALSE(model.Column(1).ascending);
        CHECK_FALSE(model.Column(0).ascending);
    }
    SUBCASE("a second click reverses, a third returns to the first order") {
        model.ToggleSort(0);
        CHECK(Shown(model) == "c b a ");
        CHECK_FALSE(model.Column(0).ascending);
        model.ToggleSort(0);
        CHECK(Shown(model) == "a b c ");
    }
    SUBCASE("a new item comes last, and clearing takes the marks away") {
        model.AddItem("a\t0");
        CHECK(Shown(model) == "a b c a ");
        model.Clear();
        CHECK(model.SortedColumn() == -1);
    }
    SUBCASE("no such column") {
        model.SortCol(2, true);
        model.SortCol(-1, true);
        CHECK(Shown(model) == "a b c ");
        CHECK(model.SortedColumn() == 0);
    }
}

TEST_CASE("the header properties string survives a round trip and does no harm when damaged") {
    platform::sim::reset();
    UcListModel model;
    model.SetColumnMaxSeen(6);
    model.SetColumnCount(7);
    model.BuildDefaultHeaders();
    CHECK(model.Column(2).caption == "Header 3");
    CHECK(model.ShownWidth(2) == 100);
    CHECK(model.ShownWidth(4) == 11);
    CHECK(model.Column(5).headerWidth == -50);
    CHECK(model.Column(6).caption.empty());

    model.ReadHeaderProperties(test::kProcessColumns);
    CHECK(model.HeaderProperties() == test::kProcessColumns);
    CHECK(model.Column(0).listTextBold);
    CHECK(model.Column(5).listTextAlign == controls::kAlignRight);
    CHECK(model.ShownWidth(6) == 0);
    CHECK(model.ColumnWidthsText() == "134,82,60,40,60,70,");

    SUBCASE("what could be read before the damage is kept") {
        model.ReadHeaderProperties("New,1,TRUE,255,0,-1,7,50|Half,2,maybe,9,9|Never,0,True,0,2,False,0,1");
        CHECK(model.Column(0).caption == "New");
        CHECK(model.Column(0).headerTextBold);
        CHECK(model.Column(0).headerWidth == 50);
        CHECK(model.Column(1).caption == "Half");
        CHECK(model.Column(1).listTextColor == 0);
        CHECK(model.Column(2).caption == "Priority");
    }
    SUBCASE("absurd texts") {
        const std::string before = model.HeaderProperties();
        for (const char* text : {"", "|||", "|,,,,,"}) {
            model.ReadHeaderProperties(text);
            CHECK(model.HeaderProperties() == before);
        }
        model.ReadHeaderProperties("W,77,1,-1,2,0,0,999999999");
        CHECK(model.Column(0).listTextAlign == controls::kAlignLeft);
        CHECK(model.Column(0).listTextColor == 0xFFFFFF);
        CHECK(model.ShownWidth(0) == UcListModel::kMaxColumnWidth);
    }
    SUBCASE("stored widths") {
        const auto widthsAfter = [&](const char* text) {
            model.SetColumnWidths(text);
            return model.ColumnWidthsText();
        };
        CHECK(widthsAfter("") == "134,82,60,40,60,70,");
        CHECK(widthsAfter("100,x,,4 0,") == "100,82,60,40,60,70,");
        CHECK(widthsAfter("5,-7,99999,99999999999,61,71,81,91") == "11,11,2000,40,61,71,");
        CHECK(model.ShownWidth(6) == 0);
    }
    SUBCASE("the column behind ColumnMaxSeen's next is emptied") {
        model.SetColumnMaxSeen(2);
        CHECK(model.Column(3).caption.empty());
        CHECK(model.Column(3).headerWidth == 0);
        CHECK(model.Column(2).caption == "Priority");
        CHECK(model.DrawnColumns() == 2);
    }
}
