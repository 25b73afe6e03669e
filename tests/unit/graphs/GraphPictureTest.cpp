#include <array>
#include <numeric>

#include "GraphsFixture.h"
#include "settings/Colours.h"

using namespace graphtest;

namespace {

constexpr char kCaption[] = "07%  notepad";

// A window that shows a history as a graph does.
class Picture : public platform::Window {
public:
    Picture() {
        sim::reset();
        REQUIRE(create({platform::WindowKind::Gadget, "", "", nullptr, Rect::fromSize({0, 0}, kSize)}));
    }

    std::array<std::int16_t, 100> history{};
    Color plot = kGreen;
    Color caption = kYellow;
    bool seenThrough = false;
    bool captioned = false;

    void DrawAnew() { sim::paint(*this, true); }
    Color At(int x, int y) { return sim::pixelAt(*this, {x, y}); }
    int Count(Color color) { return CountPixels(*this, color); }

protected:
    void onPaint(platform::Canvas& canvas, const Rect&) override {
        graphs::DrawPlot(canvas, kSize, history, plot, seenThrough);
        if (captioned) graphs::DrawCaption(canvas, kSize, kCaption, caption, history, plot, seenThrough);
    }
};

// The larger of the differences in one channel: below some 100 two colours are hard to tell apart.
int Apart(Color a, Color b) {
    int most = 0;
    for (const int shift : {0, 8, 16}) {
        most = std::max(most, std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    }
    return most;
}

}  // namespace

TEST_CASE_FIXTURE(Picture, "the plot runs from (i, 100 - sample) to the next one, over its whole width") {
    for (const bool through : {false, true}) {
        CAPTURE(through);
        seenThrough = through;
        std::iota(history.begin(), history.end(), std::int16_t{0});
        DrawAnew();
        for (int i = 0; i < 100; ++i) CHECK(At(i, 100 - i) == kGreen);
        CHECK(Count(kGreen) == 100);
        CHECK(Count(sim::kUnpainted) == 0);

        history = {};
        history[50] = 100;
        DrawAnew();
        for (const int x : {0, 20, 49, 51, 99}) CHECK(At(x, 100) == kGreen);
        CHECK(At(50, 0) == kGreen);
        CHECK(At(100, 100) != kGreen);

        history.fill(100);
        DrawAnew();
        CHECK(Count(kGreen) == 100);
        CHECK(At(99, 0) == kGreen);
    }
}

TEST_CASE_FIXTURE(Picture, "what lies under the line is told from what lies above it") {
    history.fill(40);
    DrawAnew();
    CHECK(At(30, 55) == graphs::GroundFor(kGreen));
    CHECK(At(30, 65) != At(30, 55));
    seenThrough = true;
    DrawAnew();
    for (const int y : {55, 65}) CHECK(At(30, y) == graphs::kHole);
    // The line is set off from whatever the desktop looks like.
    for (const int y : {59, 61}) CHECK(At(30, y) == graphs::GroundFor(kGreen));
}

TEST_CASE_FIXTURE(Picture, "every colour can be read on its ground, and none is mistaken for the hole") {
    captioned = true;
    std::iota(history.begin(), history.end(), std::int16_t{0});
    for (int pair = 0; pair < 2 * 8 * 8; ++pair) {
        CAPTURE(pair);
        plot = settings::ColourFromIndex(pair % 8);
        caption = settings::ColourFromIndex(pair / 8 % 8);
        seenThrough = pair >= 8 * 8;
        DrawAnew();
        if (!seenThrough) CHECK(Apart(At(60, 30), plot) > 100);
        if (!seenThrough) CHECK(Apart(At(50, 2), caption) > 100);
        // Also where the line crosses the caption.
        CHECK(At(95, 5) == plot);
        if (!seenThrough) CHECK(Apart(At(94, 5), plot) > 100);
        CHECK((Count(graphs::kHole) > 0) == seenThrough);
        // The ground alone is left out: neither the line, with its outline, nor the text's strip.
        CHECK(Count(plot) >= 80);
        CHECK(At(1, 1) == graphs::GroundFor(caption));
    }
}

TEST_CASE_FIXTURE(Picture, "the caption stands on a strip of its own, one line in its colour, below the plot") {
    captioned = true;
    history.fill(95);
    for (const bool through : {false, true}) {
        seenThrough = through;
        const auto drawn = sim::paint(*this, true);
        const auto text = std::ranges::find(drawn, "text", &sim::Drawn::what);
        REQUIRE(text != drawn.end());
        CHECK(text->text == kCaption);
        CHECK(text->color == kYellow);
        CHECK(text->area.top == 0);
        CHECK((text->format & platform::kTextSingleLine) != 0);
        CHECK((text->format & platform::kTextNoPrefix) != 0);
        CHECK(At(30, 5) == kGreen);
        CHECK(std::any_of(text, drawn.end(), [](const sim::Drawn& each) { return each.color == kGreen; }));
    }
    CHECK(At(99, 12) == graphs::kHole);  // the strip is as wide as its text
}
