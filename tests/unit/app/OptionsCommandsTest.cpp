// The options dialog on the running program: what its changes do there at once.
#include "AppFixture.h"

using namespace apptest;

namespace {

struct Desk : Machine {
    static platform::Window* Dialog() { return sim::findWindow("Kestrum Options"); }
    void Open() {
        ClickButton(app::button::kSetOptions);
        REQUIRE(Dialog());
    }
    // A control, by its caption or name.
    static void Click(const std::string& name) {
        platform::Window* window = sim::findWindow(name);
        REQUIRE_MESSAGE(window, name);
        const platform::Point at{6, window->clientSize().height / 2};
        sim::setPointer(*window, at);
        sim::click(*window, at);
    }
    // The list with the focus is set to an entry.
    static void Pick(const std::string& name, int index) {
        Click(name);
        sim::pressKey(key::kHome);
        for (int i = 0; i < index; ++i) sim::pressKey(key::kDown);
        sim::pressKey(key::kEnter);
    }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "Options: the dialog stands beside the window, and stays when that goes") {
    Start();
    Open();
    platform::Window* dialog = Dialog();
    ClickButton(app::button::kSetOptions);
    CHECK(Dialog() == dialog);
    const ProcessId id = Run("C:\\Apps\\late.exe");
    Tick();
    CHECK(RowOf(id) >= 0);  // nothing rests meanwhile
    sim::closeBox(*form);
    CHECK_FALSE(form->visible());
    CHECK(dialog->visible());
    sim::trayEvent(platform::TrayEvent::LeftDoubleClick);
    CHECK(form->visible());
    sim::pressKey(key::kEscape);  // it is in front of the window that came back
    CHECK_FALSE(Dialog());
    sim::closeBox(*form);
    ChooseInTray(tray::command::kOptions);
    CHECK(Dialog());
}

TEST_CASE_FIXTURE(Desk, "Options: a change counts at once") {
    PutProfile("A.exe\t1\tHigh\tC:\\Apps\\a.exe\t\r\n");
    const ProcessId id = Run("C:\\Apps\\a.exe");
    Store("AutoSet", "1");
    Store("ReEnforce", "1");
    Start();
    Open();
    SUBCASE("the icon in the notification area, and the interval of Enforce") {
        Pick("CboTrayType", 0);
        Tick(4);
        CHECK(sim::trayIcons().at(0).source == "#1");
        Pick("CboTrayType", 2);
        Pick("CboEnforce", 0);
        ClassOf(id) = kNormal;
        Tick(21);
        CHECK(sim::trayIcons().at(0).source.empty());
        CHECK(ClassOf(id) == kHigh);
    }
    SUBCASE("hotkeys, and tips") {
        Click("Enable Hotkeys");
        HoldKeys({key::kCtrl, key::kShift, '3'});
        sim::run(100);
        CHECK(Favorites().ListCount() == 0);
        ReleaseKeys({'3', key::kShift});
        sim::run(1100);
        Click("Enable Hotkeys");
        HoldKeys({key::kShift, '1'});
        sim::run(100);
        CHECK(Favorites().ListCount() == 0);
        Click("Show ToolTips");
        sim::setPointer(Favorites(), {5, 5});
        sim::setPointer(form->ToolBar1(), {5, 5});
        CHECK(sim::tips().empty());
    }
    SUBCASE("what the lists say of profiles, be one copied to or emptied") {
        SelectFavorites({0});
        ChooseNext("Copy Selected To...", "My Favs 2 (Empty)");
        sim::click(Favorites(), {40, 30}, platform::MouseButton::Right);
        Answer('Y');
        ClickButton(app::button::kRemoveFavorites);
        Click("Start Up");
        CHECK(TextOf(*sim::findWindow("CboFavJr")) == "My Favs 1 (Empty)");
        Pick("CboFav", 1);
        CHECK(TextOf(*sim::findWindow("CboFav")) == "My Favs 2");
    }
}

TEST_CASE_FIXTURE(Desk, "Options: the graphs that are open follow") {
    Start();
    form->Graphs().Launch("a.exe", Run("C:\\Apps\\a.exe"));
    graphs::iCPU& graph = *form->Graphs().InSlot(1);
    Open();
    Click("CPU Graphs");
    Click("Show Total /Avg");
    platform::Window* const both[] = {&graph, sim::findWindow("CPU usage")};
    REQUIRE(both[1]);
    CHECK(Logged("setTopmost CPU usage 1") == 0);  // nothing on it could change that
    for (platform::Window* window : both) CHECK_FALSE(sim::translucency(*window).hole);
    Click("Transparent Graphs");
    for (platform::Window* window : both) CHECK(sim::translucency(*window).hole);
    Click("Transparent Graphs");
    sim::findWindow("HScrl")->focus();
    sim::pressKey(key::kEnd);
    for (platform::Window* window : both) CHECK(sim::translucency(*window).alpha == graphs::AlphaOfLevel(100));

    for (platform::Window* window : both) sim::paint(*window);
    Pick("CboGphCap", 7);  // yellow
    CHECK_FALSE(sim::invalidArea(*both[1]).empty());
    const std::vector<sim::Drawn> drawn = sim::paint(graph);
    CHECK(std::any_of(drawn.begin(), drawn.end(), [](const sim::Drawn& each) {
        return each.what == "text" && each.color == platform::rgb(255, 255, 0);
    }));

    Click("Edge Detection");
    sim::whenDragged({2000, 0});
    sim::mouseDown(graph, {5, 5});
    CHECK(graph.bounds().left > 1280);
    Click("Edge Detection");
    CHECK(graph.bounds().right == 1280);

    sim::setPointer(graph, {5, 5});
    sim::run(700);
    CHECK(sim::tips().size() == 1);
    sim::findWindow("Stay On Top")->focus();
    sim::pressKey(key::kSpace);
    sim::pressKey(key::kTab);  // to the box for tips
    sim::pressKey(key::kSpace);
    sim::setPointer(graph, {5, 5});
    sim::run(700);
    CHECK(sim::tips().empty());
    // One that opens now has all of it, also the level, which is not written yet.
    form->Graphs().Launch("b.exe", Run("C:\\Apps\\b.exe"));
    CHECK(sim::translucency(*form->Graphs().InSlot(2)).alpha == graphs::AlphaOfLevel(100));
    CHECK(Logged("setTopmost b 1") == 0);
}

TEST_CASE_FIXTURE(Desk, "Options: columns and splitter go back to those of a first start, in both sets") {
    Store("FileColWide", "50,50,50,50,50,50,");
    Store("SplitterMax", "300");
    Start();
    CHECK(Processes().ColumnWidthsText() == "50,50,50,50,50,50,");
    Open();
    SUBCASE("with the window, its question closed by the frame") {
        sim::whenModal([](platform::Window& box) { sim::closeBox(box); });
    }
    SUBCASE("while it is in the notification area") {
        sim::closeBox(*form);
        Answer('Y');
    }
    Click("Column Widths");
    CHECK(Processes().ColumnWidthsText() == "134,82,60,40,60,70,");
    for (const bool atTheEnd : {false, true}) {
        if (atTheEnd) Exit();
        CHECK(Stored("FileColWide") == "134,82,60,40,60,70,");
        CHECK(Stored("FavColWideMax") == "134,82,70,50,50,");
        CHECK(Stored("SplitterMax") == "474");
    }
}

TEST_CASE_FIXTURE(Desk, "Options: all settings forgotten, and the program begins anew if the user likes") {
    Start();
    for (const char* name : {"Kestrum_Jr", "Kestrum2", "Other"}) sim::putRunEntry(name, "x");
    Open();
    Click("Show ToolTips");
    Click("CPU Graphs");
    Click("Show Total /Avg");
    Click("Misc");
    std::vector<std::string> documents;
    Answer('Y');
    SUBCASE("yes, after another start has brought the window back") {
        sim::whenModal([](platform::Window&) {
            CHECK(app::Form1().Start() == app::Form1::StartResult::Duplicate);
            CHECK(sim::openHandles("timer") == 0);
            sim::pressKey('Y');
        });
        documents = {"C:\\Kestrum\\Kestrum2.exe"};
    }
    SUBCASE("no") {
        Answer('N');
    }
    Click("Restore All");
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openedDocuments() == documents);
    CHECK(sim::topLevelWindows().empty());
    CHECK(sim::trayIcons().empty());
    for (const char* name : {"Kestrum_Jr", "Kestrum2"}) CHECK_FALSE(sim::runEntry(name));
    CHECK(sim::runEntry("Other"));
    form.reset();
    for (const char* name :
         {"ShowTips", "FavColSort", "Form1_Pos", "FrmColorMeter_Pos", "TransLevel", "Splitter"}) {
        CHECK_FALSE(Stored(name));
    }
}

TEST_CASE_FIXTURE(Desk, "Options: the shadow comes with a restart") {
    Start();
    Open();
    Click("Start Up");
    Answer('N');
    Click("Show Shadows");
    Click("CPU Graphs");
    Pick("CboGphCap", 2);  // the other options of graphs are read anew
    form->Graphs().Launch("a.exe", Run("C:\\Apps\\a.exe"));
    CHECK_FALSE(sim::hasDropShadow(*form->Graphs().InSlot(1)));
    Click("Start Up");
    Answer('N');
    Click("Show Shadows");
    Answer('Y');
    Click("Show Shadows");
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Kestrum2.exe"});
    CHECK(Stored("Shadow") == "1");
    CHECK(Stored("TransLevel") == "85");
    // The next copy finds everything as it was left.
    const std::vector<std::string> log = sim::log();
    const auto started = std::find(log.begin(), log.end(), "openDocument C:\\Kestrum\\Kestrum2.exe");
    CHECK(std::none_of(started, log.end(), [](const auto& entry) { return entry.starts_with("storeWrite"); }));
}
