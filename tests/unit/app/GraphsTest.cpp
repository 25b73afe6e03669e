// CPU graphs, opened from the process list and found again in the notification area, on the whole main window.
#include <algorithm>
#include <string>
#include <vector>

#include "AppFixture.h"
#include "app/MainToolBars.h"
#include "app/ProcessCommands.h"

using namespace apptest;

namespace {

struct Desk : Machine {
    void SelectAll() {
        for (int row = 0; row < form->ProcessList().ListCount(); ++row) form->ProcessList().SelectItem(row, true);
    }
    void OpenFromMenu() {
        sim::whenMenu([](const std::vector<platform::MenuItem>&) { return app::command::kOpenGraph; });
        sim::click(form->ProcessList(), {40, 30}, platform::MouseButton::Right);
    }
    int Shown() {
        int shown = 0;
        for (int slot = 1; slot <= 16; ++slot) {
            graphs::iCPU* graph = form->Graphs().InSlot(slot);
            shown += graph && graph->visible() ? 1 : 0;
        }
        return shown;
    }
};

}  // namespace

TEST_CASE("Selected processes get a graph each, sixteen at most") {
    Desk desk;
    for (int i = 0; i < 20; ++i) Machine::Run("C:\\Apps\\p" + std::to_string(i) + ".exe", 0.1);
    desk.Start();
    desk.SelectAll();
    std::string said;
    sim::whenModal([&](platform::Window& dialog) {
        for (const sim::Drawn& drawn : sim::paint(dialog, true)) {
            if (drawn.what == "text") said += drawn.text + "|";
        }
        sim::pressKey(platform::key::kEnter);
    });
    desk.OpenFromMenu();
    CHECK(said.find("CPU graphs limit reached (16 max).|") == 0);
    CHECK(desk.form->Graphs().OpenCount() == 16);
    // No two in one place, nor where the total graph is going to be.
    desk.ClickButton(app::button::kSetOptions);
    for (const char* name : {"CPU Graphs", "Show Total /Avg"}) sim::click(*sim::findWindow(name), {6, 10});
    REQUIRE(sim::findWindow("CPU usage"));
    const platform::Rect total = sim::findWindow("CPU usage")->bounds();
    std::vector<platform::Rect> places;
    for (int slot = 1; slot <= 16; ++slot) {
        const platform::Rect place = desk.form->Graphs().InSlot(slot)->bounds();
        CHECK(std::find(places.begin(), places.end(), place) == places.end());
        CHECK_FALSE(place.intersects(total));
        places.push_back(place);
    }

    SUBCASE("hidden, they come back from the notification area") {
        desk.form->Graphs().HideAll();
        CHECK(desk.Shown() == 0);
        Machine::ChooseInTray(tray::command::kShowGraphs);
        CHECK(desk.Shown() == 16);
    }
    SUBCASE("the program goes into the notification area, and they stay") {
        sim::closeBox(*desk.form);
        Machine::Tick(10);
        CHECK(desk.Shown() == 16);
    }
    SUBCASE("they end with the program") {
        desk.Exit();
        CHECK(sim::topLevelWindows().empty());
    }
}

TEST_CASE("A graph is called after its program, and goes with its process") {
    Desk desk;
    const platform::ProcessId id = Machine::Run("C:\\Apps\\busy.exe", 2);
    sim::putSetting(kSection, "ShowExt", "0");
    desk.Start();
    desk.form->ProcessList().SelectItem(desk.RowOf(id), true);
    for (int row = 0; row < desk.form->ProcessList().ListCount(); ++row) {
        desk.form->ProcessList().SelectItem(row, row == desk.RowOf(id));
    }
    desk.OpenFromMenu();
    desk.OpenFromMenu();  // it has one
    REQUIRE(desk.form->Graphs().OpenCount() == 1);
    sim::run(1300);
    std::string caption;
    for (const sim::Drawn& drawn : sim::paint(*desk.form->Graphs().InSlot(1), true)) {
        if (drawn.what == "text") caption = drawn.text;
    }
    CHECK(caption == "50%  busy");
    sim::endProcess(id);
    sim::run(2100);
    CHECK_FALSE(desk.form->Graphs().AnyOpen());
    const int timers = sim::openHandles("timer");
    sim::run(2100);
    CHECK(sim::openHandles("timer") == timers);
}

TEST_CASE("The total graph opens with the program and counts its readings") {
    Desk desk;
    sim::putSetting(kSection, "TtlOnStart", "1");
    Machine::Run("C:\\Apps\\busy.exe", 1.6);
    SUBCASE("before the window") {}
    SUBCASE("and alone when the window stays away") {
        sim::putSetting(kSection, "MiniMe", "1");
    }
    desk.Start();
    platform::Window* meter = sim::findWindow("CPU usage");
    REQUIRE(meter);
    CHECK(meter->visible());
    const auto choose = [&](int position) {
        sim::whenMenu([position](const std::vector<platform::MenuItem>& items) {
            return items[static_cast<std::size_t>(position)].id;
        });
        sim::click(*meter, {10, 10}, platform::MouseButton::Right);
    };
    Machine::Tick(10);
    choose(2);  // the average begins anew
    choose(1);
    Machine::Tick(20);
    std::string text;
    for (const sim::Drawn& drawn : sim::paint(*meter, true)) {
        if (drawn.what == "text") text = drawn.text;
    }
    CHECK((text == "    00:00:00:10\r\n        40.00%" || text == "    00:00:00:11\r\n        40.00%"));
    CHECK(sim::openHandles("timer") >= 3);
    meter->setBounds(meter->bounds().offset(-50, 20));
    const platform::Rect place = meter->bounds();
    desk.Exit();
    CHECK(sim::setting(kSection, "FrmColorMeter_Pos") ==
          std::to_string(place.left) + "," + std::to_string(place.top) + "," + std::to_string(place.width()) + "," +
              std::to_string(place.height()));
}
