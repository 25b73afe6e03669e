#include "controls/ProgressBar.h"

#include <functional>

#include "ControlFixture.h"

namespace {

namespace sim = platform::sim;
using platform::Color;

struct Gauge : ControlFixture<controls::ProgressBar> {
    explicit Gauge(int width = 200) : ControlFixture({10, 10, 10 + width, 30}) {}

    // The colours along one row of pixels and how far each reaches: "green 160 grey 40".
    std::string Colours(int row) {
        std::string colours;
        const int width = bar.clientSize().width;
        for (int from = 0, to = 0; from < width; from = to) {
            const std::string name = Name(from, row);
            while (to < width && Name(to, row) == name) ++to;
            colours += (from == 0 ? "" : " ") + name + " " + std::to_string(to - from);
        }
        return colours;
    }
    std::string Name(int x, int y) {
        const Color color = sim::pixelAt(bar, {x, y});
        const Color red = color & 0xFF;
        const Color green = color >> 8 & 0xFF;
        if (color == sim::kUnpainted) return "nothing";
        if (red == green && red == color >> 16) return "grey";
        if (red == color >> 16) return "green";
        return green == 0 ? "red" : "orange";
    }

    controls::ProgressBar& bar = control;
};

}  // namespace

TEST_CASE("A progress bar is as long as its value says, and changes colour near the top") {
    const struct {
        int width, value;
        std::string colours;
    } cases[] = {
        {200, 0, "grey 200"},
        {200, 1, "green 2 grey 198"},
        {200, 80, "green 160 grey 40"},
        {200, 81, "green 160 orange 2 grey 38"},
        {200, 90, "green 160 orange 20 grey 20"},
        {200, 95, "green 160 orange 20 red 10 grey 10"},
        {200, 100, "green 160 orange 20 red 20"},
        {200, 32767, "green 160 orange 20 red 20"},
        {200, -32768, "grey 200"},
        {137, 50, "green 69 grey 68"},
        {137, 95, "green 110 orange 13 red 7 grey 7"},
        {3, 100, "green 2 orange 1"},
    };
    for (const auto& one : cases) {
        Gauge gauge(one.width);
        CAPTURE(one.width);
        CAPTURE(one.value);
        gauge.bar.SetValue(static_cast<std::int16_t>(one.value));
        CHECK(sim::paint(gauge.bar).size() <= 5);
        for (const int row : {0, 10, 19}) CHECK(gauge.Colours(row) == one.colours);
        // Each part grows lighter along the bar, the ground too.
        for (int x = 1; x < one.width; ++x) {
            const Color before = sim::pixelAt(gauge.bar, {x - 1, 10});
            if (gauge.Name(x, 10) == gauge.Name(x - 1, 10)) CHECK(sim::pixelAt(gauge.bar, {x, 10}) >= before);
        }
    }
}

TEST_CASE_FIXTURE(Gauge, "A progress bar of one colour, and as wide as it is made") {
    bar.SetTriColor(false);
    bar.SetValue(95);
    for (const auto& [width, colours] : {std::pair{200, "green 190 grey 10"}, std::pair{100, "green 95 grey 5"}}) {
        bar.setBounds({0, 0, width, 20});
        sim::paint(bar);
        CHECK(Colours(10) == colours);
    }
    bar.setBounds({0, 0, 0, 20});
    sim::paint(bar);
}

TEST_CASE_FIXTURE(Gauge, "A progress bar says its value") {
    CHECK(Painted("text").front().text == "00 %");
    bar.SetCaption("Mem Free: ");
    const std::pair<int, std::string> cases[] = {{7, "07 %"}, {100, "100 %"}, {240, "240 %"}, {-3, "00 %"}};
    for (const auto& [value, text] : cases) {
        bar.SetValue(static_cast<std::int16_t>(value));
        CHECK(Painted("text").front().text == "Mem Free: " + text);
    }
    const sim::Drawn last = sim::paint(bar, true).back();
    CHECK(last.what == "text");  // nothing covers it
    CHECK(last.area == platform::Rect{0, 0, 200, 20});
    CHECK(last.format == (platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine));
}

TEST_CASE_FIXTURE(Gauge, "A progress bar repaints when something changed, and only then") {
    const std::function<void()> changes[] = {[&] { bar.SetValue(12); }, [&] { bar.SetCaption("CPU: "); },
                                             [&] { bar.SetTriColor(false); }};
    for (const auto& change : changes) {
        change();
        CHECK(sim::invalidArea(bar) == platform::Rect{0, 0, 200, 20});
        sim::paint(bar);
        change();
        CHECK(sim::invalidArea(bar).empty());
    }
}
