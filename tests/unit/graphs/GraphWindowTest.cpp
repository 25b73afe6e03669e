// What the user does with a graph: menu, drag, pointer, options.
#include <doctest/doctest.h>

#include "GraphsFixture.h"

using namespace graphtest;

namespace {

Color Background(platform::Window& graph) {
    return sim::pixelAt(graph, {90, 40});
}

}  // namespace

TEST_CASE_FIXTURE(Desk, "the menu, and what it says of the graph") {
    graphs::iCPU& graph = Open();
    const std::vector<std::string> expected{"Graph Time > 1 Minute*, 3 Minutes, 5 minutes",
                                            "-",
                                            "Stay On Top*",
                                            "Edge Detection*",
                                            "Show Caption*",
                                            "-",
                                            "Remember Positions",
                                            "Forget Positions",
                                            "-",
                                            "Hide All Graphs",
                                            "Close All Graphs",
                                            "-",
                                            "Hide",
                                            "Close"};
    Choose(graph, "", [&](const auto& items) { CHECK(Described(items) == expected); });
    for (const char* text : {"Stay On Top", "Edge Detection", "Show Caption"}) Choose(graph, text);
    int menus = 0;
    sim::whenMenu([&](const auto& items) {
        const auto now = Described(items);
        for (const std::size_t index : {2U, 3U, 4U}) CHECK(now[index] + "*" == expected[index]);
        ++menus;
        return 0;
    });
    graph.focus();
    sim::pressKey(platform::key::kApps);
    CHECK(menus == 1);
    sim::pressKey(platform::key::kEscape);
    CHECK(graph.visible());
}

TEST_CASE_FIXTURE(Desk, "Graph Time sets every how many ticks there is a reading") {
    const struct {
        const char *text, *checked;
        int ticks;
    } times[] = {
        {"3 Minutes", "Graph Time > 1 Minute, 3 Minutes*, 5 minutes", 2},
        {"5 minutes", "Graph Time > 1 Minute, 3 Minutes, 5 minutes*", 5},
        {"1 Minute", "Graph Time > 1 Minute*, 3 Minutes, 5 minutes", 1},
    };
    graphs::iCPU& graph = Open();
    for (const auto& time : times) {
        CAPTURE(time.text);
        Choose(graph, time.text);
        sim::findProcess(graph.PID())->load = 2;
        for (int tick = 1; tick < time.ticks; ++tick) Tick();
        CHECK(graph.History().Newest() == 0);
        Tick();
        CHECK(graph.History().Newest() > 0);
        sim::findProcess(graph.PID())->load = 0;
        Tick(2 * time.ticks);
        Choose(graph, "", [&](const auto& items) { CHECK(Described(items)[0] == time.checked); });
    }
}

TEST_CASE_FIXTURE(Desk, "a graph without caption is all plot") {
    graphs::iCPU& graph = Open("busy.exe", 4);
    Tick(3);
    CHECK(sim::pixelAt(graph, {98, 0}) != kGreen);
    Choose(graph, "Show Caption");
    sim::run(0);
    CHECK(sim::pixelAt(graph, {98, 0}) == kGreen);
    const auto drawn = sim::paint(graph, true);
    CHECK(std::none_of(drawn.begin(), drawn.end(), [](const auto& one) { return one.what == "text"; }));
}

TEST_CASE_FIXTURE(Desk, "a graph is dragged by its body, and kept inside while edge detection is on") {
    graphs::iCPU& graph = Open();
    const Rect start = graph.bounds();
    sim::whenDragged({-200, -100});
    sim::mouseDown(graph, {50, 50});
    CHECK(graph.bounds() == start.offset(-200, -100));
    sim::whenDragged({3000, 3000});
    sim::mouseDown(graph, {50, 50});
    CHECK(graph.bounds() == Rect{1179, 668, 1280, 770});

    Choose(graph, "Edge Detection");
    sim::whenDragged({50, 50});
    sim::mouseDown(graph, {50, 50});
    CHECK(graph.bounds().origin() == Point{1229, 718});
    Choose(graph, "Edge Detection");
    CHECK(graph.bounds() == Rect{1179, 668, 1280, 770});
    graph.setBounds(graph.bounds().offset(-5000, 0));
    graphs.SetEdgeDetection(false);
    CHECK(graph.bounds().left < 0);
    graphs.SetEdgeDetection(true);
    CHECK(graph.bounds().left == 0);
}

TEST_CASE_FIXTURE(Desk, "hidden graphs go on measuring, undrawn, and come back") {
    graphs::iCPU& first = Open("first.exe", 2);
    graphs::iCPU& second = Open("second.exe", 1);
    Choose(first, "Hide");
    CHECK_FALSE(first.visible());
    CHECK(second.visible());
    Choose(second, "Hide All Graphs");
    CHECK_FALSE(second.visible());
    const auto drawn = sim::drawCount();
    Tick(3);
    CHECK(sim::drawCount() == drawn);
    CHECK(first.CaptionText() == "50%  first");
    CHECK(graphs.OpenCount() == 2);
    graphs.ShowAll();
    sim::run(0);
    CHECK(first.visible());
    CHECK(sim::pixelAt(first, {99, 50}) == kGreen);
}

TEST_CASE_FIXTURE(Desk, "graphs close from their own menus, whatever happens while one is open") {
    graphs::iCPU& graph = Open("first.exe");
    Open("second.exe");
    SUBCASE("this one") {
        Choose(graph, "Close");
        CHECK(graphs.OpenCount() == 1);
        CHECK(graphs.InSlot(1) == nullptr);
    }
    SUBCASE("all") {
        Choose(graph, "Close All Graphs");
        CHECK_FALSE(graphs.AnyOpen());
    }
    SUBCASE("the process ends and the graphs are closed while the user still thinks") {
        sim::run(1800);
        sim::endProcess(graph.PID());
        bool asked = false;
        sim::whenMenu([&](const auto&) {
            asked = true;
            return 0;
        });
        sim::click(graph, {50, 50}, platform::MouseButton::Right);
        CHECK_FALSE(asked);  // the menu went with its window
        CHECK(graphs.OpenCount() == 1);
    }
    SUBCASE("closed from outside, and the object is still there for its menu") {
        sim::whenMenu([&](const auto& items) {
            graphs.CloseAll();
            sim::run(graphs::kWatchMilliseconds);
            return items.back().id;
        });
        sim::click(graph, {50, 50}, platform::MouseButton::Right);
        CHECK_FALSE(graphs.AnyOpen());
    }
    CHECK(sim::openHandles("window") == graphs.OpenCount());
}

TEST_CASE_FIXTURE(Desk, "translucent at the level, or seen through while the pointer is elsewhere") {
    graphs::iCPU& graph = Open("app.exe");
    MovePointerAway(graph);
    CHECK(sim::translucency(graph).alpha == graphs::AlphaOfLevel(85));
    CHECK_FALSE(sim::translucency(graph).hole);
    options.level = 40;
    graphs.ApplySeeThrough();
    CHECK(sim::translucency(graph).alpha == 102);
    Tick();
    const Color solid = Background(graph);
    CHECK(solid == graphs::GroundFor(kGreen));

    options.seeThrough = true;
    graphs.ApplySeeThrough();
    CHECK(sim::translucency(graph).hole == graphs::kHole);
    CHECK(sim::translucency(graph).alpha == 255);
    CHECK(Background(graph) == graphs::kHole);
    CHECK(sim::pixelAt(graph, {40, 100}) == kGreen);

    sim::setPointer(graph, {50, 50});
    CHECK(Background(graph) == graphs::kHole);
    Tick();
    CHECK(Background(graph) == solid);
    const auto drawn = sim::drawCount();
    Tick(3);
    CHECK(sim::drawCount() == drawn);
    MovePointerAway(graph);
    Tick();
    CHECK(Background(graph) == graphs::kHole);
    // It opens as the others are.
    graphs::iCPU& other = Open("other.exe");
    sim::run(0);
    CHECK(Background(other) == graphs::kHole);

    options.seeThrough = false;
    graphs.ApplySeeThrough();
    CHECK(Background(graph) == solid);
    CHECK_FALSE(sim::translucency(graph).hole);
    Tick();
    CHECK(Background(graph) == solid);
}

TEST_CASE_FIXTURE(Desk, "new colours show at once, in every graph") {
    graphs::iCPU& graph = Open("busy.exe", 2);
    Tick(2);
    options.plotColor = platform::rgb(0, 0, 255);
    options.captionColor = platform::rgb(255, 0, 0);
    graphs.ApplyColors();
    sim::run(0);
    CHECK(sim::pixelAt(graph, {99, 50}) == platform::rgb(0, 0, 255));
    const auto drawn = sim::paint(graph, true);
    CHECK(std::any_of(drawn.begin(), drawn.end(),
                      [](const auto& one) { return one.what == "text" && one.color == platform::rgb(255, 0, 0); }));
}

TEST_CASE_FIXTURE(Desk, "a tip tells of the process while the pointer is over its graph") {
    graphs::iCPU& graph = Open("app.exe");
    const auto said = [] { return sim::tips().empty() ? std::string() : sim::tips()[0].text; };
    const std::string rest = "\r\nMemory: 12,345K\r\nUptime: 00:00:01:02\r\nPID: " + std::to_string(graph.PID());
    MovePointerAway(graph);
    sim::run(61'800);
    CHECK(said().empty());
    sim::setPointer(graph, {50, 50});
    Tick();
    CHECK(said() == "Title: n/a" + rest);
    CHECK(sim::tips()[0].title.empty());

    platform::WindowFacts window;
    window.visible = true;
    window.caption = std::string(70, 'x');
    window.process = graph.PID();
    sim::addOtherWindow(window);
    Tick();
    CHECK(said() == "Title: n/a" + rest);  // what was said when the pointer came
    MovePointerAway(graph);
    Tick();
    CHECK(said().empty());
    sim::setPointer(graph, {50, 50});
    Tick();
    CHECK(said().substr(0, 76) == "Title: " + std::string(64, 'x') + "...\r\n");

    options.tips = false;
    Tick();
    CHECK(said().empty());
    // Not in the way of the menu, and not left behind.
    options.tips = true;
    Tick();
    CHECK_FALSE(said().empty());
    Choose(graph, "", [&](const auto&) { CHECK(said().empty()); });
    Tick();
    CHECK_FALSE(said().empty());
    // Nor of one that lies below another at the same place.
    Open("covered.exe").setBounds(graph.bounds());
    graph.bringToFront();
    sim::setPointer(graph, {50, 50});
    Tick(3);
    CHECK(said().ends_with("PID: " + std::to_string(graph.PID())));
    graphs.CloseAll();
    CHECK(sim::openHandles("tooltip") == 0);

    sim::setPointer(Open("EXPLORER.EXE"), {50, 50});
    Tick();
    CHECK(said().substr(0, 25) == "Title: Windows Explorer\r\n");
}

TEST_CASE_FIXTURE(Desk, "a tip leaves out what it can't know, and no other tip goes with it") {
    sim::Process secret;
    secret.path = "C:\\Apps\\secret.exe";
    secret.deniedRights = 0x410;
    const platform::ProcessId id = sim::addProcess(secret);
    REQUIRE(graphs.Launch("secret.exe", id) == Launched::Opened);
    graphs::iCPU& graph = *graphs.InSlot(1);
    sim::setPointer(graph, {50, 50});
    Tick();
    REQUIRE(sim::tips().size() == 1);
    CHECK(sim::tips()[0].text == "Title: n/a\r\nMemory: n/a\r\nUptime: n/a\r\nPID: " + std::to_string(graph.PID()));
    MovePointerAway(graph);
    Tick();
    platform::Window other;
    REQUIRE(other.create({platform::WindowKind::Main, "Other", "Other", nullptr, {0, 0, 9, 9}}));
    tips.Show("words", other, "", false);
    Tick();
    CHECK(tips.ShownFor(other));
}
