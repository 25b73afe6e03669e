#include "graphs/FrmColorMeter.h"

#include "GraphsFixture.h"

using namespace graphtest;

namespace {

struct Meter {
    Meter() {
        meter.StartGraphTimer = [this] { calls += "+4 "; };
        meter.StopGraphTimer = [this] { calls += "-4 "; };
        meter.StartReadings = [this] { calls += "+1 "; };
        meter.StopReadings = [this] { calls += "-1 "; };
        REQUIRE(meter.Open());
        sim::run(0);
    }
    ~Meter() { meter.Close(); }

    // Another half second, with that load.
    void Tick(int percent = 0) {
        sim::run(500);
        totals.last = percent;
        totals.sum += percent;
        ++totals.samples;
        meter.GraphTimer();
        sim::run(0);
    }
    // The text that is shown, its lines without blanks before them and parted by "|"; empty for the bars.
    std::string Text() {
        std::string text;
        for (const auto& one : sim::paint(meter, true)) text += one.text;
        std::erase(text, ' ');
        const std::size_t end = text.find("\r\n");
        return end == std::string::npos ? text : text.replace(end, 2, "|");
    }
    Color At(int x, int y) { return sim::pixelAt(meter, {x, y}); }

    Reset reset;
    graphs::GraphOptions options = graphs::LoadGraphOptions({});
    process::CpuTotals totals;
    settings::Settings settings;
    graphs::FrmColorMeter meter{{options, totals, settings}};
    std::string calls;
};

}  // namespace

TEST_CASE_FIXTURE(Meter, "each reading is a bar that shows its part of the gradient") {
    std::vector<Color> empty;  // a column without bars
    for (int y = 0; y <= 101; ++y) empty.push_back(At(50, y));
    // Rows of a column that show a bar.
    const auto height = [&](int x) {
        int rows = 0;
        while (rows < 100 && At(x, 100 - rows) != empty.at(static_cast<std::size_t>(100 - rows))) ++rows;
        return rows;
    };
    CHECK(calls == "+4 ");
    for (int level = 1; level <= 100; ++level) Tick(level);
    for (int x = 1; x <= 100; ++x) {
        CHECK(height(x) == x);
        CHECK(At(x, 100) == At(100, 100));  // the foot of every bar is the same green
    }
    CHECK(CountPixels(meter, sim::kUnpainted) == 0);
    const auto greener = [](Color color) {
        return static_cast<int>(color >> 8 & 0xFF) - static_cast<int>(color & 0xFF);
    };
    CHECK(greener(At(100, 100)) > 80);
    CHECK(greener(At(100, 1)) < -80);
    Tick(250);  // out of range counts as the nearer end
    CHECK(meter.History().Samples()[99] == 100);
    Tick(-5);
    const std::pair<int, int> heights[] = {{1, 3}, {99, 100}, {100, 0}};
    for (const auto& [x, rows] : heights) CHECK(height(x) == rows);
    for (int tick = 0; tick < 100; ++tick) Tick(0);
    CHECK(height(1) == 0);
    const auto idle = sim::drawCount();
    Tick(0);
    CHECK(sim::drawCount() == idle);
}

TEST_CASE_FIXTURE(Meter, "the average since the start, and how long that is") {
    Choose(meter, "Average CPU usage");
    CHECK(Text() == "00:00:00:00|");
    totals = {};
    for (const int percent : {1, 1, 0}) Tick(percent);
    CHECK(Text() == "00:00:00:02|0.67%");  // two of three, after 500 ms of menu
    totals = {1'000'000, 3000, 0};
    Tick();
    CHECK(Text() == "00:00:00:02|333.22%");
    totals = {-4, 2, 0};
    for (int tick = 0; tick < 43'200; ++tick) {
        sim::advance(1500);
        Tick();
    }
    CHECK(Text() == "01:00:00:02|0.00%");
    CHECK(sim::paint(meter, true).back().color == options.captionColor);
}

TEST_CASE_FIXTURE(Meter, "a clock that is set takes the start time with it") {
    Tick();
    sim::setLocalBias(120);  // while the bars are shown
    Tick();
    Choose(meter, "Average CPU usage");
    for (int tick = 0; tick < 20; ++tick) Tick();
    const auto time = [this] {
        meter.GraphTimer();
        return Text().substr(0, 11);
    };
    CHECK(time() == "00:00:00:10");
    for (const int minutes : {-60, 60, 24 * 60}) {
        CAPTURE(minutes);
        sim::setLocalBias(minutes);
        CHECK(time() == "00:00:00:10");
    }
    sim::advance(4000);
    CHECK(time() == "00:00:00:14");
    sim::advance(5000);  // asleep
    CHECK(time() == "00:00:00:14");
}

TEST_CASE_FIXTURE(Meter, "the average has been taken since the start, also while there was no window") {
    meter.Close();
    sim::advance(3'600'000);
    REQUIRE(meter.Open());
    Choose(meter, "Average CPU usage");
    CHECK(Text().starts_with("00:01:00:0"));
}

TEST_CASE_FIXTURE(Meter, "the menu: bars or average, the average anew, beyond the edge or not") {
    std::string menu;
    const auto look = [&](const auto& items) { menu = Described(items); };
    const std::string rest = "Reset average usage|-|Edge Detection*|-|Close";
    for (int tick = 0; tick < 10; ++tick) Tick(40);
    Choose(meter, "Average CPU usage", look);
    CHECK(menu == "Total CPU usage*|Average CPU usage|" + rest);
    CHECK(Text() == "00:00:00:05|40.00%");
    calls.clear();
    Choose(meter, "Reset average usage", look);
    CHECK(menu == "Total CPU usage|Average CPU usage*|" + rest);
    CHECK(calls == "-4 -1 +1 +4 ");
    CHECK(Text() == "00:00:00:00|");
    for (int tick = 0; tick < 2; ++tick) Tick(10);
    CHECK(Text() == "00:00:00:01|10.00%");
    Choose(meter, "Total CPU usage");
    CHECK(Text().empty());

    Choose(meter, "Edge Detection");
    sim::whenDragged({50, 0});
    sim::mouseDown(meter, {50, 50});
    Choose(meter, "", look);  // dismissed
    CHECK(menu.find("Edge Detection|") != std::string::npos);
    CHECK(meter.bounds().right > 1280);
    Choose(meter, "Edge Detection");
    CHECK(meter.bounds().right == 1280);
}

TEST_CASE_FIXTURE(Meter, "it closes with its place kept, and opens there with its bars") {
    Choose(meter, "Average CPU usage");
    const platform::Size size = meter.bounds().size();
    sim::whenDragged({-300, 200});
    sim::mouseDown(meter, {50, 50});
    const Point place = meter.bounds().origin();
    calls.clear();
    SUBCASE("by its menu") {
        Choose(meter, "Close");
    }
    SUBCASE("from outside, though its menu is open") {
        Choose(meter, "Reset average usage", [this](const auto&) { sim::closeBox(meter); });
    }
    CHECK(calls == "-4 ");
    CHECK_FALSE(meter.exists());
    meter.GraphTimer();
    const std::string stored = std::to_string(place.x) + "," + std::to_string(place.y) + ",102,102";
    CHECK(sim::setting(settings::kSection, "FrmColorMeter_Pos") == stored);
    REQUIRE(meter.Open());
    CHECK(meter.bounds() == Rect::fromSize(place, size));
    CHECK_FALSE(meter.ShowsAverage());

    meter.Close();
    settings.WritePosition("FrmColorMeter", "5000,5000,800,600");  // from a screen that is gone
    REQUIRE(meter.Open());
    CHECK(meter.bounds() == Rect{5000, 5000, 5102, 5102});
    CHECK(meter.Open());  // again: it comes forward, and within reach
    CHECK(meter.bounds() == Rect{1178, 668, 1280, 770});
    CHECK(sim::focusedWindow() == &meter);
}

TEST_CASE_FIXTURE(Meter, "seen through it shows its bars, and its words on a ground of their own") {
    options.seeThrough = true;
    meter.ApplySeeThrough();
    const Color ground = graphs::GroundFor(kYellow);
    for (int tick = 0; tick < 3; ++tick) Tick(30);
    Desk::MovePointerAway(meter);
    Tick(30);
    CHECK(At(50, 40) == graphs::kHole);
    CHECK(At(100, 71) != graphs::kHole);
    CHECK(At(100, 70) == graphs::kHole);
    sim::setPointer(meter, {50, 50});
    Tick(30);
    CHECK(At(50, 40) == ground);
    Choose(meter, "Average CPU usage");
    Desk::MovePointerAway(meter);
    Tick();
    CHECK(At(50, 10) == graphs::kHole);
    CHECK(At(50, 50) == ground);
}
