// Profiles, launching, parameters and the hand-over to Kestrum Jr., on the whole main window.
#include "AppFixture.h"
#include "platform/Files.h"

using namespace apptest;

namespace {

constexpr const char* kProfile2 = "C:\\Kestrum\\My Favs 2";
const std::string kLineA = "A.exe\t1\tHigh\tC:\\Apps\\a.exe\t-x  y\r\n";
const std::string kLineB = "B.exe\t2\tLow\tC:\\Apps\\b.exe\t\r\n";

struct Desk : Machine {
    Desk() {
        sim::putFile("C:\\Apps\\a.exe", "");
        sim::putFile("C:\\Apps\\b.exe", "");
        PutProfile(kLineA + kLineB);
    }
    void FavoritesMenu(const std::string& caption, const std::string& inside = "") {
        ChooseNext(caption, inside);
        sim::click(Favorites(), {40, 30}, platform::MouseButton::Right);
    }
    void ChooseBelow(int button, const std::string& caption) {
        ChooseNext(caption);
        ClickButton(button);
    }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "Another profile is loaded and set at once, and the old one is kept") {
    sim::putFile(kProfile2, kHeader + kLineB);
    const ProcessId a = Run("C:\\Apps\\a.exe");
    const ProcessId b = Run("C:\\Apps\\b.exe");
    PutProfile(kLineA);
    Store("AutoSet", "1");
    Start();
    Tick(2);
    CHECK(MaskOf(a) == 2);
    CHECK(MaskOf(b) == 0xF);
    ChooseBelow(app::button::kFavoriteProfiles, "My Favs 2");
    REQUIRE(Favorites().ListCount() == 1);
    CHECK(Favorites().CellText(0, 0) == "B.exe");
    CHECK(MaskOf(b) == 4);
    CHECK(sim::file(kProfile1) == kHeader + kLineA);

    ChooseBelow(app::button::kFavoriteProfiles, "My Favs 5 (Empty)");
    CHECK(Favorites().ListCount() == 0);
    CHECK_FALSE(sim::file("C:\\Kestrum\\My Favs 5"));
    bool checked = false;
    sim::whenMenu([&](const MenuItems& items) {
        checked = !items[0].enabled && items[5].checked && !items[2].checked;
        return 0;
    });
    ClickButton(app::button::kFavoriteProfiles);
    CHECK(checked);
}

TEST_CASE_FIXTURE(Desk, "Favourites are copied and moved to another profile, and launched by a double click") {
    Store("LaunchFav", "1");
    Start();
    sim::doubleClick(Favorites(), {40, 30});
    REQUIRE(sim::launches().size() == 1);
    CHECK(sim::launches()[0].file == "a.exe");
    CHECK(sim::launches()[0].folder == "C:\\Apps\\");
    CHECK(sim::launches()[0].parameters == "-x  y");

    FavoritesMenu("Copy Selected To...", "My Favs 2 (Empty)");
    CHECK(sim::file(kProfile2) == kHeader + kLineA);
    CHECK(Favorites().ListCount() == 2);
    FavoritesMenu("Move Selected To...", "My Favs 2");
    CHECK(sim::file(kProfile2) == kHeader + kLineA);  // there already
    CHECK(sim::file(kProfile1) == kHeader + kLineB);

    sim::pressKey(key::kRight);
    REQUIRE(sim::launches().size() == 1);
    sim::pressKey(key::kEnter);
    REQUIRE(sim::launches().size() == 2);
    CHECK_FALSE(sim::launches()[1].parameters);  // none at all, not an empty one
    Answer('Y');
    FavoritesMenu("Remove Selected");
    CHECK_FALSE(sim::file(kProfile1));
    CHECK(form->Status().Favorites() == "  |    Favorites: 0");
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE_FIXTURE(Desk, "Kestrum Jr. takes over when it is there, has favourites, and the user agrees") {
    platform::WindowFacts jr;
    jr.caption = "  Kestrum Jr.";
    const std::uintptr_t early = sim::addOtherWindow(jr);
    Start();
    CHECK(sim::closesPosted() == std::vector<std::uintptr_t>{early});  // only one of the two sets
    sim::doubleClick(Favorites(), {40, 30});  // launches nothing unless the user wants that
    const auto handOver = [&](const std::string& profile, std::uint16_t answer) {
        Answer(answer);
        ChooseBelow(app::button::kKestrumJr, profile);
    };
    handOver("My Favs 1", key::kEnter);
    CHECK(told.back().starts_with("File Missing\nMissing File: Kestrum_Jr.exe"));
    sim::putFile("C:\\Kestrum\\Kestrum_Jr.exe", "MZ");
    handOver("My Favs 3 (Empty)", key::kEnter);
    CHECK(told.back().starts_with("No Favorites\nMy Favs 3 is empty!"));
    handOver("My Favs 1", 'N');
    CHECK(told.back().starts_with("Launch Kestrum Jr?\nExit and start Kestrum Jr. using My Favs 1?"));
    CHECK(form->exists());
    CHECK(sim::launches().empty());

    std::string parameters = "/My Favs 1";
    SUBCASE("without Enforce") {}
    SUBCASE("with Enforce") {
        ClickButton(app::button::kAutoSet);
        ClickButton(app::button::kEnforce);
        parameters += " /Enforce 60";
    }
    handOver("My Favs 1", 'Y');
    REQUIRE(sim::launches().size() == 1);
    CHECK(sim::launches()[0].file == "Kestrum_Jr.exe");
    CHECK(sim::launches()[0].folder == "C:\\Kestrum\\");
    CHECK(sim::launches()[0].parameters == parameters);
    CHECK(sim::quitCode() == 0);
    CHECK(Stored("Splitter") == "474");
}

TEST_CASE_FIXTURE(Desk, "A parameter is edited in place") {
    sim::putFile("C:\\Apps\\gone.exe", "");
    PutProfile(kLineA + kLineB + "Gone.exe\t2\tLow\tC:\\Apps\\gone.exe\t\r\n");
    Store("LaunchFav", "1");
    Start();
    const auto edit = [&](const std::vector<int>& rows) {
        SelectFavorites(rows);
        sim::click(Favorites(), {40, 30}, platform::MouseButton::Middle);
    };
    const auto saved = [](const std::string& param) {
        return sim::file(kProfile1)->find("b.exe\t" + param + "\r\n") != std::string::npos;
    };
    CHECK(platform::deleteFile("C:\\Apps\\gone.exe"));
    edit({1});
    sim::typeText("one\ttwo");
    for (int held = 0; held < 3; ++held) sim::keyDown(key::kEnter);
    sim::keyUp(key::kEnter);
    CHECK(saved("one two"));
    CHECK(form->Status().Favorites() == "  |    Favorites: 2");  // one had gone, as the reload found
    CHECK(sim::focusedWindow() == &Favorites());
    CHECK(sim::launches().empty());  // the Enter was not for the list
    sim::clearLog();
    edit({1});
    CHECK(sim::focusedWindow()->text() == "one two");
    sim::pressKey(key::kEnter);  // nothing was changed: nothing is saved
    edit({1});
    sim::typeText("three");
    sim::pressKey(key::kEscape);
    CHECK(Logged("writeNewFile") == 0);
    Answer(key::kEnter);
    edit({0, 1});  // only one at a time
    CHECK(told.back().starts_with("File Parameter\n"));

    // Going on with something else takes it too, also when the rows have moved.
    edit({1});
    sim::typeText("three");
    Favorites().SortCol(0, false);
    Processes().focus();
    CHECK(saved("three"));
    // At the edge of its row when the column is out of sight; taken at the end of the program.
    Favorites().SetColumnWidths("900,82,70,50,50,");
    edit({1});
    const platform::Rect box = sim::focusedWindow()->bounds();
    CHECK(box.right == Favorites().clientSize().width);
    CHECK(box.contains({box.left, Favorites().CellRect(1, 0).top}));
    sim::typeText("four");
    sim::endSession();
    CHECK(saved("four"));
}

TEST_CASE_FIXTURE(Desk, "A press that ends the editing of a parameter is not for the row that comes under it") {
    sim::putFile("C:\\Apps\\c.exe", "");
    PutProfile(kLineA + kLineB + "C.exe\t2\tLow\tC:\\Apps\\c.exe\tb\r\n");
    Store("FavColSort", "4");
    Start();
    REQUIRE(Favorites().CellText(0, 0) == "B.exe");
    const platform::Point first{40, Favorites().HeaderHeight() + 9}, second{40, Favorites().HeaderHeight() + 26};
    const auto edit = [this](const char* param) {
        SelectFavorites({0});
        Favorites().focus();
        sim::pressKey(key::kF2);
        sim::typeText(param);
    };
    const auto top = [this] { return Favorites().CellText(0, 0); };
    edit("!");  // which leaves it where it is: the press is for it
    sim::click(Favorites(), first, platform::MouseButton::Left, {false, true, false});
    REQUIRE(top() == "B.exe");
    CHECK_FALSE(Favorites().Selected(0));

    edit("zzz");  // others come under the pointer, and neither menu nor double click is for them
    sim::click(Favorites(), second, platform::MouseButton::Right);
    REQUIRE(top() == "A.exe");
    CHECK(Logged("showMenu") == 0);
    edit("zzzz");
    sim::doubleClick(Favorites(), first);
    REQUIRE(top() == "C.exe");
    CHECK_FALSE(Favorites().Selected(0));
    sim::click(Favorites(), first);
    CHECK(Favorites().Selected(0));
}
