// CPU graphs, opened from the process list and found again in the notification area, on the whole main window.
#include "AppFixture.h"

using namespace apptest;

TEST_CASE_FIXTURE(Machine, "Selected processes get a graph each, sixteen at most, which end with the program") {
    for (int i = 0; i < 20; ++i) Run("C:\\Apps\\p" + std::to_string(i) + ".exe", 1);
    Store("ShowExt", "0");
    Start();
    for (int row = 0; row < Processes().ListCount(); ++row) Processes().SelectItem(row, true);
    ChooseNext("Open Selected in CPU Graph");
    Answer(key::kEnter);
    sim::click(Processes(), {40, 30}, platform::MouseButton::Right);
    CHECK(told.back().find("CPU graphs limit reached (16 max).") != std::string::npos);
    CHECK(form->Graphs().OpenCount() == 16);
    sim::run(1300);
    CHECK(TextOf(*form->Graphs().InSlot(2)) == "25%  p0");

    // None is where the total graph is going to be.
    ClickButton(app::button::kSetOptions);
    for (const char* name : {"CPU Graphs", "Show Total /Avg"}) sim::click(*sim::findWindow(name), {6, 10});
    platform::Window* total = sim::findWindow("CPU usage");
    REQUIRE(total);
    for (int slot = 1; slot <= 16; ++slot) {
        CHECK_FALSE(form->Graphs().InSlot(slot)->bounds().intersects(total->bounds()));
    }
    form->Graphs().HideAll();
    ChooseInTray(tray::command::kShowGraphs);
    CHECK(form->Graphs().InSlot(16)->visible());
    sim::closeBox(*form);
    Tick(10);
    CHECK(form->Graphs().InSlot(16)->visible());
    Exit();
    CHECK(sim::topLevelWindows().empty());
}

TEST_CASE_FIXTURE(Machine, "The total graph opens with the program and counts its readings") {
    Store("TtlOnStart", "1");
    Store("ChkCPUGraphTop", "0");
    Store("Shadow", "1");
    Run("C:\\Apps\\busy.exe", 1.6);
    SUBCASE("before the window") {}
    SUBCASE("and alone when the window stays away") {
        Store("MiniMe", "1");
    }
    Start();
    platform::Window* meter = sim::findWindow("CPU usage");
    REQUIRE(meter);
    CHECK(meter->visible());
    CHECK(sim::hasDropShadow(*meter));
    const std::vector<std::string> log = sim::log();
    const auto shown = std::find(log.begin(), log.end(), "show CPU usage ShowInactive");
    const bool above = std::find(shown, log.end(), "bringToFront Kestrum 2") != log.end();
    CHECK(above == form->visible());  // the window is not covered by it
    Tick(10);
    for (const std::size_t position : {2U, 1U}) {  // the average begins anew, and is shown
        sim::whenMenu([=](const MenuItems& items) { return items[position].id; });
        sim::click(*meter, {10, 10}, platform::MouseButton::Right);
    }
    Tick(20);
    CHECK(TextOf(*meter).ends_with("\r\n        40.00%"));
    meter->setBounds(platform::Rect::fromSize({450, 320}, meter->bounds().size()));
    Exit();
    CHECK(Stored("FrmColorMeter_Pos").value_or("").starts_with("450,320,"));
}
