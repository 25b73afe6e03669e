#include "tray/TrayMeter.h"

#include <doctest/doctest.h>

#include <climits>
#include <vector>

#include "TrayFixture.h"

namespace sim = platform::sim;
using platform::Color;
using platform::rgb;
using tray::MeterType;

namespace {

constexpr int kSide = 32;
constexpr Color kRed = rgb(255, 0, 0);
constexpr Color kBlue = rgb(0, 0, 255);
constexpr Color kAlmostBlack = rgb(1, 1, 1);
constexpr Color kWhite = rgb(255, 255, 255);
constexpr Color kUserWhite = rgb(254, 254, 254);  // what users choose as white: to be seen

tray::TrayMeter Meter(MeterType type, Color color) {
    tray::TrayMeter meter;
    meter.SetType(type);
    meter.SetBorderColor(kBlue);
    meter.SetTrayColor(color);
    return meter;
}

// A strip on which no two places look alike; `salt` tells one strip from another.
constexpr platform::Size kStrip{190, 32};
Color StripAt(int x, int y, int salt) {
    switch ((x * x + 7 * y + x * y + salt) % 5) {
        case 0:
        case 1:
            return 0;
        case 2:
            return kAlmostBlack;
        default:
            return kWhite;
    }
}

void PutStrip(int resource, int salt) {
    std::vector<Color> pixels;
    for (int y = 0; y < kStrip.height; ++y) {
        for (int x = 0; x < kStrip.width; ++x) pixels.push_back(StripAt(x, y, salt));
    }
    sim::setPictureResource(resource, kStrip, pixels);
}

// The icon whose left half comes from `left` of the strip, and the right one from `right`.
std::vector<Color> Digits(int left, int right, int salt, Color color) {
    std::vector<Color> pixels;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const Color there = StripAt(x < 16 ? left + x : right + x - 16, y, salt);
            pixels.push_back(there == 0 ? color : there == kWhite ? sim::kUnpainted : there);
        }
    }
    return pixels;
}

}  // namespace

TEST_CASE("the bar is filled from its level down to the border") {
    sim::reset();
    struct Case {
        int percent, level;  // the first filled row; 31: none
    };
    // From 43 % on the bar is two rows lower than its share; 96 % would overflow the border.
    const Case cases[] = {{0, 31},  {1, 31},  {2, 30},     {7, 29},      {42, 18},     {43, 19},
                          {50, 17}, {85, 6},  {95, 3},     {96, 2},      {99, 2},      {100, 2},
                          {101, 2}, {-1, 31}, {-5000, 31}, {INT_MAX, 2}, {INT_MIN, 31}};
    for (const Color color : {kRed, Color{0}, kUserWhite}) {
        const auto meter = Meter(MeterType::Graph, color);
        for (const Case& c : cases) {
            std::vector<Color> expected;
            for (int y = 0; y < kSide; ++y) {
                for (int x = 0; x < kSide; ++x) {
                    const bool outside = x == 0 || y == 0;
                    const bool border = x == 1 || y == 1 || x == 31 || y == 31;
                    const Color inside = y >= c.level ? color : sim::kUnpainted;
                    expected.push_back(outside ? sim::kUnpainted : border ? kBlue : inside);
                }
            }
            CAPTURE(color);
            CAPTURE(c.percent);
            CHECK(PixelsOf(meter.Draw(c.percent)) == expected);
        }
    }
}

TEST_CASE("digits come from the strip of their size, in the colour chosen") {
    sim::reset();
    PutStrip(105, 0);
    PutStrip(106, 1);
    struct Case {
        int percent, left, right;  // places in the strip
    };
    const Case cases[] = {{0, 0, 0},       {7, 0, 112},     {50, 80, 0},         {85, 128, 80}, {99, 144, 144},
                          {100, 158, 174}, {140, 158, 174}, {INT_MAX, 158, 174}, {-7, 0, 0},    {INT_MIN, 0, 0}};
    for (const Color color : {Color{0}, kRed, kUserWhite}) {
        const auto large = Meter(MeterType::NumberLarge, color);
        const auto small = Meter(MeterType::NumberSmall, color);
        for (const Case& c : cases) {
            CAPTURE(color);
            CAPTURE(c.percent);
            CHECK(PixelsOf(large.Draw(c.percent)) == Digits(c.left, c.right, 0, color));
            CHECK(PixelsOf(small.Draw(c.percent)) == Digits(c.left, c.right, 1, color));
        }
    }
}

TEST_CASE("a change of colour or type starts from black digits, and a tick does not prepare any") {
    sim::reset();
    PutStrip(105, 0);
    PutStrip(106, 1);
    auto meter = Meter(MeterType::NumberLarge, kRed);
    for (const Color color : {kBlue, kAlmostBlack, Color{0}, kRed}) {
        meter.SetTrayColor(color);
        CHECK(PixelsOf(meter.Draw(7)) == Digits(0, 112, 0, color));
    }
    meter.SetType(MeterType::Graph);
    meter.SetTrayColor(kBlue);
    meter.SetType(MeterType::NumberSmall);
    meter.SetTrayColor(kBlue);
    PutStrip(106, 2);
    CHECK(PixelsOf(meter.Draw(7)) == Digits(0, 112, 1, kBlue));
}

TEST_CASE("without a picture there is no icon, and nothing is left open") {
    sim::reset();
    PutStrip(105, 0);
    const int before = sim::openHandles();
    {
        CHECK_FALSE(tray::TrayMeter().Draw(50));
        CHECK_FALSE(Meter(MeterType::Disabled, kRed).Draw(50));

        tray::TrayMeter unprepared;
        unprepared.SetType(MeterType::NumberLarge);
        CHECK_FALSE(unprepared.Draw(50));
        sim::setPictureResource(106, {0, 0});  // missing
        CHECK_FALSE(Meter(MeterType::NumberSmall, kRed).Draw(50));

        for (const MeterType type : {MeterType::Graph, MeterType::NumberLarge}) {
            const auto meter = Meter(type, kRed);
            sim::failIcons(true);
            CHECK_FALSE(meter.Draw(50));
            sim::failIcons(false);
            const int prepared = sim::openHandles();
            for (int tick = 0; tick < 1000; ++tick) CHECK(meter.Draw(tick % 101));
            CHECK(sim::openHandles() == prepared);
        }
    }
    CHECK(sim::openHandles() == before);
}

TEST_CASE("a damaged setting is no meter") {
    for (const int value : {-1, 4, 100, INT_MIN, INT_MAX}) {
        CHECK(tray::MeterTypeFromSetting(value) == MeterType::Disabled);
    }
    for (int value = 0; value <= 3; ++value) {
        CHECK(static_cast<int>(tray::MeterTypeFromSetting(value)) == value);
    }
}
