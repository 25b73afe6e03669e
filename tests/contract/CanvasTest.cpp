#include "platform/Canvas.h"

#include <cstdlib>

#include "contract/Probe.h"

using namespace platform;

namespace {

constexpr Rect kAll{0, 0, 200, 100};
constexpr Color kGround = rgb(255, 255, 255);
constexpr Color kRed = rgb(255, 0, 0);
constexpr Color kGreen = rgb(0, 255, 0);
constexpr Color kBlue = rgb(0, 0, 255);

// A control that shows what it is told to draw, on a white ground.
struct Sheet : contract::Desk {
    contract::Probe sheet{"sheet", log, contract::asChildOf(main, kAll.offset(0, 70))};

    void draw(std::function<void(Canvas&)> what, const Rect& part = kAll) {
        pumpMessages();
        sheet.draws = std::move(what);
        sheet.invalidate(part);
        sheet.update();
    }
    Color at(int x, int y) { return contract::pixelAt(sheet, {x, y}); }
    // True when the pixels of `area` but for those of `hollow` have the colour, and none around them.
    bool isExactly(const Rect& area, Color color, const Rect& hollow = {}) {
        const Rect around = area.inset(-2, -2).intersect(kAll);
        for (int y = around.top; y < around.bottom; ++y) {
            for (int x = around.left; x < around.right; ++x) {
                const bool covered = area.contains({x, y}) && !hollow.contains({x, y});
                if ((at(x, y) == color) != covered) return false;
            }
        }
        return true;
    }
};

int channel(Color color, int which) {
    return static_cast<int>(color >> 8 * which & 0xFF);
}

bool near(Color a, Color b, int most) {
    for (int i = 0; i < 3; ++i) {
        if (std::abs(channel(a, i) - channel(b, i)) > most) return false;
    }
    return true;
}

}  // namespace

TEST_CASE_FIXTURE(Sheet, "shapes cover the pixels they say, and no others") {
    draw([](Canvas& canvas) {
        canvas.fill({10, 10, 15, 13}, kRed);
        canvas.frame({20, 10, 28, 16}, kBlue);
        canvas.pixel({35, 10}, kGreen);
        canvas.line({40, 10}, {50, 10}, kRed);
        canvas.line({60, 20}, {60, 10}, kBlue);  // upwards
        canvas.line({70, 10}, {74, 14}, kGreen);
        canvas.line({80, 10}, {80, 10}, kRed);
        canvas.fill({8, 48, 22, 62}, kGreen);
        for (const Rect& none : {Rect{10, 50, 10, 60}, Rect{10, 50, 20, 50}, Rect{20, 60, 10, 50}}) {
            canvas.fill(none, kRed);
            canvas.frame(none, kRed);
            canvas.gradient(none, kRed, kRed, Direction::Vertical);
            canvas.edge(none, Edge::Etched);
            canvas.focusRect(none);
        }
    });
    CHECK(isExactly({10, 10, 15, 13}, kRed));  // without its right column and bottom row
    CHECK(isExactly({20, 10, 28, 16}, kBlue, {21, 11, 27, 15}));
    CHECK(isExactly({35, 10, 36, 11}, kGreen));
    CHECK(isExactly({40, 10, 50, 11}, kRed));  // the last point of a line is not set
    CHECK(isExactly({60, 11, 61, 21}, kBlue));
    for (int i = -1; i < 6; ++i) CHECK((at(70 + i, 10 + i) == kGreen) == (i >= 0 && i < 4));
    CHECK(at(80, 10) == kGround);
    CHECK(isExactly({8, 48, 22, 62}, kGreen));  // nothing of what is empty or the wrong way round
}

TEST_CASE_FIXTURE(Sheet, "a gradient goes from one colour to the other, evenly, in one direction") {
    for (const Direction direction : {Direction::Horizontal, Direction::Vertical}) {
        const bool across = direction == Direction::Horizontal;
        CAPTURE(across);
        const auto along = [&](int step, int side) {
            return across ? at(10 + step, 10 + side) : at(10 + side, 10 + step);
        };
        const Rect area = across ? Rect{10, 10, 74, 20} : Rect{10, 10, 20, 74};
        draw([=](Canvas& canvas) { canvas.gradient(area, rgb(250, 100, 0), rgb(50, 100, 200), direction); });
        for (int step = 0; step < 64; ++step) {
            const Color mixed = rgb(250 - 200 * step / 64, 100, 200 * step / 64);
            for (const int side : {0, 9}) CHECK(near(along(step, side), mixed, 6));
        }
        for (const Color outside : {along(-1, 0), along(64, 0), along(0, 10)}) CHECK(outside == kGround);
    }
}

TEST_CASE_FIXTURE(Sheet, "edges: light comes from the top left") {
    draw([](Canvas& canvas) {
        canvas.fill(kAll, kRed);
        canvas.edge({10, 10, 30, 30}, Edge::RaisedInner);
        canvas.edge({40, 10, 60, 30}, Edge::SunkenInner);
        canvas.edge({70, 10, 90, 30}, Edge::Etched);
    });
    const auto light = [&](int x, int y) { return channel(at(x, y), 1); };
    CHECK(light(10, 20) > light(29, 20));
    CHECK(light(20, 10) > light(20, 29));
    CHECK(light(40, 20) < light(59, 20));
    CHECK(light(50, 10) < light(50, 29));
    CHECK(light(70, 20) < light(71, 20));  // a groove: dark, then light
    CHECK(light(88, 20) < light(89, 20));
    for (const int x : {11, 20, 41, 50, 72, 80}) CHECK(at(x, 20) == kRed);
}

TEST_CASE_FIXTURE(Sheet, "a clip guard keeps drawing inside, and what it kept before comes back") {
    draw([](Canvas& canvas) {
        {
            const ClipGuard outer(canvas, {10, 10, 50, 50});
            {
                const ClipGuard inner(canvas, {40, 40, 80, 80});
                canvas.fill(kAll, kRed);
                CHECK(canvas.needsPaint({0, 0, 41, 41}));
                CHECK_FALSE(canvas.needsPaint({0, 0, 40, 40}));
                CHECK_FALSE(canvas.needsPaint({50, 50, 80, 80}));
            }
            canvas.fill({0, 0, 20, 20}, kGreen);
            const ClipGuard nothing(canvas, {30, 30, 20, 20});
            canvas.fill(kAll, kBlue);
        }
        canvas.fill({90, 90, 100, 100}, kBlue);
        CHECK_FALSE(canvas.needsPaint({20, 20, 20, 30}));
    });
    CHECK(isExactly({40, 40, 50, 50}, kRed));
    CHECK(isExactly({10, 10, 20, 20}, kGreen));
    CHECK(isExactly({90, 90, 100, 100}, kBlue));
    CHECK(at(25, 25) == kGround);
}

TEST_CASE_FIXTURE(Sheet, "only what is invalid is painted, whatever is drawn") {
    draw([](Canvas& canvas) { canvas.fill(kAll, kGreen); });
    draw(
        [](Canvas& canvas) {
            CHECK(canvas.needsPaint({0, 0, 21, 31}));
            CHECK_FALSE(canvas.needsPaint({0, 0, 200, 30}));
            canvas.fill(kAll, kRed);
            canvas.line({0, 80}, {200, 80}, kBlue);
            canvas.pixel({5, 5}, kBlue);
        },
        {20, 30, 60, 50});
    CHECK(sheet.lastDirty == Rect{20, 30, 60, 50});
    CHECK(isExactly({20, 30, 60, 50}, kRed));
    CHECK(at(5, 5) == kGreen);
    CHECK(at(100, 80) == kGreen);
}

TEST_CASE_FIXTURE(Sheet, "pictures: copied, blended, masked and disabled") {
    // 4 x 2: red, green, blue, magenta; black, white, grey, magenta.
    const PictureHandle plain = pictureFromPixels(
        {4, 2},
        std::vector<std::uint32_t>{0xFF0000, 0x00FF00, 0x0000FF, 0xFF00FF, 0x000000, 0xFFFFFF, 0x808080, 0xFF00FF});
    const PictureHandle alpha =
        pictureFromPixels({4, 1}, std::vector<std::uint32_t>{0xFFFF0000, 0x80800000, 0x00000000, 0x80000000});
    const Color mask = rgb(255, 0, 255);
    const Rect whole{0, 0, 4, 2};
    draw([&](Canvas& canvas) {
        canvas.picture({10, 10}, plain, whole);
        canvas.fill({28, 8, 108, 20}, kGreen);
        canvas.maskedPicture({30, 10}, plain, whole, mask);
        canvas.disabledPicture({50, 10}, plain, whole, mask);
        canvas.fill({88, 8, 108, 20}, kBlue);
        canvas.picture({90, 10}, alpha, {0, 0, 4, 1});
        // A part, and what of a part exists.
        canvas.picture({10, 50}, plain, {1, 1, 3, 2});
        canvas.picture({30, 50}, plain, {2, 0, 10, 10});
        canvas.maskedPicture({50, 50}, plain, {-2, -1, 2, 1}, mask);
        canvas.picture({70, 50}, plain, {8, 8, 12, 12});
        canvas.picture({90, 50}, {}, whole);
    });
    const Color first[] = {kRed, kGreen, kBlue, mask, kGround};
    const Color second[] = {rgb(0, 0, 0), rgb(255, 255, 255), rgb(128, 128, 128), mask, kGround};
    for (int x = 0; x < 5; ++x) {
        CAPTURE(x);
        CHECK(at(10 + x, 10) == first[x]);  // without alpha: mask colour and all
        CHECK(at(10 + x, 11) == second[x]);
        CHECK(at(10 + x, 12) == kGround);
        CHECK(at(30 + x, 10) == (x < 3 ? first[x] : kGreen));
        CHECK(at(30 + x, 11) == (x < 3 ? second[x] : kGreen));
    }
    for (const Point where : {Point{50, 10}, Point{52, 10}, Point{50, 11}}) {
        const Color grey = at(where.x, where.y);
        CHECK(grey != kGreen);
        CHECK(grey != rgb(0, 0, 0));
        CHECK(std::abs(channel(grey, 0) - channel(grey, 2)) < 40);  // the ground may have a tinge
        CHECK(std::abs(channel(grey, 0) - channel(grey, 1)) < 40);
    }
    CHECK(at(53, 10) == kGreen);
    CHECK(at(90, 10) == kRed);  // premultiplied, blended over what is there
    CHECK(near(at(91, 10), rgb(128, 0, 127), 2));
    CHECK(at(92, 10) == kBlue);
    CHECK(near(at(93, 10), rgb(0, 0, 127), 2));

    CHECK(at(10, 50) == rgb(255, 255, 255));
    CHECK(at(11, 50) == rgb(128, 128, 128));
    CHECK(at(12, 50) == kGround);
    CHECK(at(30, 50) == kBlue);
    CHECK(at(31, 51) == mask);
    CHECK(at(32, 50) == kGround);
    CHECK(at(52, 51) == kRed);  // stays where it belongs
    CHECK(at(53, 51) == kGreen);
    for (const int x : {50, 70, 90}) CHECK(at(x, 50) == kGround);
}

TEST_CASE_FIXTURE(contract::Fresh, "nobody has chosen high contrast on a machine as it is set up") {
    CHECK_FALSE(highContrast());
}

TEST_CASE_FIXTURE(contract::Fresh, "text has a size") {
    const Size line = textSize("Processes", Font::Normal);
    CHECK(line.width > 9);
    CHECK(line.height > 8);
    CHECK(textSize("Processes & more", Font::Normal).width > line.width);
    CHECK(textSize("Processes", Font::Bold).width > line.width);
    CHECK(textSize("", Font::Normal) == Size{0, line.height});
    CHECK(textSize("&", Font::Normal).width > 0);  // no shortcut marks

    const std::string sentence = "several words that do not fit on one line of this width";
    const Size wrapped = textSize(sentence, Font::Normal, 100);
    CHECK(wrapped.height >= 2 * line.height);
    CHECK(wrapped.width <= 100);
    CHECK(textSize(sentence, Font::Normal).height == line.height);
    CHECK(textSize("one", Font::Normal, 100).height == line.height);
}
