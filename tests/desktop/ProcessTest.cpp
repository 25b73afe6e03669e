// Hands on processes: changed, ended, filtered, dragged to the favourites, and looked at from outside.
#include <doctest/doctest.h>

#include "desktop/Session.h"

using namespace desktop;

namespace {

constexpr int kApplyChanges = 0, kFileFilter = 1;  // buttons of ToolBar1

}  // namespace

TEST_CASE("processes: several are changed at once, and ended after a question") {
    const Installation installation;
    FirstTwo company(installation);
    Session session(installation);
    REQUIRE(session.Started());
    REQUIRE(session.Processes().SelectFirstTwo());
    const HWND box = Child(session.Main(), "CheckBox", "CpuAffinity0");
    REQUIRE(box != nullptr);
    const auto changed = [&] { return company.first.Affinity() == 2 && company.second.Affinity() == 2; };
    CHECK(Repeat(
        [&](int) {
            PressKeyIn(box, VK_SPACE);
            session.ClickToolBar1(kApplyChanges);
        },
        changed));
    REQUIRE(WaitFor([&] { return session.Processes().Selected(0) && session.Processes().Selected(1); }));

    PressKeyIn(session.Processes().Window(), VK_DELETE);
    const HWND question = WaitForDialog("Kestrum - Info");
    REQUIRE(question != nullptr);
    CHECK(company.first.Running());
    CHECK(Repeat([&](int) { PressKeyIn(question, 'Y'); }, [&] { return !IsWindow(question); }));
    CHECK(company.first.WaitForEnd());
    CHECK(company.second.WaitForEnd());
    CHECK(session.End());
}

TEST_CASE("processes: filtered, hidden, shown again; dragged to the favourites") {
    const Installation installation;
    FirstTwo company(installation);
    Session session(installation);
    REQUIRE(session.Started());
    const List& list = session.Processes();
    const std::string filter = installation.Folder() + "FileFilter";
    REQUIRE(list.ClickRow(0));
    const auto selected = list.Rows(100)[0];

    constexpr int kAddToFilter = 1;  // button of ToolBar2
    CHECK(Repeat([&](int aside) { session.ClickToolBar2(kAddToFilter, aside / 4); },
                 [&] { return ReadWholeFile(filter) == "Aaa.exe\r\n"; }));
    CHECK(session.ToggleToolBar1(kFileFilter));
    const auto hidden = [&] {
        const auto rows = list.Rows(100);
        return !rows.empty() && rows[0] != selected;
    };
    CHECK(WaitFor(hidden));

    REQUIRE(list.ClickRow(0));  // Aab.exe now
    const Rect target = ScreenRect(session.Favorites().Window());
    CHECK(Drag(
        list.Window(),
        [&] {
            return ToScreen(list.Window(), {list.Row(0).left + 40, list.Row(0).top + 8});
        },
        {(target.left + target.right) / 2, (target.top + target.bottom) / 2},
        [&] { return session.Favorites().HasText(0); }));
    CHECK(WaitFor(
        [&] { return ReadWholeFile(installation.ProfilePath()).find("\\Aab.exe\t") != std::string::npos; }));
    CHECK(session.End());
}
