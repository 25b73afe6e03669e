// The panel in which favourites get other settings, on the whole main window.
#include "AppFixture.h"

using namespace apptest;

namespace {

constexpr const char* kPanel = "Favorite Settings";

struct Desk : Machine {
    Desk() {
        sim::putFile("C:\\Apps\\a.exe", "");
        sim::putFile("C:\\Apps\\b.exe", "");
        PutProfile(Lines("01\tDefault", "12\tLow"));
        Start();
    }
    // A profile with these settings of the two favourites.
    static std::string Lines(const std::string& ofA, const std::string& ofB) {
        return "A.exe\t" + ofA + "\tC:\\Apps\\a.exe\t-p\r\nB.exe\t" + ofB + "\tC:\\Apps\\b.exe\t-p\r\n";
    }
    void Open(std::vector<int> rows) {
        SelectFavorites(rows);
        ChooseNext("Change Settings");
        sim::click(Favorites(), {40, 30 + 17 * rows.back()}, platform::MouseButton::Right);
        REQUIRE(Shown());
    }
    static void Close() { sim::click(*sim::findWindow("Close"), {5, 5}); }
    static bool Shown() { return sim::findWindow(kPanel) != nullptr; }
    // The focus is on the box of processor 0 at first, and the chooser follows the last box.
    static void ToggleBox(int cpu) {
        for (int i = 0; i < cpu; ++i) sim::pressKey(key::kTab);
        sim::pressKey(key::kSpace);
    }
    static std::string Saved() { return sim::file(kProfile1).value_or("").substr(std::string(kHeader).size()); }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "What differs among favourites is left alone unless touched, and all of it by Escape") {
    const ProcessId id = Run("C:\\Apps\\b.exe");
    ClickButton(app::button::kAutoSet);
    Tick(5);
    const int windows = sim::openHandles("window");
    const int timers = sim::openHandles("timer");
    Open({0, 1});
    ToggleBox(0);
    bool escaped = false;
    SUBCASE("closed by Escape") {
        sim::pressKey(key::kEscape);
        CHECK(sim::focusedWindow() == &Favorites());
        escaped = true;
    }
    SUBCASE("by its button") {
        Close();
    }
    SUBCASE("by its close box") {
        sim::closeBox(*sim::findWindow(kPanel));
    }
    SUBCASE("by a click elsewhere") {
        sim::run(200);
        CHECK(Shown());
        sim::click(Processes(), {40, 200});
        sim::run(50);
        CHECK(sim::focusedWindow() == &Processes());
    }
    CHECK_FALSE(Shown());
    CHECK(Saved() == Lines("01\tDefault", escaped ? "12\tLow" : "012\tLow"));
    CHECK(Favorites().SelectedRows().size() == 2);
    CHECK(sim::openHandles("window") == windows);
    CHECK(sim::openHandles("timer") == timers);
    Tick();
    CHECK(MaskOf(id) == (escaped ? 0b110 : 0b111));  // with Auto Set on the new settings count at once
}

TEST_CASE_FIXTURE(Desk, "One favourite gets another affinity and priority") {
    Open({1});
    sim::clearLog();
    sim::pressKey(key::kSpace);
    sim::pressKey(key::kSpace);  // a touch that comes to nothing
    std::string shown;
    for (platform::Window* control : sim::controlsOf(*sim::findWindow(kPanel))) shown += TextOf(*control) + "\n";
    CHECK(shown == "B.exe\nCPU 0\nCPU 1\nCPU 2\nCPU 3\nPriority\nLow\nClose\n");
    Close();
    Open({1});
    ToggleBox(1);
    sim::pressKey(key::kTab);
    sim::pressKey(key::kSpace);
    Answer(key::kEnter);  // one processor at least
    Close();
    CHECK(told.size() == 1);
    CHECK(Saved() == Lines("01\tDefault", "12\tLow"));
    CHECK(Logged("writeNewFile") == 0);

    Open({1});
    platform::Window& panel = *sim::findWindow(kPanel);
    sim::pressKey(key::kTab);
    panel.focus();  // the frame hands it on to the first box
    sim::pressKey(key::kSpace);
    sim::paint(panel);
    sim::setSystemColor(platform::SysColor::ButtonFace, platform::rgb(1, 2, 3));
    sim::paint(panel);
    CHECK(sim::pixelAt(panel, {1, 1}) == platform::rgb(1, 2, 3));
    for (int i = 0; i < 4; ++i) sim::pressKey(key::kTab);
    sim::pressKey('H');
    sim::pressKey(key::kF1 + 3);  // F4 drops the list, which Escape closes first
    sim::pressKey(key::kEscape);
    CHECK(Shown());
    Close();
    CHECK_FALSE(Shown());
    CHECK(Saved() == Lines("01\tDefault", "012\tHigh"));
}

TEST_CASE_FIXTURE(Desk, "What is shown is kept when the favourites go out of sight") {
    Open({0});
    ToggleBox(3);
    SUBCASE("because the program goes into the notification area") {
        sim::closeBox(*form);
    }
    SUBCASE("because the session ends") {
        sim::endSession();
    }
    SUBCASE("because another profile comes") {
        ChooseNext("My Favs 2 (Empty)");
        ClickButton(app::button::kFavoriteProfiles);
    }
    CHECK_FALSE(Shown());
    CHECK(Saved() == Lines("013\tDefault", "12\tLow"));
}

TEST_CASE_FIXTURE(Desk, "The user goes on to another favourite: it is selected, and what comes next is for it") {
    Open({0});
    ToggleBox(3);
    sim::whenMenu([](const MenuItems& items) {
        sim::run(100);  // the panel closes meanwhile
        return items[4].submenu[1].id;
    });
    sim::click(Favorites(), {40, 30 + 17}, platform::MouseButton::Right);
    CHECK_FALSE(Shown());
    CHECK(Saved() == "A.exe\t013\tDefault\tC:\\Apps\\a.exe\t-p\r\n");
    CHECK(sim::file("C:\\Kestrum\\My Favs 2") == kHeader + std::string("B.exe\t12\tLow\tC:\\Apps\\b.exe\t-p\r\n"));
}
