#include "controls/ProgressBar.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;
using controls::ProgressBar;
using platform::Color;
using platform::rgb;

// A window with one bar in it, painted.
struct Gauge {
    explicit Gauge(int width = 200) {
        sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = {0, 0, 600, 400};
        REQUIRE(form.create(spec));
        form.show(platform::ShowCommand::Show);
        REQUIRE(bar.Create(form, "ProgressBar1", {10, 10, 10 + width, 30}));
        sim::paint(bar);
    }

    platform::Window form;
    ProgressBar bar;
};

std::string Name(Color color) {
    const Color red = color & 0xFF;
    const Color green = color >> 8 & 0xFF;
    const Color blue = color >> 16;
    if (color == sim::kUnpainted) return "nothing";
    if (red == green && green == blue) return "grey";
    if (red == blue) return "green";
    return green == 0 ? "red" : "orange";
}

// The colours along one row of pixels and how far each reaches: "green 160 grey 40".
std::string Colours(ProgressBar& bar, int row) {
    std::string colours;
    const int width = bar.clientSize().width;
    for (int from = 0; from < width;) {
        const std::string name = Name(sim::pixelAt(bar, {from, row}));
        int to = from + 1;
        while (to < width && Name(sim::pixelAt(bar, {to, row})) == name) ++to;
        colours += (from == 0 ? "" : " ") + name + " " + std::to_string(to - from);
        from = to;
    }
    return colours;
}

std::string PaintedText(ProgressBar& bar) {
    std::string text;
    for (const sim::Drawn& drawn : sim::paint(bar, true)) text += drawn.text;
    return text;
}

}  // namespace

TEST_CASE("A progress bar is as long as its value says, and changes colour near the top") {
    const struct {
        int width;
        int value;
        std::string colours;
    } cases[] = {
        {200, 0, "grey 200"},
        {200, 1, "green 2 grey 198"},
        {200, 79, "green 158 grey 42"},
        {200, 80, "green 160 grey 40"},
        {200, 81, "green 160 orange 2 grey 38"},
        {200, 89, "green 160 orange 18 grey 22"},
        {200, 90, "green 160 orange 20 grey 20"},
        {200, 95, "green 160 orange 20 red 10 grey 10"},
        {200, 100, "green 160 orange 20 red 20"},
        {200, 101, "green 160 orange 20 red 20"},
        {200, 32767, "green 160 orange 20 red 20"},
        {200, -1, "grey 200"},
        {200, -32768, "grey 200"},
        {137, 50, "green 69 grey 68"},
        {137, 95, "green 110 orange 13 red 7 grey 7"},
        {137, 100, "green 110 orange 13 red 14"},
        {3, 100, "green 2 orange 1"},
    };
    for (const auto& one : cases) {
        Gauge gauge(one.width);
        CAPTURE(one.width);
        CAPTURE(one.value);
        gauge.bar.SetValue(static_cast<std::int16_t>(one.value));
        CHECK(sim::paint(gauge.bar).size() <= 5);
        for (const int row : {0, 10, 19}) CHECK(Colours(gauge.bar, row) == one.colours);
    }

    Gauge plain;
    CHECK(plain.bar.TriColor());
    plain.bar.SetTriColor(false);
    plain.bar.SetValue(95);
    sim::paint(plain.bar);
    CHECK(Colours(plain.bar, 10) == "green 190 grey 10");
    plain.bar.setBounds({0, 0, 100, 20});
    sim::paint(plain.bar);
    CHECK(Colours(plain.bar, 10) == "green 95 grey 5");
    plain.bar.setBounds({0, 0, 0, 20});
    sim::paint(plain.bar);
}

TEST_CASE("Each part of a progress bar grows lighter along the bar") {
    Gauge gauge;
    gauge.bar.SetValue(96);
    sim::paint(gauge.bar);
    const struct {
        int from, to;  // of the part
        Color first, last;
    } parts[] = {
        {0, 160, rgb(0, 128, 0), rgb(107, 235, 107)},  // as far as the bar of 192 pixels has come there
        {160, 180, rgb(255, 128, 0), rgb(255, 203, 0)},
        {180, 192, rgb(128, 0, 0), rgb(255, 0, 0)},
        {192, 200, rgb(250, 250, 250), rgb(255, 255, 255)},
    };
    const auto near = [&gauge](int x, Color wanted) {
        const Color got = sim::pixelAt(gauge.bar, {x, 10});
        for (const unsigned shift : {0U, 8U, 16U}) {
            const int step = static_cast<int>(got >> shift & 0xFF) - static_cast<int>(wanted >> shift & 0xFF);
            if (step < -12 || step > 12) return false;  // a pixel of the shortest part is that much
        }
        return true;
    };
    for (const auto& part : parts) {
        CAPTURE(part.from);
        CHECK(near(part.from, part.first));
        CHECK(near(part.to - 1, part.last));
    }
}

TEST_CASE("A progress bar says its value") {
    Gauge gauge;
    CHECK(PaintedText(gauge.bar) == "00 %");
    gauge.bar.SetCaption("Mem Free: ");
    const std::pair<int, std::string> cases[] = {
        {7, "07 %"}, {42, "42 %"}, {100, "100 %"}, {240, "240 %"}, {-3, "00 %"}};
    for (const auto& [value, text] : cases) {
        gauge.bar.SetValue(static_cast<std::int16_t>(value));
        CHECK(gauge.bar.Value() == value);
        CHECK(PaintedText(gauge.bar) == "Mem Free: " + text);
    }
    const std::vector<sim::Drawn> drawn = sim::paint(gauge.bar, true);
    CHECK(drawn.back().what == "text");  // nothing covers it
    CHECK(drawn.back().area == platform::Rect{0, 0, 200, 20});
    CHECK(drawn.back().color == 0);
    CHECK(drawn.back().format == (platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine));
}

TEST_CASE("A progress bar repaints when something changed, and only then") {
    Gauge gauge;
    ProgressBar& bar = gauge.bar;
    bar.SetValue(0);
    bar.SetCaption("");
    bar.SetTriColor(true);
    CHECK(sim::invalidArea(bar).empty());
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

TEST_CASE("A progress bar tells of the pointer") {
    Gauge gauge;
    CHECK(gauge.bar.hwnd() != 0);
    CHECK(gauge.bar.text() == "ProgressBar1");
    sim::setPointer(gauge.bar, {5, 5});  // nobody listens
    std::string heard;
    gauge.bar.Hover = [&] { heard += "h"; };
    gauge.bar.Left = [&] { heard += "l"; };
    sim::setPointer(gauge.bar, {6, 5});
    sim::setPointer(gauge.bar, {7, 5});
    CHECK(heard == "hh");
    sim::mouseDown(gauge.bar, {7, 5});
    sim::mouseUp(gauge.bar, {7, 5});
    CHECK(std::ranges::count(heard, 'l') == 0);
    heard.clear();
    sim::setPointer(gauge.form, {500, 300});
    CHECK(heard == "l");
}
