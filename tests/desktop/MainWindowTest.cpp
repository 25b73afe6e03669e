// The main window as its user meets it: shown, sorted, selected, and found again as it was left.
#include <doctest/doctest.h>

#include <algorithm>

#include "desktop/Session.h"

using namespace desktop;

namespace {

constexpr int kPidColumn = 290, kFavoritesColumn = 60;  // points in these header cells

// Programs that give the list enough rows, whatever else runs and may be seen by a 32-bit program.
struct Company {
    explicit Company(const Installation& installation)
        : one(installation.AddProgram("Editor.exe")),
          two(installation.AddProgram("Player.exe")),
          three(installation.AddProgram("Compiler.exe")) {
        for (const Process* each : {&one, &two, &three}) each->WaitUntilIdle();
    }
    Process one, two, three;
};

// Clicks the header of a column until a click turns the rows upside down: the first one may have sorted them by
// that column, and processes come and go.
bool ClicksReverse(const List& list, int x) {
    std::vector<Picture> before;
    return Repeat(
        [&](int aside) {
            before = list.Rows(100);
            list.ClickHeader(x + aside);
        },
        [&] {
            std::vector<Picture> rows = list.Rows(100);
            std::reverse(rows.begin(), rows.end());
            return rows == before && rows.size() > 1;
        });
}

bool WidenFirstColumn(const List& list, int pixels) {
    const int wanted = list.FirstColumnEdge() + pixels;
    return Drag(
        list.Window(),
        [&] {
            return ToScreen(list.Window(), {list.FirstColumnEdge() - 1, 10});
        },
        ToScreen(list.Window(), {wanted - 1, 10}), [&] { return list.FirstColumnEdge() == wanted; });
}

bool MoveSplitter(HWND splitter, int pixels) {
    const auto grip = [&] { return Point{ScreenRect(splitter).left + 2, ScreenRect(splitter).top + 60}; };
    const Point end{grip().x + pixels, grip().y};
    return Drag(splitter, grip, end, [&] { return grip() == end; });
}

}  // namespace

TEST_CASE("start: the window shows the running processes") {
    const Installation installation;
    const Company company(installation);
    Session session(installation);
    REQUIRE(session.Started());

    const Rect bounds = ScreenRect(session.Main());
    CHECK(bounds.width() == 883);
    CHECK(bounds.height() == 445);
    CHECK(bounds.left == (1280 - 883) / 2);
    CHECK(WaitFor([&] { return !session.Processes().Header().Plain() && session.Processes().HasText(3); }));
    CHECK_FALSE(session.Favorites().HasText(0));
    CHECK(session.End());
}

TEST_CASE("list: headers sort, clicks and keys select") {
    const Installation installation;
    const Company company(installation);
    Session session(installation);
    REQUIRE(session.Started());
    const List& list = session.Processes();

    SUBCASE("a second click on a header turns the order round") {
        CHECK(ClicksReverse(list, kPidColumn));
    }

    SUBCASE("a click selects one row, Ctrl+A all") {
        CHECK(list.ClickRow(2));
        CHECK(WaitFor([&] { return !list.Selected(1); }));
        PressKey('A', true);
        CHECK(WaitFor([&] { return list.Selected(0) && list.Selected(1) && list.Selected(2); }));
    }
}

TEST_CASE("layout: position, widths, splitter and sort are found again as they were left") {
    const Installation installation;
    const std::string other = installation.AddProgram("Another.exe");
    WriteWholeFile(installation.ProfilePath(), kProfileHeader + FavoriteLine("0", "High", installation.Target()) +
                                                   FavoriteLine("1", "Low", other));
    Rect bounds, processList;
    std::optional<std::string> widths;
    std::vector<Picture> favorites;
    {
        Session session(installation);
        REQUIRE(session.Started());
        REQUIRE(WaitFor([&] { return session.Favorites().HasText(1); }));
        MoveWindow(session.Main(), 40, 30, 960, 480, TRUE);
        CHECK(WidenFirstColumn(session.Processes(), 40));
        CHECK(MoveSplitter(session.Splitter(), -50));
        CHECK(ClicksReverse(session.Favorites(), kFavoritesColumn));
        bounds = ScreenRect(session.Main());
        processList = ScreenRect(session.Processes().Window());
        favorites = session.Favorites().Rows(100);
        REQUIRE(session.End());
        widths = ReadSetting("FileColWide");
    }
    CHECK(bounds == Rect{40, 30, 1000, 510});
    CHECK(processList.right - bounds.left == doctest::Approx(474 - 50).epsilon(0.03));  // and the window's frame
    CHECK(widths.value_or("none") == "174,82,60,40,60,70,");

    Session session(installation);
    REQUIRE(session.Started());
    CHECK(ScreenRect(session.Main()) == bounds);
    CHECK(ScreenRect(session.Processes().Window()) == processList);
    CHECK(WaitFor([&] { return session.Favorites().Rows(100) == favorites; }));
    REQUIRE(session.End());
    CHECK(ReadSetting("FileColWide").value_or("none") == widths.value_or("none"));
}
