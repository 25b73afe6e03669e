#include "platform/Canvas.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "contract/Bmp.h"
#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Files.h"
#include "platform/Window.h"

using namespace platform;

namespace {

constexpr Color kGround = rgb(255, 255, 255);
constexpr Color kRed = rgb(255, 0, 0);
constexpr Color kGreen = rgb(0, 255, 0);
constexpr Color kBlue = rgb(0, 0, 255);

// A control that shows what it is told to draw, on a white ground.
class Sheet : public Window {
public:
    using Draw = std::function<void(Canvas&, const Rect&)>;

    Sheet() {
        contract::freshMachine();
        REQUIRE(main_.create({WindowKind::Main, "SheetMain", "main", nullptr, {50, 50, 500, 400}}));
        REQUIRE(create({WindowKind::Child, "Sheet", "sheet", &main_, {0, 0, 200, 100}}));
        main_.show(ShowCommand::Show);
        update();
    }
    ~Sheet() override { destroy(); }

    void draw(Draw what) {
        draw_ = std::move(what);
        invalidate();
        update();
    }
    void drawPart(const Rect& part, Draw what) {
        pumpMessages();
        draw_ = std::move(what);
        invalidate(part);
        update();
    }
    Color at(int x, int y) { return contract::pixelAt(*this, {x, y}); }

protected:
    void onPaint(Canvas& canvas, const Rect& dirty) override {
        canvas.fill(dirty, kGround);
        if (draw_) draw_(canvas, dirty);
    }

private:
    Window main_;
    Draw draw_;
};

// True when exactly the pixels of `area` have the colour, seen over the whole sheet.
bool isExactly(Sheet& sheet, const Rect& area, Color color) {
    const Rect around = area.inset(-2, -2).intersect({0, 0, 200, 100});
    for (int y = around.top; y < around.bottom; ++y) {
        for (int x = around.left; x < around.right; ++x) {
            if ((sheet.at(x, y) == color) != area.contains({x, y})) return false;
        }
    }
    return true;
}

int channel(Color color, int which) {
    return static_cast<int>(color >> 8 * which & 0xFF);
}

bool near(Color a, Color b, int most) {
    for (int i = 0; i < 3; ++i) {
        if (std::abs(channel(a, i) - channel(b, i)) > most) return false;
    }
    return true;
}

PictureHandle pictureOf(const contract::Bmp& bmp) {
    const std::string path = contract::scratchFolder() + "canvas.bmp";
    REQUIRE(writeFile(path, contract::fileOf(bmp)));
    PictureHandle picture = loadPictureFile(path);
    REQUIRE(picture);
    return picture;
}

}  // namespace

TEST_CASE("shapes cover the pixels they say, and no others") {
    Sheet sheet;
    SUBCASE("fill: without its right column and bottom row") {
        sheet.draw([](Canvas& canvas, const Rect&) { canvas.fill({10, 20, 15, 23}, kRed); });
        CHECK(isExactly(sheet, {10, 20, 15, 23}, kRed));
    }
    SUBCASE("nothing of an empty rectangle, or one the wrong way round") {
        sheet.draw([](Canvas& canvas, const Rect&) {
            for (const Rect& none : {Rect{10, 10, 10, 20}, Rect{10, 10, 20, 10}, Rect{20, 20, 10, 10}}) {
                canvas.fill(none, kRed);
                canvas.frame(none, kRed);
                canvas.gradient(none, kRed, kRed, Direction::Vertical);
                canvas.edge(none, Edge::Etched);
                canvas.focusRect(none);
            }
        });
        for (int y = 8; y < 22; ++y) {
            for (int x = 8; x < 22; ++x) CHECK(sheet.at(x, y) == kGround);
        }
    }
    SUBCASE("frame: one pixel wide, within the rectangle") {
        sheet.draw([](Canvas& canvas, const Rect&) { canvas.frame({10, 20, 18, 26}, kBlue); });
        const Rect outer{10, 20, 18, 26};
        for (int y = 18; y < 28; ++y) {
            for (int x = 8; x < 20; ++x) {
                const bool border = outer.contains({x, y}) && !outer.inset(1, 1).contains({x, y});
                CHECK((sheet.at(x, y) == kBlue) == border);
            }
        }
    }
    SUBCASE("pixel") {
        sheet.draw([](Canvas& canvas, const Rect&) { canvas.pixel({30, 40}, kGreen); });
        CHECK(isExactly(sheet, {30, 40, 31, 41}, kGreen));
    }
    SUBCASE("line: its last point is not set") {
        sheet.draw([](Canvas& canvas, const Rect&) {
            canvas.line({10, 10}, {20, 10}, kRed);
            canvas.line({10, 40}, {10, 30}, kBlue);  // upwards
            canvas.line({50, 50}, {54, 54}, kGreen);
            canvas.line({70, 70}, {70, 70}, kRed);
        });
        CHECK(isExactly(sheet, {10, 10, 20, 11}, kRed));
        CHECK(isExactly(sheet, {10, 31, 11, 41}, kBlue));
        for (int i = 0; i < 6; ++i) CHECK((sheet.at(50 + i, 50 + i) == kGreen) == (i < 4));
        CHECK(sheet.at(70, 70) == kGround);
    }
}

TEST_CASE("a gradient goes from one colour to the other, evenly, in one direction") {
    Sheet sheet;
    const Color from = rgb(250, 100, 0);
    const Color to = rgb(50, 100, 200);
    bool across = false;
    SUBCASE("from left to right") {
        across = true;
    }
    SUBCASE("from top to bottom") {
        across = false;
    }
    const auto along = [&](int step, int side) {
        return across ? sheet.at(10 + step, 10 + side) : sheet.at(10 + side, 10 + step);
    };
    const Rect area = across ? Rect{10, 10, 74, 20} : Rect{10, 10, 20, 74};
    sheet.draw([&](Canvas& canvas, const Rect&) {
        canvas.gradient(area, from, to, across ? Direction::Horizontal : Direction::Vertical);
    });
    CHECK(near(along(0, 0), from, 4));
    CHECK(near(along(32, 0), rgb(150, 100, 100), 4));
    CHECK(near(along(63, 0), to, 6));
    for (int step = 0; step < 64; ++step) {
        CHECK(along(step, 0) == along(step, 9));
        if (step > 0) CHECK(channel(along(step, 5), 0) <= channel(along(step - 1, 5), 0));
    }
    CHECK(along(-1, 0) == kGround);
    CHECK(along(64, 0) == kGround);
    CHECK(along(0, 10) == kGround);
}

TEST_CASE("edges: light comes from the top left") {
    Sheet sheet;
    sheet.draw([](Canvas& canvas, const Rect& dirty) {
        canvas.fill(dirty, kRed);
        canvas.edge({10, 10, 30, 30}, Edge::RaisedInner);
        canvas.edge({40, 10, 60, 30}, Edge::SunkenInner);
        canvas.edge({70, 10, 90, 30}, Edge::Etched);
    });
    const auto light = [&](int x, int y) { return channel(sheet.at(x, y), 1); };
    CHECK(light(10, 20) > light(29, 20));
    CHECK(light(20, 10) > light(20, 29));
    CHECK(light(40, 20) < light(59, 20));
    CHECK(light(50, 10) < light(50, 29));
    CHECK(light(70, 20) < light(71, 20));  // a groove: dark, then light
    CHECK(light(88, 20) < light(89, 20));
    for (const int x : {20, 50, 80}) CHECK(sheet.at(x, 20) == kRed);
    for (const int x : {11, 41, 72}) CHECK(sheet.at(x, 20) == kRed);
}

TEST_CASE("a clip guard keeps drawing inside, and what it kept before comes back") {
    Sheet sheet;
    sheet.draw([](Canvas& canvas, const Rect& dirty) {
        {
            const ClipGuard outer(canvas, {10, 10, 50, 50});
            {
                const ClipGuard inner(canvas, {40, 40, 80, 80});
                canvas.fill(dirty, kRed);
                CHECK(canvas.needsPaint({0, 0, 41, 41}));
                CHECK_FALSE(canvas.needsPaint({0, 0, 40, 40}));
                CHECK_FALSE(canvas.needsPaint({50, 50, 80, 80}));
            }
            canvas.fill({0, 0, 20, 20}, kGreen);
            const ClipGuard nothing(canvas, {30, 30, 20, 20});
            canvas.fill(dirty, kBlue);
        }
        canvas.fill({90, 90, 100, 100}, kBlue);
        CHECK_FALSE(canvas.needsPaint({20, 20, 20, 30}));
    });
    CHECK(isExactly(sheet, {40, 40, 50, 50}, kRed));
    CHECK(isExactly(sheet, {10, 10, 20, 20}, kGreen));
    CHECK(isExactly(sheet, {90, 90, 100, 100}, kBlue));
    CHECK(sheet.at(25, 25) == kGround);
}

TEST_CASE("only what is invalid is painted, whatever is drawn") {
    Sheet sheet;
    sheet.draw([](Canvas& canvas, const Rect& dirty) { canvas.fill(dirty, kGreen); });
    Rect told;
    bool needed = false;
    bool needless = true;
    sheet.drawPart({20, 30, 60, 50}, [&](Canvas& canvas, const Rect& dirty) {
        told = dirty;
        needed = canvas.needsPaint({0, 0, 21, 31});
        needless = canvas.needsPaint({0, 0, 200, 30});
        canvas.fill({0, 0, 200, 100}, kRed);
        canvas.line({0, 80}, {200, 80}, kBlue);
        canvas.pixel({5, 5}, kBlue);
    });
    CHECK(told == Rect{20, 30, 60, 50});
    CHECK(needed);
    CHECK_FALSE(needless);
    CHECK(isExactly(sheet, {20, 30, 60, 50}, kRed));
    CHECK(sheet.at(5, 5) == kGreen);
    CHECK(sheet.at(100, 80) == kGreen);
}

TEST_CASE("pictures: copied, blended, masked and disabled") {
    Sheet sheet;
    // 4 x 2: red, green, blue, magenta; black, white, grey, magenta.
    const PictureHandle plain =
        pictureOf({{4, 2}, {0xFF0000, 0x00FF00, 0x0000FF, 0xFF00FF, 0x000000, 0xFFFFFF, 0x808080, 0xFF00FF}, 24});
    const Color mask = rgb(255, 0, 255);
    SUBCASE("a picture without alpha is copied, mask colour and all") {
        sheet.draw([&](Canvas& canvas, const Rect&) { canvas.picture({10, 10}, plain, {0, 0, 4, 2}); });
        CHECK(sheet.at(10, 10) == kRed);
        CHECK(sheet.at(11, 10) == kGreen);
        CHECK(sheet.at(12, 10) == kBlue);
        CHECK(sheet.at(13, 10) == mask);
        CHECK(sheet.at(10, 11) == rgb(0, 0, 0));
        CHECK(sheet.at(12, 11) == rgb(128, 128, 128));
        CHECK(sheet.at(14, 10) == kGround);
        CHECK(sheet.at(10, 12) == kGround);
    }
    SUBCASE("a part, and what of a part exists") {
        sheet.draw([&](Canvas& canvas, const Rect&) {
            canvas.picture({10, 10}, plain, {1, 1, 3, 2});
            canvas.picture({30, 10}, plain, {2, 0, 10, 10});
            canvas.maskedPicture({50, 10}, plain, {-2, -1, 2, 1}, mask);
            canvas.picture({70, 10}, plain, {8, 8, 12, 12});
            canvas.picture({90, 10}, {}, {0, 0, 4, 2});
        });
        CHECK(sheet.at(10, 10) == rgb(255, 255, 255));
        CHECK(sheet.at(11, 10) == rgb(128, 128, 128));
        CHECK(sheet.at(12, 10) == kGround);
        CHECK(sheet.at(30, 10) == kBlue);
        CHECK(sheet.at(31, 11) == mask);
        CHECK(sheet.at(32, 10) == kGround);
        CHECK(sheet.at(52, 11) == kRed);  // stays where it belongs
        CHECK(sheet.at(53, 11) == kGreen);
        for (const int x : {50, 70, 90}) CHECK(sheet.at(x, 10) == kGround);
    }
    SUBCASE("masked: the pixels of the mask colour are left out") {
        sheet.draw([&](Canvas& canvas, const Rect&) {
            canvas.fill({8, 8, 20, 20}, kGreen);
            canvas.maskedPicture({10, 10}, plain, {0, 0, 4, 2}, mask);
        });
        CHECK(sheet.at(10, 10) == kRed);
        CHECK(sheet.at(12, 10) == kBlue);
        CHECK(sheet.at(10, 11) == rgb(0, 0, 0));
        CHECK(sheet.at(13, 10) == kGreen);
        CHECK(sheet.at(13, 11) == kGreen);
    }
    SUBCASE("disabled: the same shape in grey") {
        sheet.draw([&](Canvas& canvas, const Rect&) {
            canvas.fill({8, 8, 20, 20}, kGreen);
            canvas.disabledPicture({10, 10}, plain, {0, 0, 4, 2}, mask);
        });
        for (const Point at : {Point{10, 10}, Point{12, 10}, Point{10, 11}}) {
            const Color grey = sheet.at(at.x, at.y);
            CHECK(grey != kGreen);
            CHECK(grey != rgb(0, 0, 0));
            CHECK(std::abs(channel(grey, 0) - channel(grey, 2)) < 40);  // the ground may have a tinge
            CHECK(std::abs(channel(grey, 0) - channel(grey, 1)) < 40);
        }
        CHECK(sheet.at(13, 10) == kGreen);
    }
    SUBCASE("alpha: premultiplied, blended over what is there") {
        const PictureHandle alpha = pictureOf({{4, 1}, {0xFFFF0000, 0x80800000, 0x00000000, 0x80000000}});
        sheet.draw([&](Canvas& canvas, const Rect&) {
            canvas.fill({8, 8, 20, 20}, kBlue);
            canvas.picture({10, 10}, alpha, {0, 0, 4, 1});
        });
        CHECK(sheet.at(10, 10) == kRed);
        CHECK(near(sheet.at(11, 10), rgb(128, 0, 127), 2));
        CHECK(sheet.at(12, 10) == kBlue);
        CHECK(near(sheet.at(13, 10), rgb(0, 0, 127), 2));
    }
}

TEST_CASE("text has a size") {
    contract::freshMachine();
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
