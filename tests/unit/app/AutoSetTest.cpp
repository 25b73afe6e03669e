#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

constexpr const char* kGame = "C:\\Games\\game.exe";

struct GameMachine : Machine {
    GameMachine() {
        sim::putFile(kGame, "");
        PutProfile("Game.exe\t01\tHigh\tC:\\Games\\Game.exe\t-fast\r\n");
    }
};

}  // namespace

TEST_CASE("Auto Set gives a favourite its affinity and priority on the tick after its start") {
    GameMachine machine;
    sim::putSetting(kSection, "AutoSet", "1");
    const auto before = Machine::Run(kGame);
    machine.Start();
    CHECK(sim::findProcess(before)->priorityClass == 0x80);
    CHECK(sim::findProcess(before)->affinityMask == 3);
    CHECK(machine.Cell(before, 1) == "01");

    Machine::Tick(6);
    const auto late = Machine::Run(kGame);
    Machine::Tick();
    CHECK(sim::findProcess(late)->priorityClass == 0x80);
    CHECK(machine.Cell(late, 2) == "High");

    // A program that resets its own class in its first moments is set again.
    sim::findProcess(late)->priorityClass = 0x20;
    Machine::Tick();
    CHECK(sim::findProcess(late)->priorityClass == 0x80);

    // Later it is left alone: that is what Enforce is for.
    Machine::Tick(3);
    sim::findProcess(late)->priorityClass = 0x20;
    Machine::Tick(30);
    CHECK(sim::findProcess(late)->priorityClass == 0x20);
}

TEST_CASE("Enforce applies the favourites again, measured from the last application") {
    GameMachine machine;
    sim::putSetting(kSection, "AutoSet", "1");
    sim::putSetting(kSection, "ReEnforce", "1");
    sim::putSetting(kSection, "EnforceInterval", "0");
    const auto game = Machine::Run(kGame);
    machine.Start();
    const auto ticksUntilSet = [&] {
        sim::findProcess(game)->priorityClass = 0x20;
        int ticks = 0;
        while (sim::findProcess(game)->priorityClass == 0x20 && ticks < 100) {
            Machine::Tick();
            ++ticks;
        }
        return ticks;
    };
    Machine::Tick(2);              // the settling of the start ends; its last tick counts already
    CHECK(ticksUntilSet() == 19);  // 10 seconds
    CHECK(ticksUntilSet() == 20);
}

TEST_CASE("A favourite added while its program runs is set without waiting for another start") {
    Machine machine;
    sim::putSetting(kSection, "AutoSet", "1");
    sim::putFile(kGame, "");
    const auto game = Machine::Run(kGame);
    app::Form1& form = machine.Start();
    Machine::Tick(6);
    form.CpuAffinity().Show("1");
    sim::dropFiles(form.FavoritesListControl(), {kGame});
    Machine::Tick();
    CHECK(sim::findProcess(game)->affinityMask == 2);
}

TEST_CASE("The Auto Set and Enforce buttons depend on each other") {
    GameMachine machine;
    sim::putSetting(kSection, "ReEnforce", "1");
    app::Form1& form = machine.Start();
    controls::ToolBar& bar = form.ToolBar1();
    CHECK(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK_FALSE(bar.IsEnabled(app::button::kEnforce));
    CHECK_FALSE(bar.IsChecked(app::button::kEnforce));

    const auto game = Machine::Run(kGame);
    Machine::Tick();
    CHECK(sim::findProcess(game)->priorityClass == 0x20);
    machine.ClickButton(app::button::kAutoSet);
    CHECK(sim::findProcess(game)->priorityClass == 0x80);
    CHECK_FALSE(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK(bar.IsEnabled(app::button::kEnforce));
    CHECK(bar.IsChecked(app::button::kEnforce));

    machine.ClickButton(app::button::kEnforce);
    CHECK(sim::setting(kSection, "ReEnforce") == "0");
    machine.ClickButton(app::button::kAutoSet);
    CHECK(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK_FALSE(bar.IsEnabled(app::button::kEnforce));
    CHECK_FALSE(sim::setting(kSection, "AutoSet"));
}

TEST_CASE("Processes that refuse are told about once a run") {
    GameMachine machine;
    machine.Start();
    const auto game = Machine::Run(kGame);
    sim::findProcess(game)->deniedRights = 0x200;
    Machine::Tick(5);
    machine.ClickButton(app::button::kSetFavoritesNow);
    REQUIRE(sim::balloons().size() == 1);
    CHECK(sim::balloons()[0].title == "Kestrum 2");
    CHECK(sim::balloons()[0].text ==
          "Unable to make changes to some favorites.\r\nAffiniy Errors: 1\r\nPriority Errors :1");
    CHECK(sim::balloons()[0].icon == platform::BalloonIcon::Warning);
}
