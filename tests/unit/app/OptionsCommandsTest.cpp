// The options dialog on the running program: what its changes do there at once.
#include <algorithm>
#include <string>
#include <vector>

#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

namespace key = platform::key;

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
    // What a list shows.
    static std::string Face(const std::string& name) {
        std::string shown;
        for (const sim::Drawn& drawn : sim::paint(*sim::findWindow(name), true)) {
            if (drawn.what == "text") shown = drawn.text;
        }
        return shown;
    }
    static void Answer(std::uint16_t code) {
        sim::whenModal([code](platform::Window&) { sim::pressKey(code); });
    }
    static std::string IconSource() { return sim::trayIcons().at(0).source; }
};

}  // namespace

TEST_CASE("Options: the dialog stands beside the window, and stays when that goes") {
    Desk desk;
    desk.Start();
    desk.Open();
    platform::Window* dialog = Desk::Dialog();
    desk.ClickButton(app::button::kSetOptions);
    CHECK(Desk::Dialog() == dialog);
    const platform::ProcessId id = Machine::Run("C:\\Apps\\late.exe");
    Machine::Tick();
    CHECK(desk.RowOf(id) >= 0);  // nothing rests meanwhile
    sim::closeBox(*desk.form);
    CHECK_FALSE(desk.form->visible());
    CHECK(dialog->visible());
    sim::closeBox(*dialog);
    Machine::ChooseInTray(tray::command::kOptions);
    CHECK(Desk::Dialog());
    Machine::Tick(3);
}

TEST_CASE("Options: a change counts at once") {
    Desk desk;
    Machine::PutProfile("A.exe\t1\tHigh\tC:\\Apps\\a.exe\t\r\n");
    sim::putFile("C:\\Apps\\a.exe", "");
    sim::putSetting(kSection, "AutoSet", "1");
    sim::putSetting(kSection, "ReEnforce", "1");
    desk.Start();
    desk.Open();
    SUBCASE("the icon in the notification area") {
        CHECK(Desk::IconSource().empty());
        Desk::Pick("CboTrayType", 0);
        CHECK(Desk::IconSource() == "#1");
        Machine::Tick(2);
        CHECK(Desk::IconSource() == "#1");
        Desk::Pick("CboTrayType", 2);
        Machine::Tick();
        CHECK(Desk::IconSource().empty());
    }
    SUBCASE("the interval of Enforce") {
        const platform::ProcessId id = Machine::Run("C:\\Apps\\a.exe");
        Machine::Tick(4);
        Desk::Pick("CboEnforce", 0);
        sim::findProcess(id)->priorityClass = 0x20;
        Machine::Tick(21);
        CHECK(sim::findProcess(id)->priorityClass == 0x80);
    }
    SUBCASE("hotkeys") {
        Desk::Click("Enable Hotkeys");
        for (const std::uint16_t code : {key::kCtrl, key::kShift, std::uint16_t{'3'}}) sim::holdKey(code);
        sim::run(100);
        for (const std::uint16_t code : {key::kCtrl, key::kShift, std::uint16_t{'3'}}) sim::releaseKey(code);
        CHECK(desk.form->FavoritesListControl().ListCount() == 0);
        Desk::Click("Enable Hotkeys");
        CHECK(sim::setting(kSection, "Hotkey") == "0");
    }
    SUBCASE("graphs that are open") {
        desk.form->ProcessList().SelectItem(0, true);
        desk.form->Graphs().Launch("a.exe", Machine::Run("C:\\Apps\\a.exe"));
        graphs::iCPU* graph = desk.form->Graphs().InSlot(1);
        REQUIRE(graph);
        CHECK_FALSE(sim::translucency(*graph).hole);
        Desk::Click("CPU Graphs");
        Desk::Click("Transparent Graphs");
        CHECK(sim::translucency(*graph).hole);
        Desk::Click("Transparent Graphs");
        CHECK(sim::translucency(*graph).alpha == graphs::AlphaOfLevel(85));
        Desk::Click("Show Total /Avg");
        CHECK(sim::findWindow("CPU usage"));
    }
    SUBCASE("what the lists say of profiles, be one copied to or emptied") {
        desk.form->FavoritesListControl().SelectItem(0, true);
        sim::whenMenu([](const std::vector<platform::MenuItem>& items) { return items[2].submenu[1].id; });
        sim::click(desk.form->FavoritesListControl(), {40, 30}, platform::MouseButton::Right);
        Desk::Answer('Y');
        desk.ClickButton(app::button::kRemoveFavorites);
        Desk::Click("Start Up");
        CHECK(Desk::Face("CboFavJr") == "My Favs 1 (Empty)");
        Desk::Click("Start Up");
        Desk::Click("CboFav");
        sim::pressKey(key::kHome);
        sim::pressKey(key::kDown);
        sim::pressKey(key::kEnter);
        CHECK(Desk::Face("CboFav") == "My Favs 2");
    }
}

TEST_CASE("Options: columns and splitter go back to those of a first start, in both sets") {
    Desk desk;
    sim::putSetting(kSection, "FileColWide", "50,50,50,50,50,50,");
    sim::putSetting(kSection, "SplitterMax", "300");
    desk.Start();
    CHECK(desk.form->ProcessList().ColumnWidthsText() == "50,50,50,50,50,50,");
    desk.Open();
    SUBCASE("with the window") {}
    SUBCASE("while it is in the notification area") {
        sim::closeBox(*desk.form);
    }
    Desk::Answer('Y');
    Desk::Click("Column Widths");
    CHECK(desk.form->ProcessList().ColumnWidthsText() == "134,82,60,40,60,70,");
    desk.Exit();
    CHECK(sim::setting(kSection, "FileColWide") == "134,82,60,40,60,70,");
    CHECK(sim::setting(kSection, "FavColWideMax") == "134,82,70,50,50,");
    CHECK(sim::setting(kSection, "SplitterMax") == "474");
}

TEST_CASE("Options: all settings forgotten, and the program begins anew if the user likes") {
    Desk desk;
    desk.Start();
    sim::putRunEntry("Kestrum_Jr", "x");
    sim::putRunEntry("Kestrum2", "x");
    sim::putRunEntry("Other", "x");
    desk.Open();
    Desk::Click("Show ToolTips");
    Desk::Click("CPU Graphs");
    Desk::Click("Show Total /Avg");
    Desk::Click("Misc");
    std::vector<std::string> documents;
    Desk::Answer('Y');
    SUBCASE("yes") {
        Desk::Answer('Y');
        documents = {"C:\\Kestrum\\Kestrum2.exe"};
    }
    SUBCASE("no") {
        Desk::Answer('N');
    }
    Desk::Click("Restore All");
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openedDocuments() == documents);
    CHECK(sim::topLevelWindows().empty());
    CHECK(sim::trayIcons().empty());
    CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
    CHECK_FALSE(sim::runEntry("Kestrum2"));
    CHECK(sim::runEntry("Other"));
    desk.form.reset();
    for (const char* name :
         {"ShowTips", "FavColSort", "Form1_Pos", "FrmColorMeter_Pos", "TransLevel", "Splitter"}) {
        CHECK_FALSE(sim::setting(kSection, name));
    }
}

TEST_CASE("Options: only a Yes deletes, not the answer to an earlier question") {
    Desk desk;
    desk.Start();
    desk.Open();
    Desk::Answer('Y');
    Desk::Click("Column Widths");
    sim::whenModal([](platform::Window& box) { sim::closeBox(box); });
    Desk::Click("Restore All");
    CHECK(Desk::Dialog());
    CHECK(sim::quitCode() == -1);
}

TEST_CASE("Options: the shadow comes with a restart") {
    Desk desk;
    desk.Start();
    desk.Open();
    Desk::Click("Start Up");
    Desk::Answer('Y');
    Desk::Click("Show Shadows");
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Kestrum2.exe"});
    CHECK(sim::setting(kSection, "Shadow") == "1");
    CHECK(sim::setting(kSection, "TransLevel") == "85");
    // The next copy finds everything as it was left.
    const auto log = sim::log();
    const auto started = std::find_if(log.begin(), log.end(),
                                      [](const std::string& entry) { return entry.starts_with("openDocument"); });
    CHECK(
        std::none_of(started, log.end(), [](const std::string& entry) { return entry.starts_with("storeWrite"); }));
}
