// Journeys with mouse and keyboard through a list.
#include <functional>

#include "UcListFixture.h"

using namespace controls;
using namespace platform;
using test::kWithCtrl;
using test::kWithShift;
using test::ListFixture;

TEST_CASE_FIXTURE(ListFixture, "clicks select as lists do and raise Click at press and release") {
    Fill(30);
    const std::string pair = "Click(1) Click(1) ";
    const struct {
        int row;
        MouseButton button;
        Modifiers modifiers;
        std::string selected, events;
    } clicks[] = {
        {7, MouseButton::Left, {}, "7 ", pair},
        {9, MouseButton::Left, kWithCtrl, "7 9 ", pair},
        {7, MouseButton::Left, kWithCtrl, "9 ", pair},
        {3, MouseButton::Left, kWithShift, "3 4 5 6 7 9 ", pair},  // from the row that was clicked before
        {5, MouseButton::Right, {}, "3 4 5 6 7 9 ", "Click(2) "},  // leaves a selection alone
        {2, MouseButton::Right, {}, "2 ", "Click(2) "},
        {4, MouseButton::Middle, {}, "2 ", "Click(4) "},
    };
    for (const auto& click : clicks) {
        CAPTURE(click.row);
        sim::click(list, Cell(click.row, 0), click.button, click.modifiers);
        CHECK(SelectedRows() == click.selected);
        CHECK(Events() == click.events);
    }
    CHECK(list.focused());
    sim::doubleClick(list, Cell(4, 1));
    CHECK(Events() == pair + "DblClick(1) ");

    // A key counts while it is held, and no longer, though it is let go where the list does not hear of it.
    for (const auto& [held, both] : {std::pair{key::kShift, "4 5 6 "}, std::pair{key::kCtrl, "4 6 "}}) {
        CAPTURE(held);
        sim::click(list, Cell(4, 0));
        sim::keyDown(held);
        sim::click(list, Cell(6, 0));
        CHECK(SelectedRows() == both);
        sim::whenMenu([key = held](const auto&) {
            sim::releaseKey(key);
            return 0;
        });
        showMenu(form, {}, {{.id = 1, .text = "Terminate"}});
        sim::click(list, Cell(1, 0));
        CHECK(SelectedRows() == "1 ");
    }

    sim::mouseDown(list, Cell(4, 0));
    sim::loseCapture();
    Events();
    sim::mouseUp(list, Cell(4, 0));  // of a press that is over
    list.Clear();
    Fill(3);
    list.SelectItem(1, true);
    sim::click(list, {450, 21 + 8});      // right of the columns
    sim::click(list, {20, 21 + 17 * 5});  // below the rows
    CHECK(SelectedRows() == "1 ");
    CHECK(Events().empty());
}

TEST_CASE_FIXTURE(ListFixture, "keys move the selection, keep it in view and raise Click once") {
    Fill(30);
    list.focus();
    const struct {
        std::uint16_t code;
        Modifiers modifiers;
        const char* selected;
        int topIndex;
        bool tells;
    } presses[] = {
        {key::kDown, {}, "0 ", 0, true},
        {key::kDown, {}, "1 ", 0, true},
        {key::kEnd, {}, "29 ", 20, true},
        {key::kPageUp, {}, "20 ", 20, true},
        {key::kUp, {}, "19 ", 19, true},
        {key::kDown, kWithShift, "19 20 ", 19, true},
        {key::kDown, kWithShift, "19 20 21 ", 19, true},
        {key::kUp, kWithShift, "19 20 ", 19, true},
        {key::kHome, kWithCtrl, "19 20 ", 0, false},
        {key::kSpace, kWithCtrl, "0 19 20 ", 0, true},
        {key::kUp, {}, "0 ", 0, true},
        {key::kUp, {}, "0 ", 0, false},
    };
    for (const auto& press : presses) {
        CAPTURE(press.code);
        CAPTURE(press.selected);
        sim::keyDown(press.code, press.modifiers);
        CHECK(SelectedRows() == press.selected);
        CHECK(list.TopIndex() == press.topIndex);
        CHECK(Events() == (press.tells ? "Click(1) " : ""));
    }
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
    sim::keyUp(key::kCtrl);
    CHECK(Events() == "Click(1) Click(1) Click(1) ");
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
    int end = 4;
    SUBCASE("until the end of the list") {
        end = 90;
    }
    SUBCASE("until it is released") {
        sim::mouseUp(list, down);
    }
    SUBCASE("until the capture is lost") {
        sim::loseCapture();
    }
    SUBCASE("resting while the pointer is elsewhere") {
        sim::setPointer(list, {10, 60});
        sim::run(1000);
        CHECK(list.TopIndex() == 4);
        sim::setPointer(list, down);
        sim::run(50);
        sim::mouseUp(list, down);
        end = 5;
    }
    sim::run(10000);
    CHECK(list.TopIndex() == end);
    CHECK(Events().empty());
}

TEST_CASE_FIXTURE(ListFixture, "wheel, tracks and thumbs scroll") {
    Fill(100);
    sim::mouseDown(list, {465, 120});  // a held track stops where the pointer is
    CHECK(list.TopIndex() == 10);
    sim::run(5000);
    CHECK(list.Layout().vertical.part[kThumb].contains({465, 120}));
    sim::mouseUp(list, {465, 120});

    const int before = list.TopIndex();
    sim::run(20);
    for (const int delta : {-120, -360, 30}) sim::wheel(list, {50, 50}, delta);  // a row for each
    CHECK(list.TopIndex() == before + 1);
    CHECK(sim::invalidArea(list).empty());
    const auto drawn = sim::drawCount();
    sim::run(10);  // painted once for the burst
    CHECK(sim::drawCount() > drawn);

    const Point thumb = Part(&UcListLayout::vertical, kThumb);
    sim::mouseDown(list, thumb);
    sim::setPointer(list, {thumb.x, 4000});
    CHECK(list.TopIndex() == 90);
    sim::setPointer(list, {thumb.x, thumb.y - 30});
    const int top = list.TopIndex();
    CHECK(top < 50);
    CHECK(list.Layout().vertical.part[kThumb].contains({thumb.x, thumb.y - 30}));
    sim::loseCapture();
    sim::setPointer(list, {thumb.x, 4000});
    CHECK(list.TopIndex() == top);
}

TEST_CASE_FIXTURE(ListFixture, "a thumb that is held scrolls when it moves, and back when it comes back") {
    int rows = 0;
    SUBCASE("with room for each position") {
        rows = 100;
    }
    SUBCASE("with more positions than pixels") {
        rows = 1000;
    }
    Fill(rows);
    list.setBounds({0, 0, 200, 191});
    const auto hold = [this](UcListBar UcListLayout::*bar, Point away, auto position) {
        const auto before = position();
        const Point thumb = Part(bar, kThumb);
        sim::mouseDown(list, thumb);
        sim::setPointer(list, thumb);
        CHECK(position() == before);
        sim::setPointer(list, away);
        CHECK(position() != before);
        sim::setPointer(list, thumb);
        CHECK(position() == before);
        sim::mouseUp(list, thumb);
    };
    for (int top = 0; top <= list.Layout().maxTopIndex; ++top) {
        list.SetTopIndex(top);
        CAPTURE(top);
        hold(&UcListLayout::vertical, {0, top == 0 ? 400 : 0}, [this] { return list.TopIndex(); });
    }
    list.focus();
    for (int step = 0; step <= -list.Layout().minOffset / 10; ++step) {
        CAPTURE(step);
        hold(&UcListLayout::horizontal, {step == 0 ? 400 : 0, 0}, [this] { return list.Layout().offset; });
        sim::pressKey(key::kRight);
    }
}

TEST_CASE_FIXTURE(ListFixture, "a held track comes to rest, also where a page leaps over the pointer") {
    Fill(100);
    for (int y = 100; y < 140; ++y) {
        CAPTURE(y);
        list.SetTopIndex(1);
        sim::mouseDown(list, {465, y});
        sim::run(2000);
        const int reached = list.TopIndex();
        sim::run(60);
        CHECK(list.TopIndex() == reached);
        sim::mouseUp(list, {465, y});
    }
}

TEST_CASE_FIXTURE(ListFixture, "the columns scroll with their bar: by arrow, by page, by dragging") {
    Fill(100);
    list.setBounds({0, 0, 200, 200});
    const Point left = Part(&UcListLayout::horizontal, kFirstArrow);
    const Point right = Part(&UcListLayout::horizontal, kSecondArrow);
    const int farthest = list.Layout().minOffset;
    const auto offset = [this] { return list.Layout().columns[0].left; };
    SUBCASE("10 pixels for an arrow, 100 for the track beside the thumb, no farther than the ends") {
        const std::pair<Point, int> clicks[] = {
            {right, -10}, {{right.x - 10, right.y}, -110}, {{left.x + 10, left.y}, -10}, {left, 0}, {left, 0}};
        for (const auto& [at, wanted] : clicks) {
            sim::click(list, at);
            CHECK(offset() == wanted);
        }
        sim::mouseDown(list, right);
        sim::run(300 + 50);
        CHECK(offset() == -30);
        sim::run(10000);
        CHECK(offset() == farthest);
    }
    SUBCASE("the thumb stays under the pointer, in proportion to its way") {
        const Point thumb = Part(&UcListLayout::horizontal, kThumb);
        const auto& part = list.Layout().horizontal.part;
        const int way = part[kTrack].width() - part[kThumb].width();
        sim::mouseDown(list, thumb);
        const std::pair<int, int> drags[] = {{0, 0}, {way / 2, farthest / 2}, {way, farthest}, {4000, farthest}};
        for (const auto& [by, wanted] : drags) {
            sim::setPointer(list, {thumb.x + by, thumb.y + 500});
            CHECK(offset() == wanted);
        }
        CHECK(list.TopIndex() == 0);
        sim::mouseUp(list, {4000, thumb.y});
        sim::setPointer(list, thumb);
        CHECK(offset() == farthest);
    }
}

TEST_CASE_FIXTURE(ListFixture, "TopIndex is clamped, deferred, and exact within a locked refill") {
    Fill(100);
    for (const auto& [wished, top] : {std::pair{-5, 0}, std::pair{1000, 90}, std::pair{37, 37}}) {
        list.SetTopIndex(wished);
        CHECK(list.TopIndex() == top);
    }
    sim::run(20);
    sim::clearLog();
    list.SetLocked(true);
    list.Clear();
    CHECK(list.TopIndex() == 0);
    for (int i = 0; i < 60; ++i) list.AddItem(test::ProcessRow(i));
    list.SetVertBarPos(37);
    list.SetLocked(false);
    CHECK(list.GetVertBarPos() == 37);
    for (const std::string& entry : sim::log()) CHECK(entry.find("startTimer") == std::string::npos);

    // The selection keeps its place on the screen; a larger window shows the last full page.
    list.SelectItem(40, true);
    CHECK(list.SelectedTopPosition() == 3);
    list.RemoveItem(0);
    CHECK(list.SelectedRows() == std::vector<int>{39});
    list.SetSelectedTopPosition(3);
    CHECK(list.TopIndex() == 36);
    list.SetTopIndex(49);
    list.setBounds({0, 0, 470, 21 + 17 * 20});
    CHECK(list.TopIndex() == 39);

    // A list that gets shorter while it is locked: its cells are where they will be shown.
    list.SetLocked(true);
    while (list.ListCount() > 30) list.RemoveItem(0);
    CHECK(list.CellRect(12, 0) == Rect{0, 55, 134, 72});
}

TEST_CASE_FIXTURE(ListFixture, "a header click sorts, a second one reverses") {
    for (const char* row : {"b\t2", "a\t3", "c\t1"}) list.AddItem(row);
    sim::click(list, Cell(0, 0));
    Events();
    const struct {
        int x, column;
        const char* first;
        bool ascending;
        int current;  // the row of "b"
    } clicks[] = {{20, 0, "a", true, 1}, {20, 0, "c", false, 1}, {134 + 20, 1, "c", true, 1}};
    for (const auto& click : clicks) {
        sim::click(list, {click.x, 10});
        CHECK(list.CellText(0, 0) == click.first);
        CHECK(list.HeaderSelected() == click.column);
        CHECK(list.HeaderSortDir() == click.ascending);
        CHECK(list.CurrentRow() == click.current);
        CHECK(SelectedRows() == std::to_string(click.current) + ' ');
    }
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
    SUBCASE("until the button is released") {
        sim::mouseUp(list, {-300, 10});
        CHECK(list.ColumnWidthsText() == "154,82,60,40,60,70,");
    }
    SUBCASE("until the capture is lost, and never below what can be caught again") {
        sim::setPointer(list, {-300, 10});
        sim::loseCapture();
        CHECK(list.ColumnWidthsText() == "11,82,60,40,60,70,");
    }
    CHECK(Events() == "ColumnResized(0) ");
    sim::setPointer(list, {60, 10});
    CHECK(sim::pointerShape() == Pointer::Arrow);

    // Scrolled to the right end, a column follows the pointer all the same.
    list.setBounds({0, 0, 200, 200});
    sim::mouseDown(list, Part(&UcListLayout::horizontal, kSecondArrow));
    sim::run(10000);
    sim::mouseUp(list, {0, 0});
    const int edge = list.Layout().columns[5].right - 1;
    sim::mouseDown(list, {edge, 10});
    for (int x = edge; x >= edge - 20; --x) sim::setPointer(list, {x, 10});
    CHECK(list.HeaderWidth(5) == 50);
}

TEST_CASE_FIXTURE(ListFixture, "MouseTip follows the pointer over the first column") {
    list.SetKeyColumn(3);
    Window over;
    const Point beside = Cell(2, 1);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"another column", [&] { sim::setPointer(list, beside); }},
        {"out of the window",
         [&] {
             sim::setPointer(form, {500, 300});
         }},
        {"all rows go", [&] { list.Clear(); }},
        {"other rows come: the wheel", [&] { sim::wheel(list, Cell(2, 0), -120); }},
        {"other rows come: they are sorted anew",
         [&] {
             list.SortCol(0, false);
             list.ReDraw();
         }},
        {"another window opens over it",
         [&] {
             REQUIRE(over.create({WindowKind::Gadget, "Over", "", nullptr, {0, 0, 900, 900}}));
             over.show(ShowCommand::ShowInactive);
         }},
    };
    for (const auto& [what, act] : ways) {
        CAPTURE(what);
        list.Clear();
        Fill(30);
        sim::setPointer(list, Cell(1, 0));
        sim::setPointer(list, {60, 21 + 17 + 9});
        sim::setPointer(list, Cell(2, 0));
        CHECK(Events() == "MouseTip(1) MouseTip(2) ");
        sim::run(500);
        list.SetList(2, 4, "99");
        list.RemoveItem(20);
        CHECK(Events().empty());  // it is still over the same item
        act();
        sim::run(500);
        CHECK(Events() == "MouseTip(-1) ");
    }
    over.destroy();
    sim::setPointer(list, Cell(2, 0));
    sim::click(list, Cell(2, 0));  // does not leave the tip behind
    Events();
    sim::setPointer(list, beside);
    CHECK(Events() == "MouseTip(-1) ");
}
