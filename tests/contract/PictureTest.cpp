#include "platform/Picture.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "contract/Bmp.h"
#include "contract/Machine.h"
#include "platform/Canvas.h"
#include "platform/Files.h"
#include "platform/Machine.h"

using contract::Bmp;
using contract::fileOf;
using namespace platform;

namespace {

using Pixels = std::vector<std::uint32_t>;

struct Pictures : contract::Fresh {
    PictureHandle load(const std::string& content) const {
        deleteFile(scratch + "picture.bmp");
        REQUIRE(writeNewFile(scratch + "picture.bmp", content));
        return loadPictureFile(scratch + "picture.bmp");
    }
    Pixels savedPixels(const PictureHandle& picture) const {
        REQUIRE(savePictureFile(scratch + "saved.bmp", picture));
        return contract::pixelsOf(readFile(scratch + "saved.bmp").value_or(""), pictureSize(picture));
    }
    static IconHandle programIcon(int size) { return extractIcon(windowsDirectory() + "\\notepad.exe", size); }
};

}  // namespace

TEST_CASE_FIXTURE(Pictures, "a picture survives being written and read, of 32 bits with its alpha channel") {
    // Every corner different, so that neither rows nor columns nor colours can be swapped.
    const Pixels pixels{0xFFFF0000, 0xFF00FF00, 0x80400020, 0x00000000, 0xFF0000FF, 0x01010001};
    const Pixels solid{0xFF0000, 0x00FF00, 0x0000FF, 0x010203, 0xFFFFFF, 0x000000};  // rows are padded
    for (const Bmp& bmp : {Bmp{{3, 2}, pixels, 32, false}, Bmp{{3, 2}, pixels, 32, true}, Bmp{{3, 2}, solid, 24}}) {
        CAPTURE(bmp.bits);
        CAPTURE(bmp.topDown);
        const PictureHandle picture = load(fileOf(bmp));
        CHECK(pictureSize(picture) == Size{3, 2});
        CHECK(savedPixels(picture) == bmp.pixels);
        CHECK(savedPixels(loadPictureFile(scratch + "saved.bmp")) == bmp.pixels);
    }
}

TEST_CASE_FIXTURE(Pictures, "pictures have up to 256 x 256 pixels") {
    for (const Size size : {Size{256, 256}, Size{1, 1}, Size{257, 1}, Size{1, 257}}) {
        CAPTURE(size.width);
        const Pixels pixels(static_cast<std::size_t>(size.width * size.height), 0x123456);
        const bool fits = size.width <= 256 && size.height <= 256;
        CHECK(pictureSize(load(fileOf({size, pixels}))) == (fits ? size : Size{}));
    }
}

TEST_CASE_FIXTURE(Pictures, "a file that is missing or damaged gives nothing") {
    CHECK_FALSE(loadPictureFile(scratch + "none.bmp"));
    CHECK_FALSE(loadPictureFile(scratch));
    CHECK_FALSE(loadPictureFile(""));

    const std::string good = fileOf({{2, 2}, {1, 2, 3, 4}});
    REQUIRE(load(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        CAPTURE(length);
        CHECK_FALSE(load(good.substr(0, length)));
    }
    const struct {
        const char* what;
        std::size_t at;
        std::string bytes;
    } damages[] = {
        {"signature", 0, "PK"},
        {"rows inside the headers", 10, contract::bytesOf(20, 4)},
        {"rows beyond the end", 10, contract::bytesOf(55, 4)},
        {"rows far beyond the end", 10, contract::bytesOf(0xFFFFFFF0, 4)},
        {"header too short", 14, contract::bytesOf(12, 4)},
        {"no columns", 18, contract::bytesOf(0, 4)},
        {"columns below zero", 18, contract::bytesOf(0xFFFFFFFE, 4)},
        {"too many columns", 18, contract::bytesOf(0x7FFFFFFF, 4)},
        {"no rows", 22, contract::bytesOf(0, 4)},
        {"as many rows below zero as there can be", 22, contract::bytesOf(0x80000000, 4)},
        {"more rows than there are", 22, contract::bytesOf(3, 4)},
        {"8 bits a pixel", 28, contract::bytesOf(8, 2)},
        {"compressed", 30, contract::bytesOf(1, 4)},
    };
    for (const auto& damage : damages) {
        CAPTURE(damage.what);
        CHECK_FALSE(load(std::string(good).replace(damage.at, damage.bytes.size(), damage.bytes)));
    }
}

TEST_CASE_FIXTURE(Pictures, "saving what is no picture, or where nothing can be written, fails") {
    CHECK_FALSE(savePictureFile(scratch + "empty.bmp", {}));
    CHECK_FALSE(fileExists(scratch + "empty.bmp"));
    const PictureHandle picture = load(fileOf({{1, 1}, {0xFF0000}}));
    CHECK_FALSE(savePictureFile(scratch + "no such folder\\a.bmp", picture));
    CHECK_FALSE(savePictureFile(contract::sealedFile(), picture));
    CHECK(pictureSize({}) == Size{});
}

TEST_CASE_FIXTURE(Pictures, "the icon of a program becomes a picture with alpha") {
    for (const int size : {16, 32}) {
        CAPTURE(size);
        const IconHandle icon = programIcon(size);
        REQUIRE(icon);
        const PictureHandle picture = pictureFromIcon(icon.raw(), size);
        CHECK(pictureSize(picture) == Size{size, size});
        const Pixels pixels = savedPixels(picture);
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
            const IconHandle icon = iconFromPicture(load(fileOf({{side, side}, pixels, bits})), asColor);
            CHECK(savedPixels(pictureFromIcon(icon.raw(), side)) == expected);
        }
    }
    CHECK_FALSE(iconFromPicture({}, 0));
}

TEST_CASE_FIXTURE(Pictures, "a colour is replaced where it is exactly that") {
    PictureHandle picture =
        load(fileOf({{3, 2}, {0x102030, 0x102031, 0x302010, 0x102030, 0x000000, 0xFFFFFF}, 24}));
    replaceColor(picture, rgb(0x10, 0x20, 0x30), rgb(0xFF, 0xFF, 0xFF));
    replaceColor(picture, rgb(0xFF, 0xFF, 0xFF), rgb(1, 2, 3));
    CHECK(savedPixels(picture) == Pixels{0x010203, 0x102031, 0x302010, 0x010203, 0x000000, 0x010203});
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
    CHECK(savedPixels(picture) == Pixels{0x010203, 0xFF0000, 0xFF0000, 0x00FF00,  //
                                         0x010203, 0xFF0000, 0x000000, 0x010203,  //
                                         0x0000FF, 0x0000FF, 0x0000FF, 0x010203});
    CHECK(savedPixels(drawPicture({1, 1}, rgb(9, 8, 7), {})) == Pixels{0x090807});
    CHECK_FALSE(drawPicture({0, 5}, 0, {}));

    // What draws itself by an alpha channel of its own leaves none behind.
    const IconHandle icon = programIcon(16);
    const PictureHandle shown = drawPicture({16, 16}, rgb(255, 255, 255), [&](Canvas& canvas) {
        canvas.icon({0, 0}, icon.raw(), 16);
    });
    const Pixels pixels = savedPixels(shown);
    CHECK(std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return p >> 24 == 0; }));
}
