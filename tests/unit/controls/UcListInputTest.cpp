// Journeys with mouse and keyboard through a list.
#include "UcListFixture.h"

using namespace controls;
using namespace platform;
using test::kWithCtrl;
using test::kWithShift;
using test::ListFixture;

TEST_CASE_FIXTURE(ListFixture, "clicks select as lists do and raise Click at press and release") {
    Fill(30);
    sim::click(list, Cell(7, 2));
    CHECK(SelectedRows() == "7 ");
    CHECK(Events() == "Click(1) Click(1) ");
    CHECK(list.focused());

    SUBCASE("Ctrl inverts one row, Shift adds the rows from the anchor") {
        sim::click(list, Cell(9, 0), MouseButton::Left, kWithCtrl);
        CHECK(SelectedRows() == "7 9 ");
        sim::click(list, Cell(7, 0), MouseButton::Left, kWithCtrl);
        CHECK(SelectedRows() == "9 ");
        sim::click(list, Cell(3, 0), MouseButton::Left, kWithShift);
        CHECK(SelectedRows() == "3 4 5 6 7 9 ");
    }
    SUBCASE("held keys count as well as those that come with the click, until the focus goes") {
        sim::keyDown(key::kShift);
        sim::click(list, Cell(5, 0));
        CHECK(SelectedRows() == "5 6 7 ");
        list.invalidate();
        owner.focus();
        list.focus();
        sim::click(list, Cell(1, 0));
        CHECK(SelectedRows() == "1 ");
    }
    SUBCASE("right of the columns and below the rows nothing happens") {
        list.Clear();
        Fill(3);
        list.SelectItem(1, true);
        Events();
        sim::click(list, {450, 21 + 8});
        sim::click(list, {20, 21 + 17 * 5});
        CHECK(SelectedRows() == "1 ");
        CHECK(Events().empty());
    }
    SUBCASE("a double click raises DblClick in place of the second pair") {
        sim::doubleClick(list, Cell(4, 1));
        CHECK(Events() == "Click(1) Click(1) DblClick(1) ");
    }
    SUBCASE("the right button takes an unselected row first, and leaves a selection alone") {
        sim::click(list, Cell(8, 0), MouseButton::Left, kWithShift);
        Events();
        sim::click(list, Cell(7, 0), MouseButton::Right);
        CHECK(SelectedRows() == "7 8 ");
        sim::click(list, Cell(2, 0), MouseButton::Right);
        CHECK(SelectedRows() == "2 ");
        sim::click(list, Cell(2, 0), MouseButton::Middle);
        CHECK(Events() == "Click(2) Click(2) Click(4) ");
    }
    SUBCASE("a press whose capture is lost raises no Click at release") {
        sim::mouseDown(list, Cell(4, 0));
        sim::loseCapture();
        Events();
        sim::mouseUp(list, Cell(4, 0));
        CHECK(Events().empty());
    }
}

TEST_CASE_FIXTURE(ListFixture, "a row dragged out of the list reports where it was let go") {
    Fill(5);
    Point released{};
    list.DragReleased = [&](Point at) { released = at; };
    sim::mouseDown(list, Cell(1, 0));
    sim::setPointer(list, {520, 60});
    sim::mouseUp(list, {520, 60});
    CHECK(released == Point{520, 60});
    CHECK(Events() == "Click(1) Click(1) ");
}

TEST_CASE_FIXTURE(ListFixture, "keys move the selection, keep it in view and raise Click once") {
    Fill(30);
    list.focus();
    const auto press = [&](std::uint16_t code, Modifiers modifiers = {}) {
        sim::keyDown(code, modifiers);
        return SelectedRows();
    };
    CHECK(press(key::kDown) == "0 ");
    CHECK(press(key::kDown) == "1 ");
    CHECK(Events() == "Click(1) Click(1) ");
    CHECK(press(key::kEnd) == "29 ");
    CHECK(list.TopIndex() == 20);
    CHECK(press(key::kPageUp) == "20 ");
    CHECK(press(key::kUp) == "19 ");
    CHECK(list.TopIndex() == 19);
    CHECK(press(key::kDown, kWithShift) == "19 20 ");
    CHECK(press(key::kDown, kWithShift) == "19 20 21 ");
    CHECK(press(key::kUp, kWithShift) == "19 20 ");
    Events();
    CHECK(press(key::kHome, kWithCtrl) == "19 20 ");
    CHECK(list.CurrentRow() == 0);
    CHECK(list.TopIndex() == 0);
    CHECK(Events().empty());
    CHECK(press(key::kSpace, kWithCtrl) == "0 19 20 ");
    CHECK(press(key::kUp) == "0 ");
    Events();
    CHECK(press(key::kUp) == "0 ");
    CHECK(Events().empty());
}

TEST_CASE_FIXTURE(ListFixture, "selection commands and key releases") {
    list.focus();
    sim::pressKey('A', kWithCtrl);
    CHECK(Events().empty());
    Fill(3);
    sim::pressKey('A');
    CHECK(Events() == "KeyClick(65) ");
    sim::keyDown(key::kCtrl);
    sim::pressKey('A');
    CHECK(SelectedRows() == "0 1 2 ");
    sim::pressKey('U');
    CHECK(SelectedRows().empty());
    list.SelectItem(1, true);
    sim::pressKey('I');
    CHECK(SelectedRows() == "0 2 ");
    CHECK(Events() == "Click(1) Click(1) Click(1) ");
    sim::keyUp(key::kCtrl);
    CHECK(Events().empty());
    sim::pressKey(key::kDelete);
    CHECK(Events() == "KeyClick(46) ");
}

TEST_CASE_FIXTURE(ListFixture, "a held arrow steps at once, after 300 ms, then every 50 ms") {
    Fill(100);
    const Point down = Part(&UcListLayout::vertical, kSecondArrow);
    sim::mouseDown(list, down);
    CHECK(list.TopIndex() == 1);
    sim::run(299);
    CHECK(list.TopIndex() == 1);
    sim::run(1);
    CHECK(list.TopIndex() == 2);
    sim::run(100);
    CHECK(list.TopIndex() == 4);

    SUBCASE("until the end") {
        sim::run(10000);
        CHECK(list.TopIndex() == 90);
        sim::mouseUp(list, down);
    }
    SUBCASE("until it is released") {
        sim::mouseUp(list, down);
        sim::run(1000);
        CHECK(list.TopIndex() == 4);
    }
    SUBCASE("until the capture is lost") {
        sim::loseCapture();
        sim::run(1000);
        CHECK(list.TopIndex() == 4);
    }
    SUBCASE("resting while the pointer is elsewhere") {
        sim::setPointer(list, {10, 60});
        sim::run(1000);
        CHECK(list.TopIndex() == 4);
        sim::setPointer(list, down);
        sim::run(50);
        CHECK(list.TopIndex() == 5);
    }
    CHECK(Events().empty());
}

TEST_CASE_FIXTURE(ListFixture, "wheel, tracks and thumbs scroll") {
    Fill(100);
    SUBCASE("the wheel moves a row for each message and paints once for a burst") {
        sim::wheel(list, {50, 50}, -120);
        sim::wheel(list, {50, 50}, -360);
        sim::wheel(list, {50, 50}, 30);
        CHECK(list.TopIndex() == 1);
        CHECK(sim::invalidArea(list).empty());
        sim::advance(10);
        sim::run(0);
        CHECK(sim::paint(list).empty());  // painted by the run
        CHECK(sim::pixelAt(list, {400, 40}) == 0xFFFFFF);
    }
    SUBCASE("a held track stops where the pointer is") {
        sim::mouseDown(list, {465, 120});
        CHECK(list.TopIndex() == 10);
        sim::run(5000);
        CHECK(list.Layout().vertical.part[kThumb].contains({465, 120}));
        sim::mouseUp(list, {465, 120});
    }
    SUBCASE("the thumb follows the pointer, and stays when the capture is lost") {
        const Point thumb = Part(&UcListLayout::vertical, kThumb);
        sim::mouseDown(list, thumb);
        sim::setPointer(list, {thumb.x, thumb.y + 30});
        const int top = list.TopIndex();
        CHECK(top > 10);
        sim::setPointer(list, {thumb.x, 4000});
        CHECK(list.TopIndex() == 90);
        sim::setPointer(list, {thumb.x, thumb.y + 30});
        CHECK(list.TopIndex() == top);
        sim::loseCapture();
        sim::setPointer(list, {thumb.x, 4000});
        CHECK(list.TopIndex() == top);
    }
    SUBCASE("columns scroll by 10 from the arrows and by 100 from the track") {
        list.setBounds({0, 0, 200, 200});
        sim::click(list, Part(&UcListLayout::horizontal, kSecondArrow));
        CHECK(list.Layout().offset == -10);
        const Rect track = list.Layout().horizontal.part[kTrack];
        sim::click(list, {track.right - 1, track.top + 5});
        CHECK(list.Layout().offset == -110);
        sim::click(list, {track.left, track.top + 5});
        sim::click(list, Part(&UcListLayout::horizontal, kFirstArrow));
        CHECK(list.Layout().offset == 0);
    }
}

TEST_CASE_FIXTURE(ListFixture, "TopIndex is clamped, deferred, and exact within a locked refill") {
    Fill(100);
    list.SetTopIndex(-5);
    CHECK(list.TopIndex() == 0);
    list.SetTopIndex(1000);
    CHECK(list.TopIndex() == 90);
    list.SetTopIndex(37);
    sim::run(20);
    sim::clearLog();
    list.SetLocked(true);
    list.Clear();
    CHECK(list.TopIndex() == 0);
    for (int i = 0; i < 60; ++i) list.AddItem(test::ProcessRow(i));
    list.SetTopIndex(37);
    list.SetVertBarPos(37);
    list.SetLocked(false);
    CHECK(list.GetVertBarPos() == 37);
    for (const std::string& entry : sim::log()) CHECK(entry.find("startTimer") == std::string::npos);

    SUBCASE("a larger window shows the last full page") {
        list.SetTopIndex(50);
        list.setBounds({0, 0, 470, 21 + 17 * 20});
        CHECK(list.TopIndex() == 40);
    }
    SUBCASE("the selection keeps its place on the screen") {
        list.SelectItem(40, true);
        CHECK(list.SelectedTopPosition() == 3);
        list.RemoveItem(0);
        list.SetSelectedTopPosition(3);
        CHECK(list.TopIndex() == 36);
    }
}

TEST_CASE_FIXTURE(ListFixture, "a header click sorts, a second one reverses") {
    list.AddItem("b\t2");
    list.AddItem("a\t3");
    list.AddItem("c\t1");
    sim::click(list, Cell(0, 0));
    Events();
    sim::click(list, {20, 10});
    CHECK(list.CellText(0, 0) == "a");
    CHECK(list.HeaderSelected() == 0);
    CHECK(list.HeaderSortDir());
    CHECK(SelectedRows() == "1 ");
    CHECK(list.CurrentRow() == 1);
    sim::click(list, {20, 10});
    CHECK(list.CellText(0, 0) == "c");
    CHECK_FALSE(list.HeaderSortDir());
    sim::click(list, {134 + 20, 10});
    CHECK(list.CellText(0, 0) == "c");
    CHECK(list.HeaderSelected() == 1);
    CHECK(list.HeaderSortDir());
    CHECK(Events() == "HeaderClick(0) HeaderClick(0) HeaderClick(1) ");
    CHECK(sim::pointerShape() == Pointer::Arrow);
}

TEST_CASE_FIXTURE(ListFixture, "a header edge sizes its column and does not sort") {
    Fill(3);
    sim::setPointer(list, {132, 10});
    CHECK(sim::pointerShape() == Pointer::SizeWestEast);
    sim::mouseDown(list, {132, 10});
    sim::setPointer(list, {152, 10});
    CHECK(list.HeaderWidth(0) == 154);
    CHECK(Events().empty());

    SUBCASE("released") {
        sim::setPointer(list, {-300, 10});
        CHECK(list.HeaderWidth(0) == 11);
        sim::mouseUp(list, {-300, 10});
        CHECK(Events() == "ColumnResized(0) ");
        sim::setPointer(list, {60, 10});
        CHECK(list.ColumnWidthsText() == "11,82,60,40,60,70,");
        CHECK(sim::pointerShape() == Pointer::Arrow);
    }
    SUBCASE("the capture is lost") {
        sim::loseCapture();
        CHECK(Events() == "ColumnResized(0) ");
        sim::setPointer(list, {180, 10});
        CHECK(list.HeaderWidth(0) == 154);
    }
    SUBCASE("scrolled to the right end, the column follows the pointer all the same") {
        sim::mouseUp(list, {152, 10});
        list.setBounds({0, 0, 200, 200});
        for (int i = 0; i < 60; ++i) sim::click(list, Part(&UcListLayout::horizontal, kSecondArrow));
        const int edge = list.Layout().columns[5].right - 1;
        sim::mouseDown(list, {edge, 10});
        for (int x = edge; x >= edge - 20; --x) sim::setPointer(list, {x, 10});
        CHECK(list.HeaderWidth(5) == 50);
    }
}

TEST_CASE_FIXTURE(ListFixture, "MouseTip follows the pointer over the first column") {
    Fill(5);
    sim::setPointer(list, Cell(1, 0));
    sim::setPointer(list, {60, 21 + 17 + 9});
    sim::setPointer(list, Cell(2, 0));
    CHECK(Events() == "MouseTip(1) MouseTip(2) ");

    SUBCASE("another column") {
        sim::setPointer(list, Cell(2, 1));
        sim::setPointer(list, Cell(3, 1));
        CHECK(Events() == "MouseTip(-1) ");
    }
    SUBCASE("out of the window") {
        sim::setPointer(owner, {600, 300});
        CHECK(Events() == "MouseTip(-1) ");
        sim::run(500);
        CHECK(Events().empty());
    }
    SUBCASE("the watch ends the tip when the row is gone") {
        sim::run(500);
        CHECK(Events().empty());
        list.Clear();
        sim::run(100);
        CHECK(Events() == "MouseTip(-1) ");
    }
    SUBCASE("a click does not leave the tip behind") {
        sim::click(list, Cell(2, 0));
        Events();
        sim::setPointer(list, Cell(2, 1));
        CHECK(Events() == "MouseTip(-1) ");
    }
}
