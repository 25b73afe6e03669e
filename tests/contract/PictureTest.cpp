#include "platform/Picture.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "contract/Machine.h"
#include "platform/Canvas.h"
#include "platform/Files.h"
#include "platform/Machine.h"

using namespace platform;

namespace {

using Pixels = std::vector<std::uint32_t>;

struct Pictures : contract::Fresh {
    static IconHandle programIcon(int size) { return extractIcon(windowsDirectory() + "\\notepad.exe", size); }
};

}  // namespace

TEST_CASE_FIXTURE(Pictures, "a picture keeps its pixels, with their alpha channel if there is one") {
    // Every corner different, so that neither rows nor columns nor colours can be swapped.
    for (const Pixels& pixels : {Pixels{0xFFFF0000, 0xFF00FF00, 0x80400020, 0x00000000, 0xFF0000FF, 0x01010001},
                                 Pixels{0xFF0000, 0x00FF00, 0x0000FF, 0x010203, 0xFFFFFF, 0x000000}}) {
        const PictureHandle picture = pictureFromPixels({3, 2}, pixels);
        CHECK(pictureSize(picture) == Size{3, 2});
        CHECK(picturePixels(picture) == pixels);
        for (const Size size : {Size{2, 2}, Size{4, 2}, Size{0, 0}, Size{-3, -2}}) {
            CHECK_FALSE(pictureFromPixels(size, pixels));
        }
    }
    // A premultiplied colour is never above its alpha.
    CHECK(picturePixels(pictureFromPixels({2, 1}, Pixels{0x80FF7F90, 0x00010203})) == Pixels{0x80807F80, 0});
    CHECK_FALSE(pictureFromPixels({0, 0}, {}));
    CHECK(picturePixels({}).empty());
    CHECK(pictureSize({}) == Size{});
}

TEST_CASE_FIXTURE(Pictures, "the icon of a program becomes a picture with alpha") {
    for (const int size : {16, 32}) {
        CAPTURE(size);
        const IconHandle icon = programIcon(size);
        REQUIRE(icon);
        const PictureHandle picture = pictureFromIcon(icon.raw(), size);
        CHECK(pictureSize(picture) == Size{size, size});
        const Pixels pixels = picturePixels(picture);
        const auto some = [&pixels](const auto& isIt) { return std::any_of(pixels.begin(), pixels.end(), isIt); };
        CHECK(some([](std::uint32_t pixel) { return pixel == 0; }));
        CHECK(some([](std::uint32_t pixel) { return pixel >> 24 == 255 && pixel != 0xFF000000U; }));
        CHECK_FALSE(some([](std::uint32_t pixel) { return pixel >> 24 == 0 && pixel != 0; }));
    }
    REQUIRE(writeNewFile(scratch + "text.txt", "no icon in here"));
    for (const std::string& path : {scratch + "none.exe", scratch + "text.txt", std::string()}) {
        CHECK_FALSE(extractIcon(path, 32));
    }
    CHECK_FALSE(pictureFromIcon(0, 16));
    CHECK_FALSE(loadPictureResource(0));
    CHECK_FALSE(loadIconResource(0, 16));
}

TEST_CASE_FIXTURE(Pictures, "a picture becomes an icon that is see-through where it has a certain colour") {
    // One that reads the same from both ends, and one that does not; in another size, and at both limits.
    for (const std::uint32_t transparent : {0x00FF00FFU, 0x00112233U, 0x00FFFFFFU, 0x00000000U}) {
        CAPTURE(transparent);
        const Color asColor = rgb(transparent >> 16 & 0xFF, transparent >> 8 & 0xFF, transparent & 0xFF);
        const int side = transparent == 0x00FF00FFU ? 32 : 16;
        Pixels pixels(static_cast<std::size_t>(side * side), transparent);
        Pixels expected(pixels.size(), 0);
        // Black and white are colours like any other, and so is one that is almost the transparent one.
        std::size_t at = 1;
        for (const std::uint32_t shown :
             {0x000000U, 0xFFFFFFU, 0xFF0000U, 0x00FF00U, 0x0000FFU, 0x010203U, transparent ^ 1U}) {
            if (shown == transparent) continue;
            pixels[at] = shown;
            expected[at] = shown | 0xFF000000U;
            at += 2;
        }
        for (const int bits : {24, 32}) {  // a picture with an alpha channel is taken for its colours
            if (bits == 32) std::for_each(pixels.begin(), pixels.end(), [](std::uint32_t& p) { p |= 0xFF000000U; });
            const IconHandle icon = iconFromPicture(pictureFromPixels({side, side}, pixels), asColor);
            CHECK(picturePixels(pictureFromIcon(icon.raw(), side)) == expected);
        }
    }
    CHECK_FALSE(iconFromPicture({}, 0));
}

TEST_CASE_FIXTURE(Pictures, "a colour is replaced where it is exactly that") {
    PictureHandle picture =
        pictureFromPixels({3, 2}, Pixels{0x102030, 0x102031, 0x302010, 0x102030, 0x000000, 0xFFFFFF});
    replaceColor(picture, rgb(0x10, 0x20, 0x30), rgb(0xFF, 0xFF, 0xFF));
    replaceColor(picture, rgb(0xFF, 0xFF, 0xFF), rgb(1, 2, 3));
    CHECK(picturePixels(picture) == Pixels{0x010203, 0x102031, 0x302010, 0x010203, 0x000000, 0x010203});
}

TEST_CASE_FIXTURE(Pictures, "a picture is drawn in memory, without an alpha channel") {
    const PictureHandle picture = drawPicture({4, 3}, rgb(1, 2, 3), [](Canvas& canvas) {
        CHECK(canvas.needsPaint({3, 2, 4, 3}));
        canvas.fill({1, 0, 3, 2}, rgb(255, 0, 0));
        canvas.line({0, 2}, {3, 2}, rgb(0, 0, 255));
        canvas.pixel({2, 1}, rgb(0, 0, 0));
        canvas.fill({3, 0, 100, 1}, rgb(0, 255, 0));
    });
    REQUIRE(picture);
    CHECK(picturePixels(picture) == Pixels{0x010203, 0xFF0000, 0xFF0000, 0x00FF00,  //
                                           0x010203, 0xFF0000, 0x000000, 0x010203,  //
                                           0x0000FF, 0x0000FF, 0x0000FF, 0x010203});
    CHECK(picturePixels(drawPicture({1, 1}, rgb(9, 8, 7), {})) == Pixels{0x090807});
    CHECK_FALSE(drawPicture({0, 5}, 0, {}));

    // What draws itself by an alpha channel of its own leaves none behind.
    const IconHandle icon = programIcon(16);
    const PictureHandle shown = drawPicture({16, 16}, rgb(255, 255, 255), [&](Canvas& canvas) {
        canvas.icon({0, 0}, icon.raw(), 16);
    });
    const Pixels pixels = picturePixels(shown);
    CHECK(std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return p >> 24 == 0; }));
}
