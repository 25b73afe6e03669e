// Favourites are set: by Auto Set, by Enforce, by their button and by their hotkey.
#include "AppFixture.h"

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

TEST_CASE_FIXTURE(GameMachine, "Auto Set gives a favourite its affinity and priority on the tick after its start") {
    Store("AutoSet", "1");
    const ProcessId before = Run(kGame);
    Start();
    CHECK(ClassOf(before) == kHigh);
    CHECK(MaskOf(before) == 3);
    CHECK(Cell(before, 1) == "01");

    Tick(6);
    const ProcessId late = Run(kGame);
    Tick();
    CHECK(ClassOf(late) == kHigh);
    CHECK(Cell(late, 2) == "High");

    // A program that resets its own class in its first moments is set again.
    ClassOf(late) = kNormal;
    Tick();
    CHECK(ClassOf(late) == kHigh);

    // Later it is left alone: that is what Enforce is for.
    Tick(3);
    ClassOf(late) = kNormal;
    Tick(30);
    CHECK(ClassOf(late) == kNormal);

    // A program that becomes a favourite while it runs doesn't wait for another start.
    const ProcessId tool = Run("C:\\Apps\\tool.exe");
    Tick(6);
    form->CpuAffinity().Show("1");
    sim::dropFiles(Favorites(), {"C:\\Apps\\tool.exe"});
    Tick();
    CHECK(MaskOf(tool) == 2);

    // A minimised window goes on setting, and leaves the list alone.
    form->show(platform::ShowCommand::Minimize);
    const int shown = Processes().ListCount();
    const ProcessId hidden = Run(kGame);
    Tick();
    CHECK(ClassOf(hidden) == kHigh);
    CHECK(Processes().ListCount() == shown);
    form->show(platform::ShowCommand::Restore);
    CHECK(Cell(hidden, 2) == "High");
}

TEST_CASE_FIXTURE(GameMachine, "Enforce applies the favourites again, measured from the last application") {
    Store("AutoSet", "1");
    Store("ReEnforce", "1");
    Store("EnforceInterval", "0");
    const ProcessId game = Run(kGame);
    Start();
    const auto ticksUntilSet = [&] {
        ClassOf(game) = kNormal;
        int ticks = 0;
        while (ClassOf(game) == kNormal && ++ticks < 100) Tick();
        return ticks;
    };
    Tick(2);                       // the settling of the start ends; its last tick counts already
    CHECK(ticksUntilSet() == 19);  // 10 seconds
    CHECK(ticksUntilSet() == 20);
}

TEST_CASE_FIXTURE(GameMachine, "Favourites are set by hotkey, by button, and when Auto Set is switched on") {
    Store("Hotkey", "1");
    Store("ReEnforce", "1");
    controls::ToolBar& bar = Start().ToolBar1();
    CHECK(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK_FALSE(bar.IsEnabled(app::button::kEnforce));
    CHECK_FALSE(bar.IsChecked(app::button::kEnforce));

    Tick(4);
    ProcessId game = 0;
    for (const bool ends : {true, false}) {
        game = Run(kGame);
        HoldKeys({key::kCtrl, key::kShift, 'S'});
        sim::run(60);  // the next look at the processes is farther away
        CHECK(ClassOf(game) == kHigh);
        CHECK(MaskOf(game) == 3);
        CHECK(RowOf(game) >= 0);
        ReleaseKeys({'S'});
        if (!ends) break;
        sim::endProcess(game);  // before any tick saw it
        Tick();
        CHECK(RowOf(game) == -1);
        Tick(3);
    }

    ClassOf(game) = kNormal;
    MaskOf(game) = 1;
    sim::findProcess(game)->deniedRights = 0x200;
    ClickButton(app::button::kSetFavoritesNow);
    REQUIRE(sim::balloons().size() == 1);
    const sim::Balloon balloon = sim::balloons()[0];
    CHECK(balloon.title == "Kestrum 2");
    CHECK(balloon.text == "Unable to make changes to some favorites.\r\nAffiniy Errors: 1\r\nPriority Errors :1");
    CHECK(balloon.icon == platform::BalloonIcon::Warning);

    sim::findProcess(game)->deniedRights = 0;
    ClickButton(app::button::kAutoSet);
    CHECK(ClassOf(game) == kHigh);
    CHECK_FALSE(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK(bar.IsEnabled(app::button::kEnforce));
    CHECK(bar.IsChecked(app::button::kEnforce));
    ClickButton(app::button::kEnforce);
    CHECK(Stored("ReEnforce") == "0");
    ClickButton(app::button::kAutoSet);
    CHECK(bar.IsEnabled(app::button::kSetFavoritesNow));
    CHECK_FALSE(bar.IsEnabled(app::button::kEnforce));
    CHECK_FALSE(Stored("AutoSet"));
}
