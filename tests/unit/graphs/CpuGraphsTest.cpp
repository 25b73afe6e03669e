// CPU graphs on the desktop: slots, places, timers, the ends of processes.
#include <doctest/doctest.h>

#include "GraphsFixture.h"

using namespace graphtest;

TEST_CASE_FIXTURE(Desk, "a graph shows name and usage of its process") {
    graphs::iCPU& graph = Open("notepad.exe", 0.3);
    CHECK(graph.visible());
    CHECK(graph.bounds().size() == platform::Size{101, 102});
    CHECK(graph.CaptionText() == "00%  notepad");
    CHECK(sim::focusedWindow() != &graph);  // who opened it goes on with what they did
    sim::run(599);
    CHECK(graph.History().Newest() == 0);
    sim::run(1);
    CHECK(graph.CaptionText() == "07%  notepad");  // 7.5 of four processors
    sim::findProcess(graph.PID())->load = 9;
    Tick();
    CHECK(graph.CaptionText() == "100%  notepad");
    CHECK(graph.History().Samples()[98] == 7);
    CHECK(sim::pixelAt(graph, {98, 93}) == kGreen);

    // The times went back: no reading, and no new picture.
    sim::findProcess(graph.PID())->load = 0;
    sim::findProcess(graph.PID())->user -= 30'000'000;
    const auto drawn = sim::drawCount();
    Tick();
    CHECK(graph.CaptionText() == "100%  notepad");
    CHECK(sim::drawCount() == drawn);

    CHECK(Open("archive.tar.exe").CaptionText() == "00%  archive.tar");
    CHECK(Open("none").CaptionText() == "00%  none");
}

TEST_CASE_FIXTURE(Desk, "the lowest free slot is taken, and sixteen are all") {
    for (int slot = 1; slot <= 16; ++slot) CHECK(Open().Slot() == slot);
    CHECK(graphs.Launch("late.exe", Run("late.exe")) == Launched::Full);
    CHECK(graphs.OpenCount() == 16);
    // Each stands by itself, wholly in the work area.
    for (int one = 1; one <= 16; ++one) {
        const Rect place = graphs.InSlot(one)->bounds();
        CHECK(place.intersect({0, 0, 1280, 770}) == place);
        for (int other = 1; other < one; ++other) {
            CHECK_FALSE(place.intersects(graphs.InSlot(other)->bounds()));
        }
    }
    graphs.InSlot(9)->Close();
    sim::closeBox(*graphs.InSlot(4));
    CHECK(graphs.OpenCount() == 14);
    CHECK(Open().Slot() == 4);
    CHECK(Open().Slot() == 9);
}

TEST_CASE_FIXTURE(Desk, "a process has one graph: asked for again it comes forward") {
    graphs::iCPU& graph = Open("first.exe");
    Open("second.exe");
    graph.show(platform::ShowCommand::Hide);
    CHECK(graphs.Launch("first.exe", graph.PID()) == Launched::BroughtForward);
    CHECK(graph.visible());
    CHECK(sim::focusedWindow() == &graph);
    CHECK(graphs.OpenCount() == 2);
}

TEST_CASE_FIXTURE(Desk, "the graph of a process that ended closes within two seconds") {
    graphs::iCPU& ends = Open("ends.exe");
    Open("stays.exe");
    sim::run(700);
    sim::endProcess(ends.PID());
    sim::failEnumeration(true);  // who knows nothing closes nothing
    sim::run(2000);
    CHECK(graphs.OpenCount() == 2);
    sim::failEnumeration(false);
    sim::run(2000);
    CHECK(graphs.OpenCount() == 1);
    CHECK(graphs.InSlot(1) == nullptr);
    CHECK(graphs.InSlot(2) != nullptr);
}

TEST_CASE_FIXTURE(Desk, "an id that another process has now counts as ended") {
    const platform::ProcessId id = Open("old.exe").PID();
    const auto reuse = [id](std::uint32_t deniedRights) {
        sim::endProcess(id);
        sim::advance(100);
        sim::Process process;
        process.id = id;
        process.path = "C:\\Apps\\new.exe";
        process.deniedRights = deniedRights;
        sim::addProcess(process);
    };
    SUBCASE("noticed by itself") {
        reuse(0);
        sim::run(2000);
        CHECK_FALSE(graphs.AnyOpen());
    }
    SUBCASE("asked for before that was noticed") {
        reuse(0);
        CHECK(graphs.Launch("new.exe", id) == Launched::Opened);
        CHECK(graphs.OpenCount() == 1);
        CHECK(graphs.InSlot(1)->CaptionText() == "00%  new");
    }
    SUBCASE("but not where the times can't be read") {
        reuse(0x400);
        sim::run(2000);
        CHECK(graphs.OpenCount() == 1);
    }
}

TEST_CASE_FIXTURE(Desk, "places are remembered by slot, and forgotten") {
    Open().setBounds(Rect::fromSize({200, 300}, {101, 102}));
    Open().setBounds(Rect::fromSize({400, 310}, {101, 102}));
    Choose(*graphs.InSlot(1), "Remember Positions");
    CHECK(sim::setting(settings::kSection, "GraphTop1") == "300");
    CHECK(sim::setting(settings::kSection, "GraphLeft2") == "400");
    CHECK_FALSE(sim::setting(settings::kSection, "GraphTop3"));
    graphs.CloseAll();
    CHECK(Open().bounds().origin() == Point{200, 300});
    CHECK(Open().bounds().origin() == Point{400, 310});

    Choose(*graphs.InSlot(2), "Forget Positions");
    CHECK_FALSE(sim::setting(settings::kSection, "GraphTop1"));
    CHECK_FALSE(sim::setting(settings::kSection, "GraphLeft2"));
    graphs.CloseAll();
    CHECK(Open().bounds().origin() == Point{1175, 664});
}

TEST_CASE_FIXTURE(Desk, "no new graph is put over a remembered place, an open graph or what else is named") {
    settings.WriteGraphPlace(7, 640, 1160);
    Rect above;
    graphs.AlsoTaken = [&](std::vector<Rect>& taken) { taken.push_back(above); };
    const Rect first = Open().bounds();
    CHECK_FALSE(first.intersects({1160, 640, 1261, 742}));
    above = first.offset(0, -first.height());
    const Rect second = Open().bounds();
    CHECK_FALSE(second.intersects(first));
    CHECK_FALSE(second.intersects(above));
}

TEST_CASE_FIXTURE(Desk, "a place off every screen is brought back; a small screen has room for all the same") {
    settings.WriteGraphPlace(1, -5000, 20'000);
    settings.WriteGraphPlace(2, 700, 1250);
    CHECK(Open().bounds() == Rect{1179, 0, 1280, 102});
    CHECK(Open().bounds() == Rect{1179, 668, 1280, 770});  // edge detection
    options.edgeDetection = false;
    settings.WriteGraphPlace(3, 700, 1250);
    graphs::iCPU& far = Open();
    CHECK(far.bounds().origin() == Point{1250, 700});
    sim::setScreens({{0, 0, 800, 600}});  // one is unplugged
    graphs.ShowAll();
    CHECK_FALSE(far.bounds().intersect({0, 0, 800, 570}).empty());
    graphs.CloseAll();
    settings.ForgetGraphPlaces();
    sim::setScreens({{0, 0, 320, 240}});
    for (int slot = 1; slot <= 16; ++slot) {
        CHECK(Open().bounds().intersect({0, 0, 320, 210}).size() == platform::Size{101, 102});
    }
}

TEST_CASE_FIXTURE(Desk, "sixteen graphs over ten thousand readings leave no handle behind and stay in time") {
    for (int slot = 1; slot <= 16; ++slot) Open("app.exe", slot == 1 ? 0.3 : 0);
    for (int slot = 2; slot <= 16; slot += 2) graphs.InSlot(slot)->show(platform::ShowCommand::Hide);
    sim::findProcess(graphs.InSlot(2)->PID())->load = 2;
    Tick(200);
    const int handles = sim::openHandles();
    const auto drawn = sim::drawCount();
    sim::clearLog();
    for (int sample = 0; sample < 10'000; ++sample) {
        if (sample % 50 == 0) sim::findProcess(graphs.InSlot(1)->PID())->load = sample % 100 == 0 ? 0.4 : 0.1;
        Tick();
    }
    CHECK(sim::openHandles() == handles);
    CHECK(graphs.InSlot(2)->CaptionText() == "50%  app");
    CHECK(graphs.InSlot(1)->CaptionText() == "02%  app");
    // What is hidden and what does not change is not drawn: one window's worth each tick, at most.
    CHECK((sim::drawCount() - drawn) / 10'000 < 350);
}
