// CPU graphs on the desktop: slots, places, timers, the ends of processes.
#include "GraphsFixture.h"

using namespace graphtest;

TEST_CASE_FIXTURE(Desk, "a graph shows name and usage of its process") {
    graphs::iCPU& graph = Open("notepad.exe", 0.3);
    CHECK(graph.visible());
    CHECK(graph.bounds().size() == kSize);
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

TEST_CASE("a reading above everything is everything, one below nothing is none") {
    graphs::CpuHistory history;
    CHECK(history.Add(101));
    CHECK_FALSE(history.Add(-1));
    CHECK(history.Newest() == 100);
}

TEST_CASE_FIXTURE(Desk, "the lowest free slot is taken, sixteen are all, and a process has one") {
    for (int slot = 1; slot <= 16; ++slot) CHECK(Open().Slot() == slot);
    CHECK(graphs.Launch("late.exe", Run("late.exe")) == Launched::Full);
    // Each stands by itself, wholly in the work area.
    for (int one = 1; one <= 16; ++one) {
        const Rect place = graphs.InSlot(one)->bounds();
        CHECK(place.intersect({0, 0, 1280, 770}) == place);
        for (int other = 1; other < one; ++other) CHECK_FALSE(place.intersects(graphs.InSlot(other)->bounds()));
    }
    graphs.InSlot(9)->Close();
    sim::closeBox(*graphs.InSlot(4));
    CHECK(graphs.OpenCount() == 14);
    CHECK(Open().Slot() == 4);
    CHECK(Open().Slot() == 9);

    graphs::iCPU& again = *graphs.InSlot(2);  // asked for again it comes forward
    again.show(platform::ShowCommand::Hide);
    CHECK(graphs.Launch("notepad.exe", again.PID()) == Launched::BroughtForward);
    CHECK(again.visible());
    CHECK(sim::focusedWindow() == &again);
    CHECK(graphs.OpenCount() == 16);
}

TEST_CASE_FIXTURE(Desk, "the graph of a process that ended closes within two seconds") {
    sim::Process reused;
    reused.path = "C:\\Apps\\new.exe";
    reused.id = Open("ends.exe").PID();
    Open("stays.exe");
    sim::run(700);
    sim::endProcess(reused.id);
    SUBCASE("who knows nothing closes nothing") {
        sim::failEnumeration(true);
        sim::run(2000);
        CHECK(graphs.OpenCount() == 2);
        sim::failEnumeration(false);
    }
    SUBCASE("though another process has its id now") {
        sim::addProcess(reused);
    }
    SUBCASE("and at once when a graph of the new one is asked for") {
        sim::addProcess(reused);
        CHECK(graphs.Launch("new.exe", reused.id) == Launched::Opened);
        CHECK(graphs.InSlot(1)->CaptionText() == "00%  new");
        graphs.InSlot(1)->Close();
    }
    SUBCASE("but not where the times can't be read") {
        reused.deniedRights = 0x400;
        sim::addProcess(reused);
        sim::run(2000);
        CHECK(graphs.OpenCount() == 2);
        sim::endProcess(reused.id);
    }
    sim::run(2000);
    CHECK(graphs.InSlot(1) == nullptr);
    CHECK(graphs.InSlot(2) != nullptr);
}

TEST_CASE_FIXTURE(Desk, "places are remembered by slot, and forgotten") {
    const Point places[] = {{200, 300}, {400, 310}};
    for (const Point place : places) Open().setBounds(Rect::fromSize(place, kSize));
    Choose(*graphs.InSlot(1), "Remember Positions");
    CHECK(sim::setting(settings::kSection, "GraphTop1") == "300");
    CHECK(sim::setting(settings::kSection, "GraphLeft2") == "400");
    CHECK_FALSE(sim::setting(settings::kSection, "GraphTop3"));
    graphs.CloseAll();
    for (const Point place : places) CHECK(Open().bounds().origin() == place);
    Choose(*graphs.InSlot(2), "Forget Positions");
    CHECK_FALSE(sim::setting(settings::kSection, "GraphTop1"));
    CHECK_FALSE(sim::setting(settings::kSection, "GraphLeft2"));
    graphs.CloseAll();
    CHECK(Open().bounds().origin() == Point{1175, 664});
}

TEST_CASE_FIXTURE(Desk, "no new graph is put over a remembered place, an open graph or what else is named") {
    settings.WriteGraphPlace(7, 640, 1160);
    std::vector<Rect> occupied{{1160, 640, 1261, 742}};
    Rect above;
    graphs.AlsoTaken = [&](std::vector<Rect>& taken) { taken.push_back(above); };
    for (int graph = 0; graph < 2; ++graph) {
        const Rect place = Open().bounds();
        for (const Rect& other : occupied) CHECK_FALSE(place.intersects(other));
        above = place.offset(0, -place.height());
        occupied.insert(occupied.end(), {place, above});
    }
}

TEST_CASE_FIXTURE(Desk,
                  "a graph off every screen is brought back on request; a small screen has room all the same") {
    settings.WriteGraphPlace(1, -5000, 20'000);
    settings.WriteGraphPlace(2, 700, 1250);
    graphs::iCPU& off = Open();
    CHECK(off.bounds().origin() == Point{20'000, -5000});
    graphs.ShowAll();
    CHECK(off.bounds() == Rect{1179, 0, 1280, 102});
    graphs::iCPU& far = Open();
    CHECK(far.bounds().origin() == Point{1250, 700});  // put there without edge detection
    sim::setScreens({{0, 0, 800, 600}});               // one is unplugged
    graphs.ShowAll();
    CHECK_FALSE(far.bounds().intersect({0, 0, 800, 570}).empty());
    graphs.CloseAll();
    settings.ForgetGraphPlaces();
    sim::setScreens({{0, 0, 320, 240}});
    for (int slot = 1; slot <= 16; ++slot) CHECK(Open().bounds().intersect({0, 0, 320, 210}).size() == kSize);
}

TEST_CASE_FIXTURE(Desk,
                  "sixteen graphs over ten thousand readings leave no handle behind and are drawn once each") {
    for (int slot = 1; slot <= 16; ++slot) Open("app.exe", slot == 1 ? 0.3 : 0);
    for (int slot = 2; slot <= 16; slot += 2) graphs.InSlot(slot)->show(platform::ShowCommand::Hide);
    sim::findProcess(graphs.InSlot(2)->PID())->load = 2;
    Tick(200);
    const int handles = sim::openHandles();
    const auto drawn = sim::drawCount();
    for (int sample = 0; sample < 10'000; ++sample) {
        if (sample % 50 == 0) sim::findProcess(graphs.InSlot(1)->PID())->load = sample % 100 == 0 ? 0.4 : 0.1;
        Tick();
    }
    CHECK(sim::openHandles() == handles);
    CHECK(graphs.InSlot(2)->CaptionText() == "50%  app");
    // What is hidden and what does not change is not drawn: one window's worth each tick, at most.
    CHECK((sim::drawCount() - drawn) / 10'000 < 350);
}
