#include "AppFixture.h"
#include "app/MainLayout.h"

using namespace apptest;
using platform::Rect;

TEST_CASE_FIXTURE(Machine, "A first start stands in the middle of the screen with the built-in layout") {
    Start();
    CHECK(form->bounds() == Rect::fromSize({(1280 - 883) / 2, (800 - 445) / 2}, {883, 445}));
    CHECK(Processes().bounds().right == 474);
    CHECK(Processes().ColumnWidthsText() == "134,82,60,40,60,70,");
    CHECK(Favorites().ColumnWidthsText() == "134,82,70,50,50,");
    CHECK(ClassOf(platform::currentProcessId()) == 0x8000);
    CHECK(form->visible());
    CHECK(sim::focusedWindow() == &Processes());
    REQUIRE(sim::trayIcons().size() == 1);
    CHECK(sim::trayIcons()[0].tip == "Kestrum 2 by Tam Orrin");
    sim::restartShell();
    CHECK(sim::trayIcons().size() == 1);
    Exit();
    CHECK(Stored("FileColWideMax") == "134,82,60,40,60,70,");
    CHECK(Stored("TransLevel") == "85");
    CHECK(sim::trayIcons().empty());
    CHECK(sim::quitCode() == 0);
}

TEST_CASE_FIXTURE(Machine, "Position, columns, splitter and sort come back after a restart") {
    Start().setBounds({10, 20, 810, 620});
    Processes().SetColumnWidths("200,82,60,40,60,70,");
    platform::Window* splitter = sim::findWindow("SplitBar");
    REQUIRE(splitter);
    const int from = splitter->bounds().left;
    sim::paint(*form, true);
    sim::mouseDown(*splitter, {2, 50});
    sim::setPointer(*splitter, {2 - 60, 50});
    CHECK(Processes().bounds().right == from - 60);
    sim::mouseUp(*splitter, {2 - 40, 50});  // the bar moved with the pointer: 40 more
    // The frames above the lists reach to the bar where it is now.
    const int frame = Processes().bounds().top - 1;
    CHECK(sim::pixelAt(*form, {from + 2, frame}) == sim::pixelAt(*form, {100, frame}));
    CHECK(Processes().bounds().right == from - 100);
    for (int times = 0; times < 2; ++times) sim::click(Favorites(), {150, 5});
    form->show(platform::ShowCommand::Maximize);
    Processes().SetColumnWidths("300,82,60,40,60,70,");
    Exit();
    CHECK(Stored("Form1_Pos") == "10,20,800,600");
    CHECK(Stored("FavColSort") == "1");
    CHECK(Stored("FavSortDir") == "False");

    Start();
    CHECK(form->bounds() == Rect{10, 20, 810, 620});
    for (const bool maximized : {false, true, false}) {
        if (maximized) form->show(platform::ShowCommand::Maximize);
        if (!maximized) form->show(platform::ShowCommand::Restore);
        CHECK(Processes().ColumnWidthsText() == (maximized ? "300,82,60,40,60,70," : "200,82,60,40,60,70,"));
        CHECK(Processes().bounds().right == (maximized ? 474 : from - 100));
    }
}

TEST_CASE_FIXTURE(Machine, "Neither damaged settings nor what a kill has left behind stop the start") {
    std::string damaged = "x\t-99999999999,,|\x01";
    SUBCASE("nonsense") {}
    SUBCASE("absurdly long") {
        damaged = std::string(70'000, '7');
    }
    SUBCASE("below everything") {
        damaged = "-3";
    }
    for (const char* name : {"FavName", "CpuToolTips", "Splitter", "SplitterMax", "FavColSort", "FavSortDir",
                             "Form1_Pos", "FileColWide", "FavColWideMax", "EnforceInterval", "AutoSet",
                             "TrayForeColor", "TrayBrdrIdx", "ShowTips", "MsgBeep"}) {
        Store(name, damaged);
    }
    // A save was cut off in the middle: the new half goes, the file stays.
    const std::vector<std::string> files = {"C:\\Kestrum\\FileFilter", "C:\\Kestrum\\My Favs 3", kProfile1};
    for (const std::string& file : files) {
        sim::putFile(file, "a content nobody knows.exe\r\n");
        sim::putFile(file + ".new", "a content nob");
    }
    sim::putFile("C:\\Kestrum\\My Favs 5.new", "");
    Start();
    CHECK(platform::nearestWorkArea(form->bounds()).intersects(form->bounds()));
    CHECK(Processes().bounds().width() >= app::kLeastListWidth - app::kMargin);
    Tick(3);
    for (const std::string& file : sim::allFiles()) {
        CAPTURE(file);
        CHECK_FALSE(file.ends_with(".new"));
    }
    for (const std::string& file : files) CHECK(sim::file(file) == "a content nobody knows.exe\r\n");
}

TEST_CASE_FIXTURE(Machine, "Files that were kept shut at the start are read as soon as they can be") {
    constexpr const char* kFilterFile = "C:\\Kestrum\\FileFilter";
    sim::putFile("C:\\Apps\\fav.exe", "");
    PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    sim::putFile(kFilterFile, "noise.exe\r\n");
    for (const char* file : {kProfile1, kFilterFile}) sim::setUnreadable(file, true);
    Store("AutoSet", "1");
    const ProcessId favourite = Run("C:\\Apps\\fav.exe"), noise = Run("C:\\Apps\\noise.exe");
    Start();
    Tick(5);
    CHECK(MaskOf(favourite) == 0xF);
    CHECK(RowOf(noise) >= 0);
    for (const char* file : {kProfile1, kFilterFile}) sim::setUnreadable(file, false);
    Tick();
    CHECK(MaskOf(favourite) == 2);
    CHECK(RowOf(noise) < 0);
}

TEST_CASE("Nothing overlaps at any size the window can have") {
    app::MainParts parts;
    parts.affinityWidth = 480;  // eight processors
    parts.priorityWidth = 70;
    parts.invertWidth = 95;
    parts.refreshWidth = 105;
    parts.toolBar1Width = 700;
    parts.gaugeWidth = 120;
    const auto check = [&](platform::Size size, int splitter) {
        const app::MainLayout layout = app::LayOutMain(size, splitter, parts);
        const Rect all[] = {layout.toolBar1,      layout.toolBar2, layout.affinity,    layout.priority,
                            layout.invert,        layout.refresh,  layout.processList, layout.splitter,
                            layout.favoritesList, layout.status,   layout.memoryGauge, layout.cpuGauge};
        for (const Rect& one : all) {
            CHECK(one.intersect(Rect::fromSize({0, 0}, size)) == one);
            for (const Rect& other : all) CHECK((&one == &other || !one.intersects(other)));
        }
        CHECK(layout.processList.height() >= 100);
        CHECK(layout.toolBar1.width() >= parts.toolBar1Width);
        CHECK(layout.favoritesList.width() >= app::kLeastListWidth);
        return layout;
    };
    for (const int splitter : {-50, 0, 474, 5000}) {
        for (const int status : {0, 900}) {
            parts.statusWidth = status;
            const platform::Size least = app::SmallestMainWindow(parts);
            CHECK(check({least.width - 16, least.height - 40}, splitter).status.width() >= status);
            check({1920, 1000}, splitter);
        }
        check({867, 406}, splitter);
    }
}
