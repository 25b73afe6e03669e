#include <doctest/doctest.h>

#include <array>
#include <numeric>

#include "GraphsFixture.h"
#include "settings/Colours.h"

using namespace graphtest;

namespace {

using History = std::array<std::int16_t, 100>;

constexpr platform::Size kSize{101, 102};
constexpr char kCaption[] = "07%  notepad";

// A window that shows a history as a graph does.
class Picture : public platform::Window {
public:
    Picture() {
        sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Gadget;
        spec.bounds = Rect::fromSize({0, 0}, kSize);
        REQUIRE(create(spec));
    }

    History history{};
    Color plot = kGreen;
    Color caption = kYellow;
    bool seenThrough = false;
    bool captioned = false;

    // Drawn anew.
    Color At(int x, int y) {
        sim::paint(*this, true);
        return sim::pixelAt(*this, {x, y});
    }

protected:
    void onPaint(platform::Canvas& canvas, const Rect&) override {
        graphs::DrawPlot(canvas, kSize, history, plot, seenThrough);
        if (captioned) graphs::DrawCaption(canvas, kSize, kCaption, caption, history, plot, seenThrough);
    }
};

History Ramp() {
    History history;
    std::iota(history.begin(), history.end(), std::int16_t{0});
    return history;
}

int Channel(Color color, int shift) {
    return static_cast<int>(color >> shift & 0xFF);
}

// The larger of the differences in one channel: below some 100 two colours are hard to tell apart.
int Apart(Color a, Color b) {
    int most = 0;
    for (const int shift : {0, 8, 16}) most = std::max(most, std::abs(Channel(a, shift) - Channel(b, shift)));
    return most;
}

}  // namespace

TEST_CASE("the plot runs from (i, 100 - sample) to the next one, over its whole width") {
    Picture picture;
    for (const bool seenThrough : {false, true}) {
        CAPTURE(seenThrough);
        picture.seenThrough = seenThrough;
        picture.history = Ramp();
        sim::paint(picture, true);
        for (int i = 0; i < 100; ++i) {
            CAPTURE(i);
            CHECK(sim::pixelAt(picture, {i, 100 - i}) == kGreen);
        }
        CHECK(CountPixels(picture, kGreen) == 100);
        CHECK(CountPixels(picture, sim::kUnpainted) == 0);

        picture.history = {};
        picture.history[50] = 100;
        sim::paint(picture, true);
        for (const int x : {0, 20, 49, 51, 99}) CHECK(sim::pixelAt(picture, {x, 100}) == kGreen);
        CHECK(sim::pixelAt(picture, {50, 0}) == kGreen);
        CHECK(sim::pixelAt(picture, {100, 100}) != kGreen);

        picture.history.fill(100);
        sim::paint(picture, true);
        CHECK(CountPixels(picture, kGreen) == 100);
        CHECK(sim::pixelAt(picture, {99, 0}) == kGreen);
    }
}

TEST_CASE("what lies under the line is told from what lies above it") {
    Picture picture;
    picture.history.fill(40);
    const Color above = picture.At(30, 55);
    CHECK(above == graphs::GroundFor(kGreen));
    CHECK(picture.At(30, 65) != above);
    picture.seenThrough = true;
    CHECK(picture.At(30, 55) == graphs::kHole);
    CHECK(picture.At(30, 65) == graphs::kHole);
    // The line is set off from whatever the desktop looks like.
    CHECK(picture.At(30, 59) == graphs::GroundFor(kGreen));
    CHECK(picture.At(30, 61) == graphs::GroundFor(kGreen));
}

TEST_CASE("every colour can be read on its ground, and none is mistaken for the hole") {
    Picture picture;
    picture.captioned = true;
    for (int plot = 0; plot < 8; ++plot) {
        for (int caption = 0; caption < 8; ++caption) {
            CAPTURE(plot);
            CAPTURE(caption);
            picture.plot = settings::ColourFromIndex(plot);
            picture.caption = settings::ColourFromIndex(caption);
            picture.history = Ramp();
            picture.seenThrough = false;
            CHECK(Apart(picture.At(60, 30), picture.plot) > 100);
            CHECK(Apart(picture.At(50, 2), picture.caption) > 100);

            for (const bool seenThrough : {false, true}) {
                picture.seenThrough = seenThrough;
                sim::paint(picture, true);
                const int holes = CountPixels(picture, graphs::kHole);
                CHECK((holes > 0) == seenThrough);
                // The ground alone is left out: neither the line, with its outline, nor the text's strip.
                CHECK(CountPixels(picture, picture.plot) >= 80);
                CHECK(sim::pixelAt(picture, {1, 1}) == graphs::GroundFor(picture.caption));
            }
        }
    }
}

TEST_CASE("the caption stands on a strip of its own, one line in its colour") {
    Picture picture;
    picture.captioned = true;
    picture.history.fill(95);
    for (const bool seenThrough : {false, true}) {
        picture.seenThrough = seenThrough;
        const auto drawn = sim::paint(picture, true);
        const auto text =
            std::find_if(drawn.begin(), drawn.end(), [](const auto& one) { return one.what == "text"; });
        REQUIRE(text != drawn.end());
        CHECK(text->text == kCaption);
        CHECK(text->color == kYellow);
        CHECK(text->area.top == 0);
        CHECK((text->format & platform::kTextSingleLine) != 0);
        CHECK((text->format & platform::kTextNoPrefix) != 0);
        // The line goes on behind the words, too faint to disturb them.
        const Color behind = sim::pixelAt(picture, {30, 5});
        CHECK(behind != kGreen);
        CHECK(behind != graphs::GroundFor(kYellow));
    }
    CHECK(sim::pixelAt(picture, {99, 12}) == graphs::kHole);  // the strip is as wide as its text
    picture.history.fill(50);
    CHECK(picture.At(30, 50) == kGreen);
}
