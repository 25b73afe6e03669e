// What the user does with a graph: menu, drag, pointer, options.
#include "GraphsFixture.h"

using namespace graphtest;

namespace {

struct OneGraph : Desk {
    void OpenMenu(const std::function<int(const std::vector<platform::MenuItem>&)>& user) {
        sim::whenMenu(user);
        sim::click(graph, {50, 50}, platform::MouseButton::Right);
    }
    void Drag(Point by) {
        sim::whenDragged(by);
        sim::mouseDown(graph, {50, 50});
    }
    Color Ground() { return sim::pixelAt(graph, {90, 40}); }
    static std::string Tip() { return sim::tips().empty() ? "" : sim::tips()[0].text; }

    graphs::iCPU& graph = Open("app.exe");
};

}  // namespace

TEST_CASE_FIXTURE(OneGraph, "the menu, and what it says of the graph") {
    std::string menu;
    const auto look = [&](const auto& items) {
        menu = Described(items);
        return 0;
    };
    OpenMenu(look);
    CHECK(menu ==
          "Graph Time (1 Minute*|3 Minutes|5 minutes)|-|Stay On Top*|Edge Detection*|Show Caption*|-|"
          "Remember Positions|Forget Positions|-|Hide All Graphs|Close All Graphs|-|Hide|Close");
    for (const char* text : {"Stay On Top", "Edge Detection", "Show Caption"}) Choose(graph, text);
    sim::whenMenu(look);
    graph.focus();
    sim::pressKey(platform::key::kApps);
    CHECK(menu.find("|Stay On Top|Edge Detection|Show Caption|") != std::string::npos);
    sim::pressKey(platform::key::kEscape);
    CHECK(graph.visible());
}

TEST_CASE_FIXTURE(OneGraph, "Graph Time sets every how many ticks there is a reading") {
    const std::pair<std::string, int> times[] = {{"3 Minutes", 2}, {"5 minutes", 5}, {"1 Minute", 1}};
    for (const auto& [text, ticks] : times) {
        CAPTURE(text);
        Choose(graph, text);
        for (int round = 0; round < 2; ++round) {
            sim::findProcess(graph.PID())->load = 2;
            Tick(ticks - 1);
            CHECK(graph.History().Newest() == 0);
            Tick();
            CHECK(graph.History().Newest() > 0);
            sim::findProcess(graph.PID())->load = 0;
            Tick(ticks);
        }
        Choose(graph, "", [&](const auto& items) {
            for (const auto& item : items[0].submenu) CHECK(item.checked == (item.text == text));
        });
    }
}

TEST_CASE_FIXTURE(OneGraph, "a graph without caption is all plot, and new colours show at once") {
    sim::findProcess(graph.PID())->load = 4;
    Tick(3);
    options.plotColor = platform::rgb(0, 0, 255);
    options.captionColor = platform::rgb(255, 0, 0);
    graphs.ApplyColors();
    sim::run(0);
    const auto drawn = sim::paint(graph, true);
    const auto text = std::ranges::find(drawn, "text", &sim::Drawn::what);
    REQUIRE(text != drawn.end());
    CHECK(text->color == options.captionColor);
    Choose(graph, "Show Caption");
    sim::run(0);
    CHECK(sim::pixelAt(graph, {98, 0}) == options.plotColor);
    CHECK(std::ranges::count(sim::paint(graph, true), "text", &sim::Drawn::what) == 0);
}

TEST_CASE_FIXTURE(OneGraph, "a graph is dragged by its body, and kept inside while edge detection is on") {
    const Rect start = graph.bounds();
    Drag({-200, -100});
    CHECK(graph.bounds() == start.offset(-200, -100));
    Drag({3000, 3000});
    CHECK(graph.bounds() == Rect{1179, 668, 1280, 770});
    Choose(graph, "Edge Detection");
    Drag({50, 50});
    CHECK(graph.bounds().origin() == Point{1229, 718});
    Choose(graph, "Edge Detection");
    CHECK(graph.bounds() == Rect{1179, 668, 1280, 770});
    graph.setBounds(graph.bounds().offset(-5000, 0));
    graphs.SetEdgeDetection(false);
    CHECK(graph.bounds().left < 0);
    graphs.SetEdgeDetection(true);
    CHECK(graph.bounds().left == 0);
}

TEST_CASE_FIXTURE(OneGraph, "hidden graphs go on measuring, undrawn, and come back") {
    graphs::iCPU& second = Open("second.exe", 1);
    sim::findProcess(graph.PID())->load = 2;
    Choose(graph, "Hide");
    CHECK_FALSE(graph.visible());
    CHECK(second.visible());
    Choose(second, "Hide All Graphs");
    CHECK_FALSE(second.visible());
    const auto drawn = sim::drawCount();
    Tick(3);
    CHECK(sim::drawCount() == drawn);
    CHECK(graph.CaptionText() == "50%  app");
    graphs.ShowAll();
    sim::run(0);
    CHECK(graph.visible());
    CHECK(sim::pixelAt(graph, {99, 50}) == kGreen);
}

TEST_CASE_FIXTURE(OneGraph, "graphs close from their own menus, whatever happens while one is open") {
    Open("second.exe");
    int left = 0;
    SUBCASE("this one") {
        Choose(graph, "Close");
        left = 1;
    }
    SUBCASE("all") {
        Choose(graph, "Close All Graphs");
    }
    SUBCASE("the process ends and the graphs are closed while the user still thinks") {
        sim::run(1800);
        sim::endProcess(graph.PID());
        bool asked = false;
        OpenMenu([&](const auto&) {
            asked = true;
            return 0;
        });
        CHECK_FALSE(asked);  // the menu went with its window
        left = 1;
    }
    SUBCASE("closed from outside, and the object is still there for its menu") {
        OpenMenu([&](const auto& items) {
            graphs.CloseAll();
            sim::run(graphs::kWatchMilliseconds);
            return items.back().id;
        });
    }
    CHECK(graphs.OpenCount() == left);
    CHECK(sim::openHandles("window") == left);
}

TEST_CASE_FIXTURE(OneGraph, "translucent at the level, or seen through while the pointer is elsewhere") {
    const Color solid = graphs::GroundFor(kGreen);
    const auto groundAfterTick = [&] {
        Tick();
        return Ground();
    };
    MovePointerAway(graph);
    CHECK(sim::translucency(graph).alpha == graphs::AlphaOfLevel(85));
    options.level = 40;
    graphs.ApplySeeThrough();
    CHECK(sim::translucency(graph).alpha == 102);
    CHECK_FALSE(sim::translucency(graph).hole);
    CHECK(groundAfterTick() == solid);

    options.seeThrough = true;
    graphs.ApplySeeThrough();
    CHECK(sim::translucency(graph).hole == graphs::kHole);
    CHECK(sim::translucency(graph).alpha == 255);
    CHECK(Ground() == graphs::kHole);
    sim::setPointer(graph, {50, 50});
    CHECK(Ground() == graphs::kHole);
    CHECK(groundAfterTick() == solid);
    const auto drawn = sim::drawCount();
    Tick(3);
    CHECK(sim::drawCount() == drawn);
    MovePointerAway(graph);
    CHECK(groundAfterTick() == graphs::kHole);
    graphs::iCPU& other = Open("other.exe");  // opens as the others are
    sim::run(0);
    CHECK(sim::pixelAt(other, {90, 40}) == graphs::kHole);

    options.seeThrough = false;
    graphs.ApplySeeThrough();
    CHECK_FALSE(sim::translucency(graph).hole);
    CHECK(groundAfterTick() == solid);
}

TEST_CASE_FIXTURE(OneGraph, "a tip tells of the process while the pointer is over its graph") {
    const std::string rest = "\r\nMemory: 12,345K\r\nUptime: 00:00:01:02\r\nPID: " + std::to_string(graph.PID());
    const auto visit = [&] {
        MovePointerAway(graph);
        Tick();
        CHECK(Tip().empty());
        sim::setPointer(graph, {50, 50});
        Tick();
    };
    sim::run(61'200);
    visit();
    CHECK(Tip() == "Title: n/a" + rest);
    CHECK(sim::tips()[0].title.empty());

    platform::WindowFacts window;
    window.visible = true;
    window.caption = std::string(70, 'x');
    window.process = graph.PID();
    sim::addOtherWindow(window);
    Tick();
    CHECK(Tip() == "Title: n/a" + rest);  // what was said when the pointer came
    visit();
    CHECK(Tip().starts_with("Title: " + std::string(64, 'x') + "...\r\n"));

    // Not against the user's will, not in the way of the menu, and not of a graph that lies below.
    for (const bool wanted : {false, true}) {
        options.tips = wanted;
        Tick();
        CHECK(Tip().empty() == !wanted);
    }
    Choose(graph, "", [&](const auto&) { CHECK(Tip().empty()); });
    Open("covered.exe").setBounds(graph.bounds());
    graph.bringToFront();
    sim::setPointer(graph, {50, 50});
    Tick(3);
    CHECK(Tip().ends_with("PID: " + std::to_string(graph.PID())));
    graphs.CloseAll();
    CHECK(sim::openHandles("tooltip") == 0);  // not left behind

    sim::setPointer(Open("EXPLORER.EXE"), {50, 50});
    Tick();
    CHECK(Tip().starts_with("Title: Windows Explorer\r\n"));
}

TEST_CASE_FIXTURE(OneGraph, "a tip leaves out what it can't know, and no other tip goes with it") {
    sim::findProcess(graph.PID())->deniedRights = 0x410;
    sim::setPointer(graph, {50, 50});
    Tick();
    CHECK(Tip() == "Title: n/a\r\nMemory: n/a\r\nUptime: n/a\r\nPID: " + std::to_string(graph.PID()));
    MovePointerAway(graph);
    Tick();
    platform::Window other;
    REQUIRE(other.create({platform::WindowKind::Main, "Other", "Other", nullptr, {0, 0, 9, 9}}));
    tips.Show("words", other, "", false);
    Tick();
    CHECK(tips.ShownFor(other));
}
