#include "graphs/FrmColorMeter.h"

#include <doctest/doctest.h>

#include "GraphsFixture.h"

using namespace graphtest;

namespace {

struct Meter {
    Meter() {
        meter.StartGraphTimer = [this] { calls += "+4 "; };
        meter.StopGraphTimer = [this] { calls += "-4 "; };
        meter.StartReadings = [this] { calls += "+1 "; };
        meter.StopReadings = [this] { calls += "-1 "; };
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
    void OpenAverage() {
        REQUIRE(meter.Open());
        Choose(meter, "Average CPU usage");
    }
    // The text that is shown; empty for the bars.
    std::string Text() {
        for (const auto& one : sim::paint(meter, true)) {
            if (one.what == "text") return one.text;
        }
        return {};
    }
    Color At(int x, int y) { return sim::pixelAt(meter, {x, y}); }
    // Rows of column x that show a bar.
    int Height(int x) {
        int height = 0;
        while (height < 100 && At(x, 100 - height) != empty.at(static_cast<std::size_t>(100 - height))) ++height;
        return height;
    }

    Reset reset;
    graphs::GraphOptions options = graphs::LoadGraphOptions({});
    process::CpuTotals totals;
    settings::Settings settings;
    graphs::FrmColorMeter meter{{options, totals, settings}};
    std::string calls;
    std::vector<Color> empty;  // column 50 without bars
};

}  // namespace

TEST_CASE_FIXTURE(Meter, "each reading is a bar that shows its part of the gradient") {
    REQUIRE(meter.Open());
    sim::run(0);
    for (int y = 0; y <= 101; ++y) empty.push_back(At(50, y));
    CHECK(calls == "+4 ");
    for (int level = 1; level <= 100; ++level) Tick(level);
    for (int i = 0; i < 100; ++i) {
        CAPTURE(i);
        CHECK(Height(i + 1) == i + 1);
        CHECK(At(i + 1, 100) == At(100, 100));  // the foot of every bar is the same green
    }
    CHECK(CountPixels(meter, sim::kUnpainted) == 0);
    const auto red = [this](int y) { return static_cast<int>(At(100, y) & 0xFF); };
    const auto green = [this](int y) { return static_cast<int>(At(100, y) >> 8 & 0xFF); };
    CHECK(green(100) > red(100) + 80);
    CHECK(red(1) > green(1) + 80);
    CHECK(std::min(red(51), green(51)) > 180);
    // Out of range counts as the nearer end; the oldest has gone.
    Tick(250);
    Tick(-5);
    CHECK(Height(99) == 100);
    CHECK(Height(100) == 0);
    CHECK(Height(1) == 3);
    const auto drawn = sim::drawCount();
    for (int tick = 0; tick < 100; ++tick) Tick(0);
    CHECK(CountPixels(meter, empty[75]) >= 100);
    CHECK(sim::drawCount() > drawn);
    const auto idle = sim::drawCount();
    Tick(0);
    CHECK(sim::drawCount() == idle);
}

TEST_CASE_FIXTURE(Meter, "the average since the start, and how long that is") {
    OpenAverage();
    CHECK(Text() == "    00:00:00:00\r\n");
    totals = {};
    Tick(1);
    Tick(1);
    Tick(0);
    CHECK(Text() == "    00:00:00:02\r\n        0.67%");  // two of three, after 500 ms of menu
    totals = {1'000'000, 3000, 0};
    Tick();
    CHECK(Text() == "    00:00:00:02\r\n        333.22%");
    totals = {-4, 2, 0};
    for (int tick = 0; tick < 43'200; ++tick) {
        sim::advance(1500);
        Tick();
    }
    CHECK(Text() == "    01:00:00:02\r\n        0.00%");
    CHECK(sim::paint(meter, true).back().color == options.captionColor);
}

TEST_CASE_FIXTURE(Meter, "a clock that is set takes the start time with it") {
    OpenAverage();
    for (int tick = 0; tick < 20; ++tick) Tick();
    const std::string ten = Text().substr(0, 15);
    CHECK(ten == "    00:00:00:10");
    for (const int minutes : {-60, 60, 24 * 60}) {
        CAPTURE(minutes);
        sim::setLocalBias(minutes);
        meter.GraphTimer();
        CHECK(Text().substr(0, 15) == ten);
    }
    sim::advance(4000);
    meter.GraphTimer();
    CHECK(Text().substr(0, 15) == "    00:00:00:14");
    sim::advance(5000);  // asleep
    meter.GraphTimer();
    CHECK(Text().substr(0, 15) == "    00:00:00:14");
}

TEST_CASE_FIXTURE(Meter, "the menu changes between bars and average and begins the average anew") {
    REQUIRE(meter.Open());
    for (int tick = 0; tick < 10; ++tick) Tick(40);
    Choose(meter, "Average CPU usage", [](const auto& items) {
        const std::vector<std::string> expected{
            "Total CPU usage*", "Average CPU usage", "Reset average usage", "-", "Edge Detection*", "-", "Close"};
        CHECK(Described(items) == expected);
    });
    CHECK(Text() == "    00:00:00:05\r\n        40.00%");
    calls.clear();
    Choose(meter, "Reset average usage", [](const auto& items) {
        CHECK(Described(items)[0] == "Total CPU usage");
        CHECK(Described(items)[1] == "Average CPU usage*");
    });
    CHECK(calls == "-4 -1 +1 +4 ");
    CHECK(Text() == "    00:00:00:00\r\n");
    CHECK(totals.sum == 0);
    CHECK(totals.samples == 0);
    Tick(10);
    Tick(10);
    CHECK(Text() == "    00:00:00:01\r\n        10.00%");
    Choose(meter, "Total CPU usage");
    CHECK(Text().empty());
    CHECK(meter.History().Samples()[99] == 10);
}

TEST_CASE_FIXTURE(Meter, "it closes with its place kept, and opens there with its bars") {
    meter.GraphTimer();
    CHECK(meter.History().Samples()[99] == 0);
    OpenAverage();
    const platform::Size size = meter.bounds().size();
    sim::whenDragged({-300, 200});
    sim::mouseDown(meter, {50, 50});
    const Point place = meter.bounds().origin();
    calls.clear();
    SUBCASE("by its menu") {
        Choose(meter, "Close");
    }
    SUBCASE("from outside") {
        sim::closeBox(meter);
    }
    SUBCASE("while its menu is open") {
        Choose(meter, "Reset average usage", [this](const auto&) { meter.Close(); });
    }
    CHECK(calls == "-4 ");
    CHECK_FALSE(meter.exists());
    meter.GraphTimer();
    const std::string stored = std::to_string(place.x) + "," + std::to_string(place.y) + ",102,102";
    CHECK(sim::setting(settings::kSection, "FrmColorMeter_Pos") == stored);
    REQUIRE(meter.Open());
    CHECK(meter.bounds() == Rect::fromSize(place, size));
    CHECK_FALSE(meter.ShowsAverage());

    // Only the place counts, and only where it can be seen.
    for (const char* text : {"40,50,800,600", "5000,5000,1,1", "a,b", "40,50,0,0"}) {
        CAPTURE(text);
        meter.Close();
        settings.WritePosition("FrmColorMeter", text);
        REQUIRE(meter.Open());
        CHECK(meter.bounds().size() == size);
        CHECK(meter.bounds().intersect({0, 0, 1280, 770}) == meter.bounds());
    }
    CHECK(meter.Open());  // again: it comes forward
    CHECK(sim::focusedWindow() == &meter);
}

TEST_CASE_FIXTURE(Meter, "seen through it shows its bars, and its words on a ground of their own") {
    options.seeThrough = true;
    REQUIRE(meter.Open());
    for (int tick = 0; tick < 3; ++tick) Tick(30);
    sim::setPointer(meter, {-200, 50});
    Tick(30);
    CHECK(At(50, 40) == graphs::kHole);
    CHECK(At(100, 71) != graphs::kHole);
    CHECK(At(100, 70) == graphs::kHole);
    sim::setPointer(meter, {50, 50});
    Tick(30);
    CHECK(At(50, 40) == graphs::GroundFor(platform::rgb(255, 255, 0)));
    sim::setPointer(meter, {-200, 50});
    Choose(meter, "Average CPU usage");
    sim::setPointer(meter, {-200, 50});
    Tick();
    CHECK(At(50, 10) == graphs::kHole);
    CHECK(At(50, 50) == graphs::GroundFor(kYellow));
}
