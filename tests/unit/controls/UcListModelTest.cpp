#include "controls/UcListModel.h"

#include "UcListFixture.h"

using controls::UcListModel;

namespace {

// A model on a fresh machine, with cells whose text tells what happened to them.
struct Model : UcListModel {
    Model() { platform::sim::reset(); }
    Model(int columns, const std::vector<std::string>& rows) : Model() {
        SetColumnMaxSeen(columns);
        SetColumnCount(columns);
        for (const std::string& row : rows) AddItem(row);
    }
    std::string Shown(int column = 0) const {
        std::string cells;
        for (int row = 0; row < ListCount(); ++row) cells += CellText(row, column) + ' ';
        return cells;
    }
};

std::string Sorted(const std::vector<std::string>& rows, bool ascending = true) {
    Model model(1, rows);
    model.SortCol(0, ascending);
    return model.Shown();
}

}  // namespace

TEST_CASE("rows are tab-separated cells, cut or padded to the columns") {
    Model model(3, {"a\tb\tc\td\te", "f", "", "g\t\th"});
    CHECK(model.List(0, -1) == "a\tb\tc");
    CHECK(model.List(1, -1) == "f\t\t");
    CHECK(model.List(2, -1) == "\t\t");
    CHECK(model.CellText(3, 2) == "h");
    CHECK(model.SetList(1, 1, "new\tcell"));
    CHECK(model.CellText(1, 1) == "new\tcell");
    CHECK(model.SetList(1, -5, "x\ty"));
    CHECK(model.List(1, -1) == "x\ty\t");

    for (const int row : {-1, 4, 2000000000}) {  // out of range
        CHECK(model.List(row, 0).empty());
        CHECK(model.List(row, -1).empty());
        CHECK_FALSE(model.SetList(row, 0, "z"));
        CHECK_FALSE(model.RemoveItem(row));
        model.SelectItem(row, true);
        CHECK_FALSE(model.Selected(row));
    }
    CHECK(model.CellText(0, 3).empty());
    CHECK_FALSE(model.SetList(0, 3, "z"));
    CHECK(model.Shown() == "a x  g ");

    model.Clear();  // cells of rows that are gone do not shine through
    model.AddItem("only");
    CHECK(model.ListCount() == 1);
    CHECK(model.List(0, -1) == "only\t\t");
}

TEST_CASE("removing a row closes the gap in order and selection") {
    Model model(2, {"d\t0", "a\t1", "c\t2", "b\t3"});
    model.SortCol(0, true);
    model.SelectItem(2, true);   // c
    CHECK(model.RemoveItem(0));  // a, which was added second
    CHECK(model.Shown() == "b c d ");
    CHECK(model.Shown(1) == "3 2 0 ");
    CHECK(model.SelectedRows() == std::vector<int>{1});
    model.AddItem("aa\t4");
    CHECK(model.Shown() == "b c d aa ");
    CHECK_FALSE(model.Selected(3));
}

TEST_CASE("a column sorts as numbers only when all its cells are numbers without leading zero") {
    CHECK(Sorted({"1,234", "56", "-3", "7.6"}) == "-3 7.6 56 1,234 ");
    CHECK(Sorted({"9", "10", "0"}) == "0 10 9 ");
    CHECK(Sorted({"9", "10", ""}) == " 10 9 ");
    CHECK(Sorted({"9", "10", "x"}) == "10 9 x ");
    CHECK(Sorted({"b", "C", "A", "_"}) == "_ A b C ");
    CHECK(Sorted({"longname2", "longname10", "LONGNAME1", "long"}) == "long LONGNAME1 longname10 longname2 ");
    CHECK(Sorted({"b", "a"}, false) == "b a ");
    CHECK(Sorted({"only"}) == "only ");
    CHECK(Sorted({}) == "");
    // Above 32 bits numbers are equal, so their order stays.
    CHECK(Sorted({"9999999999", "8888888888", "1"}) == "1 9999999999 8888888888 ");
}

// Equal cells can be told apart by their case or their decimals.
TEST_CASE("ties come out as the gap-halving exchange leaves them") {
    CHECK(Sorted({"b", "E", "e", "A", "D", "C"}) == "A b C D e E ");
    CHECK(Sorted({"1", "3", "2.1", "1.2", "3.2", "2"}) == "1 1.2 2.1 2 3.2 3 ");
    CHECK(Sorted({"e", "b", "B", "C", "d", "D", "a", "A", "c", "E"}) == "a A B b c C d D e E ");
    CHECK(Sorted({"3.1", "2.2", "2.1", "1.2", "4", "2", "3", "3.2", "1", "1.1"}) ==
          "1 1.1 1.2 2.1 2.2 2 3.1 3 3.2 4 ");
}

TEST_CASE("sorting keeps the selection with its item and marks one column") {
    Model model(2, {"c\t1", "a\t3", "b\t2"});
    model.SelectItem(0, true);
    model.SortCol(0, true);
    CHECK(model.Selected(2));
    CHECK(model.SortedColumn() == 0);
    for (const int column : {2, -1}) {  // there are none
        model.SortCol(column, false);
        model.ToggleSort(column);
    }
    CHECK(model.Shown() == "a b c ");
    for (const bool ascending : {false, true}) {  // a second click reverses, a third returns to the first order
        model.ToggleSort(0);
        CHECK(model.Shown() == (ascending ? "a b c " : "c b a "));
        CHECK(model.Column(0).ascending == ascending);
    }
    model.SortCol(1, false);  // another column takes the mark over
    CHECK(model.Shown() == "a b c ");
    CHECK(model.SortedColumn() == 1);
    CHECK_FALSE(model.Column(1).ascending);
    CHECK_FALSE(model.Column(0).ascending);
    model.AddItem("a\t0");  // comes last
    CHECK(model.Shown() == "a b c a ");
    model.Clear();
    CHECK(model.SortedColumn() == -1);
}

TEST_CASE("columns without a stored layout get captions and widths") {
    Model model(7, {});
    model.SetColumnMaxSeen(6);
    model.BuildDefaultHeaders();
    CHECK(model.Column(2).caption == "Header 3");
    CHECK(model.Column(6).caption.empty());
    CHECK(model.ColumnWidthsText() == "200,150,100,50,11,11,");
}

TEST_CASE("the header properties string survives a round trip and does no harm when damaged") {
    Model model(7, {});
    model.SetColumnMaxSeen(6);
    model.ReadHeaderProperties(test::kProcessColumns);
    CHECK(model.HeaderProperties() == test::kProcessColumns);
    CHECK(model.Column(0).listTextBold);
    CHECK(model.Column(5).listTextAlign == controls::kAlignRight);
    CHECK(model.ShownWidth(6) == 0);
    CHECK(model.ColumnWidthsText() == "134,82,60,40,60,70,");

    SUBCASE("what could be read before the damage is kept") {
        model.ReadHeaderProperties("New,1,TRUE,255,0,-1,7,50|Half,2,maybe,9,9|Never,0,True,0,2,False,0,1");
        const std::string after = model.HeaderProperties();
        CHECK(after.starts_with("New,1,True,255,0,True,7,50|Half,2,False,0,2,False,0,82|Priority,2,"));
    }
    SUBCASE("absurd texts") {
        for (const char* text : {"", "|||", "|,,,,,"}) model.ReadHeaderProperties(text);
        CHECK(model.HeaderProperties() == test::kProcessColumns);
        model.ReadHeaderProperties("W,77,1,-1,2,0,0,999999999");
        CHECK(model.HeaderProperties().starts_with("W,0,True,16777215,2,False,0,2000|"));
    }
    SUBCASE("stored widths") {
        const std::pair<const char*, const char*> cases[] = {
            {"", "134,82,60,40,60,70,"},
            {"100,x,,4 0,", "100,82,60,40,60,70,"},
            {"5,-7,99999,99999999999,61,71,81,91", "11,11,2000,40,61,71,"},
        };
        for (const auto& [stored, shown] : cases) {
            model.SetColumnWidths(stored);
            CHECK(model.ColumnWidthsText() == shown);
            CHECK(model.ShownWidth(6) == 0);
        }
    }
    SUBCASE("the column behind ColumnMaxSeen's next is emptied") {
        model.SetColumnMaxSeen(2);
        CHECK(model.Column(2).caption == "Priority");
        CHECK(model.Column(3).caption.empty());
        CHECK(model.Column(3).headerWidth == 0);
        CHECK(model.DrawnColumns() == 2);
    }
}
