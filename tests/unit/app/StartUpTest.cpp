#include "AppFixture.h"
#include "app/MainLayout.h"
#include "app/MainToolBars.h"

using namespace apptest;
using platform::Rect;

TEST_CASE("A first start stands in the middle of the screen with the built-in layout") {
    Machine machine;
    app::Form1& form = machine.Start();
    CHECK(form.bounds() == Rect::fromSize({(1280 - 883) / 2, (800 - 445) / 2}, {883, 445}));
    CHECK(form.ProcessList().bounds().right == 474);
    CHECK(form.ProcessList().ColumnWidthsText() == "134,82,60,40,60,70,");
    CHECK(form.FavoritesListControl().ColumnWidthsText() == "134,82,70,50,50,");
    CHECK(sim::findProcess(platform::currentProcessId())->priorityClass == 0x8000);
    CHECK(form.visible());
    CHECK(sim::focusedWindow() == &form.ProcessList());
    REQUIRE(sim::trayIcons().size() == 1);
    CHECK(sim::trayIcons()[0].tip == "Kestrum 2 by Tam Orrin");
    sim::restartShell();
    CHECK(sim::trayIcons().size() == 1);
    machine.Exit();
    CHECK(sim::setting(kSection, "FileColWideMax") == "134,82,60,40,60,70,");
    CHECK(sim::setting(kSection, "TransLevel") == "85");
    CHECK(sim::trayIcons().empty());
    CHECK(sim::quitCode() == 0);
}

TEST_CASE("Position, columns, splitter and sort come back after a restart") {
    Machine machine;
    app::Form1* form = &machine.Start();
    form->setBounds({10, 20, 810, 620});
    form->ProcessList().SetColumnWidths("200,82,60,40,60,70,");
    platform::Window* splitter = sim::findWindow("SplitBar");
    REQUIRE(splitter);
    const int from = splitter->bounds().left;
    sim::mouseDown(*splitter, {2, 50});
    sim::setPointer(*splitter, {2 - 60, 50});
    CHECK(form->ProcessList().bounds().right == from - 60);
    sim::mouseUp(*splitter, {2 - 40, 50});  // the bar moved with the pointer: 40 more
    CHECK(form->ProcessList().bounds().right == from - 100);
    form->show(platform::ShowCommand::Maximize);
    form->ProcessList().SetColumnWidths("300,82,60,40,60,70,");
    machine.Exit();

    CHECK(sim::setting(kSection, "Form1_Pos") == "10,20,800,600");
    CHECK(sim::setting(kSection, "FileColWide") == "200,82,60,40,60,70,");
    CHECK(sim::setting(kSection, "FileColWideMax") == "300,82,60,40,60,70,");
    CHECK(sim::setting(kSection, "Splitter") == std::to_string(from - 100));
    CHECK(sim::setting(kSection, "SplitterMax") == "474");

    form = &machine.Start();
    CHECK(form->bounds() == Rect{10, 20, 810, 620});
    CHECK(form->ProcessList().ColumnWidthsText() == "200,82,60,40,60,70,");
    CHECK(form->ProcessList().bounds().right == from - 100);
    form->show(platform::ShowCommand::Maximize);
    CHECK(form->ProcessList().ColumnWidthsText() == "300,82,60,40,60,70,");
    CHECK(form->ProcessList().bounds().right == 474);
    form->show(platform::ShowCommand::Restore);
    CHECK(form->ProcessList().ColumnWidthsText() == "200,82,60,40,60,70,");
}

TEST_CASE("Damaged settings do not stop the start") {
    Machine machine;
    for (const char* name : {"FavName", "CpuToolTips", "Splitter", "SplitterMax", "FavColSort", "FavSortDir",
                             "Form1_Pos", "FileColWide", "FavColWideMax", "EnforceInterval", "AutoSet"}) {
        sim::putSetting(kSection, name, "x\t-99999999999,,|\x01");
    }
    app::Form1& form = machine.Start();
    const Rect work = platform::nearestWorkArea(form.bounds());
    CHECK(work.intersects(form.bounds()));
    CHECK(form.ProcessList().bounds().width() >= app::kLeastListWidth - app::kMargin);
    Machine::Tick(3);
}

TEST_CASE("What a kill in the middle of a save has left beside a file goes at the next start; the file stays") {
    Machine machine;
    const std::vector<std::string> files = {"C:\\Kestrum\\FileFilter", "C:\\Kestrum\\My Favs 3", kProfile1};
    for (const std::string& file : files) {
        sim::putFile(file, "a content nobody knows.exe\r\n");
        sim::putFile(file + ".new", "a content nob");
    }
    sim::putFile("C:\\Kestrum\\My Favs 5.new", "");
    machine.Start();
    for (const std::string& file : sim::allFiles()) {
        CAPTURE(file);
        CHECK_FALSE(file.ends_with(".new"));
    }
    for (const std::string& file : files) CHECK(sim::file(file) == "a content nobody knows.exe\r\n");
}

TEST_CASE("Log-off saves what closing saves") {
    Machine machine;
    machine.Start();
    sim::endSession();
    CHECK(sim::setting(kSection, "Splitter") == "474");
    CHECK(sim::setting(kSection, "Form1_Pos"));
}

TEST_CASE("Nothing overlaps at any size the window can have") {
    app::MainParts parts;
    parts.affinityWidth = 480;  // eight processors
    parts.priorityWidth = 70;
    parts.invertWidth = 95;
    parts.refreshWidth = 105;
    parts.toolBar1Width = 700;
    parts.gaugeWidth = 120;
    for (const int status : {0, 900}) {
        parts.statusWidth = status;
        const platform::Size least = app::SmallestMainWindow(parts);
        for (const platform::Size size :
             {platform::Size{least.width - 16, least.height - 40}, {867, 406}, {1920, 1000}}) {
            for (const int splitter : {-50, 0, 474, 5000}) {
                const app::MainLayout layout = app::LayOutMain(size, splitter, parts);
                const Rect all[] = {layout.toolBar1,      layout.toolBar2, layout.affinity,    layout.priority,
                                    layout.invert,        layout.refresh,  layout.processList, layout.splitter,
                                    layout.favoritesList, layout.status,   layout.memoryGauge, layout.cpuGauge};
                for (const Rect& one : all) {
                    CHECK(one.intersect(Rect::fromSize({0, 0}, size)) == one);
                    for (const Rect& other : all) CHECK((&one == &other || !one.intersects(other)));
                }
                CHECK(layout.processList.height() >= 100);
                if (size.width >= least.width - 16) CHECK(layout.status.width() >= parts.statusWidth);
                CHECK(layout.toolBar1.width() >= parts.toolBar1Width);
                CHECK(layout.favoritesList.width() >= app::kLeastListWidth);
            }
        }
    }
}

TEST_CASE("A timer slot has one timer, and stopping it inside its own work is safe") {
    sim::reset();
    app::TimerSlots slots;
    int fired = 0;
    slots.SetWork(app::Slot::Process, [&] {
        if (++fired == 3) slots.Stop(app::Slot::Process);
    });
    slots.Start(app::Slot::Process, 500);
    slots.Start(app::Slot::Process, 100);
    CHECK(sim::openHandles("timer") == 1);
    sim::run(250);
    CHECK(fired == 2);
    {
        const app::PausedSlot pause(slots, app::Slot::Process, 100);
        sim::run(1000);
        CHECK(fired == 2);
    }
    sim::run(1000);
    CHECK(fired == 3);
    CHECK(sim::openHandles("timer") == 0);
}
