// The panel in which favourites get other settings, on the whole main window.
#include <string>
#include <vector>

#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

namespace key = platform::key;

constexpr const char* kPanel = "Favorite Settings";

struct Panel : Machine {
    Panel() {
        sim::putFile("C:\\Apps\\a.exe", "");
        sim::putFile("C:\\Apps\\b.exe", "");
        PutProfile(Line('a', "01\tDefault") + Line('b', "12\tLow"));
        Start();
    }
    static std::string Line(char program, const std::string& settings) {
        const std::string name(1, program);
        return std::string(1, static_cast<char>(program - 32)) + ".exe\t" + settings + "\tC:\\Apps\\" + name +
               ".exe\t-p\r\n";
    }
    void Open(std::vector<int> rows) {
        for (int row = 0; row < 2; ++row) form->FavoritesListControl().SelectItem(row, false);
        for (const int row : rows) form->FavoritesListControl().SelectItem(row, true);
        sim::whenMenu([](const std::vector<platform::MenuItem>& items) {
            REQUIRE(items[0].text == "Change Settings");
            return items[0].id;
        });
        sim::click(form->FavoritesListControl(), {40, 30 + 17 * rows.back()}, platform::MouseButton::Right);
        REQUIRE(Shown());
    }
    static bool Shown() { return sim::findWindow(kPanel) != nullptr; }
    // The focus is on the box of processor 0 at first, and the chooser follows the last box.
    static void ToggleBox(int cpu) {
        for (int i = 0; i < cpu; ++i) sim::pressKey(key::kTab);
        sim::pressKey(key::kSpace);
    }
    static std::string Saved() { return sim::file(kProfile1).value_or("").substr(std::string(kHeader).size()); }
};

}  // namespace

TEST_CASE("What differs among favourites is left alone unless it is touched, however the panel closes") {
    Panel desk;
    const int windows = sim::openHandles("window");
    const int timers = sim::openHandles("timer");
    desk.Open({0, 1});
    Panel::ToggleBox(0);
    SUBCASE("by Escape") {
        sim::pressKey(key::kEscape);
        CHECK(sim::focusedWindow() == &desk.form->FavoritesListControl());
    }
    SUBCASE("by its button") {
        platform::Window* button = sim::findWindow("Close");
        REQUIRE(button);
        sim::click(*button, {5, 5});
    }
    SUBCASE("by its close box") {
        sim::closeBox(*sim::findWindow(kPanel));
    }
    SUBCASE("by a click elsewhere") {
        sim::run(200);
        CHECK(Panel::Shown());
        sim::click(desk.form->ProcessList(), {40, 200});
        sim::run(50);
        CHECK(sim::focusedWindow() == &desk.form->ProcessList());
    }
    CHECK_FALSE(Panel::Shown());
    CHECK(Panel::Saved() == Panel::Line('a', "01\tDefault") + Panel::Line('b', "012\tLow"));
    CHECK(desk.form->FavoritesListControl().SelectedRows().size() == 2);
    CHECK(sim::openHandles("window") == windows);
    CHECK(sim::openHandles("timer") == timers);
}

TEST_CASE("One favourite gets another affinity and priority") {
    Panel desk;
    desk.Open({1});
    SUBCASE("both") {
        Panel::ToggleBox(3);
        sim::pressKey(key::kTab);
        sim::pressKey('H');
        sim::pressKey(key::kEscape);
        CHECK(Panel::Saved() == Panel::Line('a', "01\tDefault") + Panel::Line('b', "123\tHigh"));
    }
    SUBCASE("a touch that comes to nothing saves nothing") {
        sim::pressKey(key::kSpace);
        sim::pressKey(key::kSpace);
        sim::clearLog();
        sim::pressKey(key::kEscape);
        for (const std::string& entry : sim::log()) CHECK_FALSE(entry.starts_with("writeFile"));
    }
    SUBCASE("Escape closes an open list first") {
        for (int i = 0; i < 4; ++i) sim::pressKey(key::kTab);
        sim::pressKey(key::kF1 + 3);  // F4 drops it
        sim::pressKey(key::kEscape);
        CHECK(Panel::Shown());
        sim::pressKey(key::kEscape);
        CHECK_FALSE(Panel::Shown());
    }
    SUBCASE("at least one processor") {
        Panel::ToggleBox(1);
        sim::pressKey(key::kTab);
        sim::pressKey(key::kSpace);
        std::string title;
        sim::whenModal([&](platform::Window& dialog) {
            title = dialog.text();
            sim::pressKey(key::kEnter);
        });
        sim::pressKey(key::kEscape);
        CHECK(title == "Kestrum - Info");
        CHECK(Panel::Saved() == Panel::Line('a', "01\tDefault") + Panel::Line('b', "12\tLow"));
    }
}

TEST_CASE("What is shown is kept when the favourites go out of sight") {
    Panel desk;
    desk.Open({0});
    Panel::ToggleBox(3);
    SUBCASE("because the program goes into the notification area") {
        sim::closeBox(*desk.form);
    }
    SUBCASE("because the session ends") {
        sim::endSession();
    }
    SUBCASE("because another profile comes") {
        sim::whenMenu([](const std::vector<platform::MenuItem>& items) { return items[2].id; });
        desk.ClickButton(app::button::kFavoriteProfiles);
    }
    CHECK_FALSE(Panel::Shown());
    CHECK(Panel::Saved().find(Panel::Line('a', "013\tDefault")) != std::string::npos);
}

TEST_CASE("The user goes on to another favourite: that one is selected, and what comes next is for it") {
    Panel desk;
    desk.Open({0});
    Panel::ToggleBox(3);
    sim::whenMenu([](const std::vector<platform::MenuItem>& items) {
        sim::run(100);  // the panel closes meanwhile
        return items[4].submenu[1].id;
    });
    const platform::Point second{40, 30 + 17};
    sim::click(desk.form->FavoritesListControl(), second, platform::MouseButton::Right);
    CHECK_FALSE(Panel::Shown());
    CHECK(Panel::Saved() == Panel::Line('a', "013\tDefault"));
    CHECK(sim::file("C:\\Kestrum\\My Favs 2") == kHeader + Panel::Line('b', "12\tLow"));
}

TEST_CASE("With Auto Set on, new settings count for the programs that are running") {
    Panel desk;
    desk.ClickButton(app::button::kAutoSet);
    const platform::ProcessId id = Machine::Run("C:\\Apps\\a.exe");
    Machine::Tick(5);
    REQUIRE(sim::findProcess(id)->affinityMask == 3);
    desk.Open({0});
    Panel::ToggleBox(3);
    sim::pressKey(key::kEscape);
    Machine::Tick();
    CHECK(sim::findProcess(id)->affinityMask == 0xB);
}
