#include "graphs/GraphLooks.h"

#include <algorithm>

namespace graphs {

namespace {

using platform::Canvas;
using platform::Color;
using platform::Font;
using platform::Point;
using platform::Rect;
using platform::Size;
using Samples = std::span<const std::int16_t>;

constexpr Color kBlack = platform::rgb(0, 0, 0);
constexpr Color kWhite = platform::rgb(255, 255, 255);
constexpr Color kDarkGround = platform::rgb(20, 25, 32);
constexpr Color kLightGround = platform::rgb(236, 240, 245);
constexpr int kDarkInk = 60;  // brightness up to which an ink is lost on the dark ground: black and blue

// Percent of the ink, or of black or white, in the ground.
constexpr int kGrid = 9;
constexpr int kFrame = 24;
constexpr int kBaseLine = 50;
constexpr int kFillTop = 60;
constexpr int kFillBottom = 18;
constexpr int kFaintFill = 16;  // what lies under the line, behind the caption

constexpr int kTextRoom = 3;  // left and right of a text

int Brightness(Color color) {
    const auto red = static_cast<int>(color & 0xFF);
    const auto green = static_cast<int>(color >> 8 & 0xFF);
    const auto blue = static_cast<int>(color >> 16 & 0xFF);
    return (red * 299 + green * 587 + blue * 114) / 1000;
}

int LevelOf(std::int16_t sample) {
    return kPlotHeight - sample;
}

Point PointOf(Samples samples, int index) {
    return {index, LevelOf(samples[static_cast<std::size_t>(index)])};
}

void DrawLine(Canvas& canvas, Samples samples, Color color, Point shift = {}) {
    const int last = static_cast<int>(samples.size()) - 1;
    const auto at = [&](int index) {
        const Point point = PointOf(samples, index);
        return Point{point.x + shift.x, point.y + shift.y};
    };
    for (int index = 0; index < last; ++index) canvas.line(at(index), at(index + 1), color);
    canvas.pixel(at(last), color);
}

void DrawOutline(Canvas& canvas, Samples samples, Color color) {
    for (const Point shift : {Point{-1, 0}, Point{1, 0}, Point{0, -1}, Point{0, 1}}) {
        DrawLine(canvas, samples, color, shift);
    }
}

// Covers what is not under the line: one rectangle for all neighbours of one height.
void DrawAbove(Canvas& canvas, Size size, Samples samples, Color ground) {
    const int count = static_cast<int>(samples.size());
    for (int from = 0; from < count;) {
        const int level = PointOf(samples, from).y;
        int to = from + 1;
        while (to < count && PointOf(samples, to).y == level) ++to;
        canvas.fill({from, 0, to, level}, ground);
        from = to;
    }
    canvas.fill({count, 0, size.width, size.height}, ground);
}

// What lies under the line, in a shade that is the stronger the higher it reaches.
void DrawFill(Canvas& canvas, Size size, Samples samples, Color ink, Color ground) {
    canvas.gradient(Rect::fromSize({}, size), Mixed(ground, ink, kFillTop), Mixed(ground, ink, kFillBottom),
                    platform::Direction::Vertical);
    DrawAbove(canvas, size, samples, ground);
}

Color OppositeOf(Color ground) {
    return ground == kLightGround ? kBlack : kWhite;
}

void DrawFrame(Canvas& canvas, const Rect& area, Color ground) {
    canvas.frame(area, Mixed(ground, OppositeOf(ground), kFrame));
}

void DrawGrid(Canvas& canvas, Size size, Color ground) {
    const Color opposite = OppositeOf(ground);
    for (const int quarter : {1, 2, 3}) {
        const int y = kPlotHeight * quarter / 4;
        canvas.fill({0, y, size.width, y + 1}, Mixed(ground, opposite, kGrid));
    }
    DrawFrame(canvas, Rect::fromSize({}, size), ground);
}

}  // namespace

Color GroundFor(Color ink) {
    return Brightness(ink) <= kDarkInk ? kLightGround : kDarkGround;
}

Color Mixed(Color a, Color b, int percent) {
    Color mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto from = static_cast<int>(a >> shift & 0xFF);
        const auto to = static_cast<int>(b >> shift & 0xFF);
        mixed |= static_cast<Color>(from + (to - from) * percent / 100) << shift;
    }
    return mixed;
}

void DrawPanel(Canvas& canvas, const Rect& area, Color ground) {
    canvas.fill(area, ground);
    DrawFrame(canvas, area, ground);
}

void DrawGround(Canvas& canvas, Size size, Color ground) {
    canvas.fill(Rect::fromSize({}, size), ground);
    DrawGrid(canvas, size, ground);
}

void DrawHole(Canvas& canvas, Size size, Color ground) {
    canvas.fill(Rect::fromSize({}, size), kHole);
    // Grey, which is told from black and from white.
    canvas.fill({0, size.height - 1, size.width, size.height}, Mixed(ground, OppositeOf(ground), kBaseLine));
}

void DrawPlot(Canvas& canvas, Size size, Samples samples, Color ink, bool seenThrough) {
    const Color ground = GroundFor(ink);
    if (seenThrough) {
        canvas.fill(Rect::fromSize({}, size), kHole);
        DrawOutline(canvas, samples, ground);
    } else {
        DrawFill(canvas, size, samples, ink, ground);
        DrawGrid(canvas, size, ground);
    }
    DrawLine(canvas, samples, ink);
}

void DrawCaption(Canvas& canvas, Size size, std::string_view text, Color ink, Samples samples, Color plotInk,
                 bool seenThrough) {
    const Size needed = platform::textSize(text, Font::Normal);
    const int width = seenThrough ? std::min(needed.width + 2 * kTextRoom, size.width) : size.width;
    const Rect strip{0, 0, width, needed.height + 1};
    if (!canvas.needsPaint(strip)) return;
    const Color ground = GroundFor(ink);
    const platform::ClipGuard clip(canvas, strip);
    canvas.fill(strip, seenThrough ? ground : Mixed(ground, plotInk, kFaintFill));
    if (!seenThrough) {
        DrawAbove(canvas, size, samples, ground);
        DrawFrame(canvas, Rect::fromSize({}, size), ground);
    }
    canvas.text(
        strip.inset(kTextRoom, 0), text, ink, Font::Normal,
        platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix | platform::kTextWordEllipsis);
    // The strip's ground suits the text; the line may be lost on it.
    if (GroundFor(plotInk) != ground) DrawOutline(canvas, samples, GroundFor(plotInk));
    DrawLine(canvas, samples, plotInk);
}

}  // namespace graphs
