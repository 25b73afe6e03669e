#include "tray/TrayMeter.h"

#include <algorithm>
#include <climits>

#include "TrayFixture.h"

namespace sim = platform::sim;
using platform::Color;
using tray::MeterType;

namespace {

constexpr int kSide = 32;
constexpr Color kRed = platform::rgb(255, 0, 0);
constexpr Color kBlue = platform::rgb(0, 0, 255);
constexpr Color kAlmostBlack = platform::rgb(1, 1, 1);
constexpr Color kWhite = platform::rgb(255, 255, 255);
constexpr Color kUserWhite = platform::rgb(254, 254, 254);  // what users choose as white: to be seen

tray::TrayMeter Meter(MeterType type, Color color) {
    tray::TrayMeter meter;
    meter.SetType(type);
    meter.SetBorderColor(kBlue);
    meter.SetTrayColor(color);
    return meter;
}

// A strip of digits on which no two places look alike; `salt` tells one strip from another.
Color StripAt(int x, int y, int salt) {
    constexpr Color kColors[] = {0, 0, kAlmostBlack, kWhite, kWhite};
    return kColors[(x * x + 7 * y + x * y + salt) % 5];
}

void PutStrip(int resource, int salt) {
    std::vector<Color> pixels;
    for (int i = 0; i < 190 * kSide; ++i) pixels.push_back(StripAt(i % 190, i / 190, salt));
    sim::setPictureResource(resource, {190, kSide}, pixels);
}

// A machine with digits large (salt 0) and small (1).
struct Machine : FreshMachine {
    Machine() {
        PutStrip(105, 0);
        PutStrip(106, 1);
    }
};

// The icon whose left half comes from `left` of the strip, and the right one from `right`.
std::vector<Color> Digits(int left, int right, int salt, Color color) {
    std::vector<Color> pixels;
    for (int i = 0; i < kSide * kSide; ++i) {
        const int x = i % kSide;
        const Color there = StripAt(x < 16 ? left + x : right + x - 16, i / kSide, salt);
        pixels.push_back(there == 0 ? color : there == kWhite ? sim::kUnpainted : there);
    }
    return pixels;
}

}  // namespace

TEST_CASE_FIXTURE(Machine, "the bar is filled from its level down to the border") {
    // Percent and the first filled row; 31: none. From 43 % on the bar is two rows lower than its share; 96 % would
    // overflow the border.
    const std::pair<int, int> cases[] = {{0, 31}, {1, 31}, {2, 30},  {7, 29},  {42, 18},     {43, 19},     {50, 17},
                                         {95, 3}, {96, 2}, {100, 2}, {-1, 31}, {INT_MAX, 2}, {INT_MIN, 31}};
    for (const Color color : {kRed, Color{0}, kUserWhite}) {
        const auto meter = Meter(MeterType::Graph, color);
        for (const auto& [percent, level] : cases) {
            CAPTURE(color);
            CAPTURE(percent);
            const auto pixels = PixelsOf(meter.Draw(percent));
            const auto filled = pixels.begin() + level * kSide;
            CHECK(std::count(pixels.begin(), filled, color) == 0);
            CHECK(std::count(filled, pixels.end(), color) == (31 - level) * 29);
            CHECK(std::ranges::count(pixels, kBlue) == 4 * 31 - 4);
        }
    }
}

TEST_CASE_FIXTURE(Machine, "digits come from the strip of their size, in the colour chosen") {
    const struct {
        int percent, left, right;  // places in the strip
    } cases[] = {{0, 0, 0},       {7, 0, 112},     {85, 128, 80},       {99, 144, 144},
                 {100, 158, 174}, {140, 158, 174}, {INT_MAX, 158, 174}, {INT_MIN, 0, 0}};
    // Each colour is put in place of black: every change starts from black digits.
    auto meter = Meter(MeterType::NumberLarge, kRed);
    for (const Color color : {kBlue, kAlmostBlack, Color{0}, kUserWhite}) {
        for (const auto type : {MeterType::NumberLarge, MeterType::NumberSmall}) {
            meter.SetType(type);
            meter.SetTrayColor(color);
            const int salt = type == MeterType::NumberSmall ? 1 : 0;
            for (const auto& c : cases) {
                CAPTURE(color);
                CAPTURE(c.percent);
                CHECK(PixelsOf(meter.Draw(c.percent)) == Digits(c.left, c.right, salt, color));
            }
        }
    }
    PutStrip(106, 2);  // a tick does not prepare any
    CHECK(PixelsOf(meter.Draw(7)) == Digits(0, 112, 1, kUserWhite));
}

TEST_CASE_FIXTURE(Machine, "without a picture there is no icon, and nothing is left open") {
    for (const int bad : {-1, 4, INT_MIN, INT_MAX}) CHECK(tray::MeterTypeFromSetting(bad) == MeterType::Disabled);
    for (const int good : {0, 3}) CHECK(static_cast<int>(tray::MeterTypeFromSetting(good)) == good);
    const int before = sim::openHandles();
    sim::setPictureResource(106, {0, 0});  // missing
    for (const auto type : {MeterType::Disabled, MeterType::NumberSmall}) CHECK_FALSE(Meter(type, kRed).Draw(50));
    sim::failIcons(true);
    for (const auto type : {MeterType::Graph, MeterType::NumberLarge}) CHECK_FALSE(Meter(type, kRed).Draw(50));
    CHECK(sim::openHandles() == before);
}
