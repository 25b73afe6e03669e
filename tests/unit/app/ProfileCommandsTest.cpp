// Profiles, launching, and the hand-over to Kestrum Jr., on the whole main window.
#include <algorithm>
#include <string>
#include <vector>

#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

constexpr const char* kProfile2 = "C:\\Kestrum\\My Favs 2";
constexpr const char* kLineA = "A.exe\t1\tHigh\tC:\\Apps\\a.exe\t-x  y\r\n";
constexpr const char* kLineB = "B.exe\t2\tLow\tC:\\Apps\\b.exe\t\r\n";

struct Desk : Machine {
    Desk() {
        sim::putFile("C:\\Apps\\a.exe", "");
        sim::putFile("C:\\Apps\\b.exe", "");
    }
    controls::UcList1& Favorites() { return form->FavoritesListControl(); }
    // Chooses by caption, in the menu itself or one inside it.
    void Choose(const std::string& caption, const std::string& inside = "") {
        sim::whenMenu([=](const std::vector<platform::MenuItem>& items) {
            for (const platform::MenuItem& item : items) {
                if (item.text != caption) continue;
                if (inside.empty()) return item.id;
                for (const platform::MenuItem& inner : item.submenu) {
                    if (inner.text == inside) return inner.id;
                }
            }
            FAIL("the menu does not offer it");
            return 0;
        });
    }
    void FavoritesMenu(const std::string& caption, const std::string& inside = "") {
        Choose(caption, inside);
        sim::click(Favorites(), {40, 30}, platform::MouseButton::Right);
    }
};

}  // namespace

TEST_CASE("Another profile is loaded and set at once, and the old one is kept") {
    Desk desk;
    Machine::PutProfile(kLineA);
    sim::putFile(kProfile2, std::string(kHeader) + kLineB);
    const platform::ProcessId b = Machine::Run("C:\\Apps\\b.exe");
    sim::putSetting(kSection, "AutoSet", "1");
    desk.Start();
    Machine::Tick(2);
    CHECK(sim::findProcess(b)->affinityMask == 0xF);
    desk.Choose("My Favs 2");
    desk.ClickButton(app::button::kFavoriteProfiles);
    REQUIRE(desk.Favorites().ListCount() == 1);
    CHECK(desk.Favorites().CellText(0, 0) == "B.exe");
    CHECK(sim::findProcess(b)->affinityMask == 4);
    CHECK(*sim::file(kProfile1) == std::string(kHeader) + kLineA);

    desk.Choose("My Favs 5 (Empty)");
    desk.ClickButton(app::button::kFavoriteProfiles);
    CHECK(desk.Favorites().ListCount() == 0);
    CHECK_FALSE(sim::file("C:\\Kestrum\\My Favs 5"));
    bool checked = false;
    sim::whenMenu([&](const std::vector<platform::MenuItem>& items) {
        checked = !items[0].enabled && items[5].checked && !items[2].checked;
        return 0;
    });
    desk.ClickButton(app::button::kFavoriteProfiles);
    CHECK(checked);
}

TEST_CASE("Favourites are copied and moved to another profile") {
    Desk desk;
    Machine::PutProfile(std::string(kLineA) + kLineB);
    desk.Start();
    desk.Favorites().SelectItem(0, true);
    desk.FavoritesMenu("Copy Selected To...", "My Favs 2 (Empty)");
    CHECK(*sim::file(kProfile2) == std::string(kHeader) + kLineA);
    CHECK(desk.Favorites().ListCount() == 2);
    desk.FavoritesMenu("Move Selected To...", "My Favs 2");
    CHECK(*sim::file(kProfile2) == std::string(kHeader) + kLineA);  // there already
    CHECK(*sim::file(kProfile1) == std::string(kHeader) + kLineB);
    sim::whenModal([](platform::Window&) { sim::pressKey('Y'); });
    desk.FavoritesMenu("Remove Selected");
    CHECK_FALSE(sim::file(kProfile1));
}

TEST_CASE("A double click launches a favourite with its parameter, if the user wants that") {
    Desk desk;
    Machine::PutProfile(std::string(kLineA) + kLineB);
    SUBCASE("wanted") {
        sim::putSetting(kSection, "LaunchFav", "1");
        desk.Start();
        sim::doubleClick(desk.Favorites(), {40, 30});
        REQUIRE(sim::launches().size() == 1);
        CHECK(sim::launches()[0].file == "a.exe");
        CHECK(sim::launches()[0].folder == "C:\\Apps\\");
        CHECK(sim::launches()[0].parameters == "-x  y");
        sim::doubleClick(desk.Favorites(), {40, 47});
        REQUIRE(sim::launches().size() == 2);
        CHECK_FALSE(sim::launches()[1].parameters);  // none at all, not an empty one
    }
    SUBCASE("not wanted") {
        desk.Start();
        sim::doubleClick(desk.Favorites(), {40, 30});
        CHECK(sim::launches().empty());
    }
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE("Kestrum Jr. takes over when it is there, has favourites, and the user agrees") {
    Desk desk;
    Machine::PutProfile(kLineA);
    platform::WindowFacts jr;
    jr.caption = "  Kestrum Jr.";
    std::string said;
    const auto answer = [&](std::uint16_t key) {
        sim::whenModal([&said, key](platform::Window& dialog) {
            said = dialog.text();
            for (const sim::Drawn& drawn : sim::paint(dialog, true)) {
                if (drawn.what == "text") said += "|" + drawn.text;
            }
            sim::pressKey(key);
        });
    };
    const auto handOver = [&](const std::string& profile) {
        desk.Choose(profile);
        desk.ClickButton(app::button::kKestrumJr);
    };
    const std::uintptr_t early = sim::addOtherWindow(jr);
    desk.Start();
    CHECK(sim::closesPosted() == std::vector<std::uintptr_t>{early});  // only one of the two sets

    answer(platform::key::kEnter);
    handOver("My Favs 1");
    CHECK(said == "File Missing|Missing File: Kestrum_Jr.exe");
    sim::putFile("C:\\Kestrum\\Kestrum_Jr.exe", "MZ");
    answer(platform::key::kEnter);
    handOver("My Favs 3 (Empty)");
    CHECK(said == "No Favorites|My Favs 3 is empty!");
    answer('N');
    handOver("My Favs 1");
    CHECK(said.find("Launch Kestrum Jr?|Exit and start Kestrum Jr. using My Favs 1?") == 0);
    CHECK(desk.form->exists());
    CHECK(sim::launches().empty());

    std::string parameters = "/My Favs 1";
    SUBCASE("without Enforce") {}
    SUBCASE("with Enforce") {
        desk.ClickButton(app::button::kAutoSet);
        desk.ClickButton(app::button::kEnforce);
        parameters += " /Enforce 60";
    }
    answer('Y');
    handOver("My Favs 1");
    REQUIRE(sim::launches().size() == 1);
    CHECK(sim::launches()[0].file == "Kestrum_Jr.exe");
    CHECK(sim::launches()[0].folder == "C:\\Kestrum\\");
    CHECK(sim::launches()[0].parameters == parameters);
    CHECK(sim::quitCode() == 0);
    CHECK(sim::setting(kSection, "Splitter") == "474");
}

TEST_CASE("A parameter is edited in place") {
    Desk desk;
    Machine::PutProfile(std::string(kLineA) + kLineB);
    desk.Start();
    const auto param = [&](int row) { return desk.Favorites().CellText(row, 4); };
    const auto edit = [&](int row) {
        for (int i = 0; i < 2; ++i) desk.Favorites().SelectItem(i, i == row);
        sim::click(desk.Favorites(), {40, 30}, platform::MouseButton::Middle);
    };
    edit(1);
    sim::typeText("one\ttwo");
    SUBCASE("Enter takes it") {
        sim::pressKey(platform::key::kEnter);
        CHECK(param(1) == "one two");
        CHECK(sim::file(kProfile1)->find("b.exe\tone two\r\n") != std::string::npos);
        CHECK(sim::focusedWindow() == &desk.Favorites());
        const std::string before = *sim::file(kProfile1);
        sim::clearLog();
        edit(1);
        sim::pressKey(platform::key::kEnter);  // nothing was changed: nothing is saved
        const std::vector<std::string> log = sim::log();
        CHECK(std::none_of(log.begin(), log.end(),
                           [](const std::string& entry) { return entry.starts_with("writeFile"); }));
    }
    SUBCASE("Escape does not") {
        sim::pressKey(platform::key::kEscape);
        CHECK(param(1).empty());
    }
    SUBCASE("going on with something else does, also when the rows have moved, and the end of the program") {
        SUBCASE("") {
            desk.form->ProcessList().focus();
        }
        SUBCASE("") {
            desk.form->FavoritesListControl().SortCol(0, false);
            desk.form->ProcessList().focus();
        }
        SUBCASE("") {
            sim::endSession();
        }
        CHECK(sim::file(kProfile1)->find("b.exe\tone two\r\n") != std::string::npos);
    }
    SUBCASE("only one at a time") {
        sim::pressKey(platform::key::kEscape);
        desk.Favorites().SelectItem(0, true);
        desk.Favorites().SelectItem(1, true);
        std::string title;
        sim::whenModal([&](platform::Window& dialog) {
            title = dialog.text();
            sim::pressKey(platform::key::kEnter);
        });
        sim::click(desk.Favorites(), {40, 30}, platform::MouseButton::Middle);
        CHECK(title == "File Parameter");
    }
}
