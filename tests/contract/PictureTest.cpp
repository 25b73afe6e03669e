#include "platform/Picture.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "contract/Bmp.h"
#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Canvas.h"
#include "platform/Files.h"

using contract::Bmp;
using contract::fileOf;
using namespace platform;

namespace {

std::string pathOf(const std::string& name) {
    return contract::scratchFolder() + name;
}

PictureHandle load(const std::string& content) {
    REQUIRE(writeFile(pathOf("picture.bmp"), content));
    return loadPictureFile(pathOf("picture.bmp"));
}

std::vector<std::uint32_t> savedPixels(const PictureHandle& picture) {
    REQUIRE(savePictureFile(pathOf("saved.bmp"), picture));
    const std::optional<std::string> file = readFile(pathOf("saved.bmp"));
    REQUIRE(file);
    return contract::pixelsOf(*file, pictureSize(picture));
}

std::vector<std::uint32_t> iconPixels(const IconHandle& icon, int size) {
    REQUIRE(icon);
    return savedPixels(pictureFromIcon(icon.raw(), size));
}

// A file that is right but for one number in its headers.
std::string changed(std::string file, std::size_t at, const std::string& bytes) {
    return file.replace(at, bytes.size(), bytes);
}

}  // namespace

TEST_CASE("a picture survives being written and read, its alpha channel included") {
    contract::freshMachine();
    // Every corner different, so that neither rows nor columns nor colours can be swapped.
    const std::vector<std::uint32_t> pixels{0xFFFF0000, 0xFF00FF00, 0x80400020, 0x00000000, 0xFF0000FF, 0x01010001};
    for (const bool topDown : {false, true}) {
        CAPTURE(topDown);
        const PictureHandle picture = load(fileOf({{3, 2}, pixels, 32, topDown}));
        REQUIRE(picture);
        CHECK(pictureSize(picture) == Size{3, 2});
        CHECK(savedPixels(picture) == pixels);
        const PictureHandle again = loadPictureFile(pathOf("saved.bmp"));
        CHECK(savedPixels(again) == pixels);
    }
}

TEST_CASE("a picture of 24 bits has no alpha channel; rows are padded") {
    contract::freshMachine();
    const std::vector<std::uint32_t> pixels{0xFF0000, 0x00FF00, 0x0000FF, 0x010203, 0xFFFFFF, 0x000000};
    const PictureHandle picture = load(fileOf({{3, 2}, pixels, 24}));
    REQUIRE(picture);
    CHECK(savedPixels(picture) == pixels);
}

TEST_CASE("pictures have up to 256 x 256 pixels") {
    contract::freshMachine();
    const auto square = [](int width, int height) {
        const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        return fileOf({{width, height}, std::vector<std::uint32_t>(count, 0x123456)});
    };
    CHECK(pictureSize(load(square(256, 256))) == Size{256, 256});
    CHECK(pictureSize(load(square(1, 1))) == Size{1, 1});
    CHECK_FALSE(load(square(257, 1)));
    CHECK_FALSE(load(square(1, 257)));
}

TEST_CASE("a file that is missing or damaged gives nothing") {
    contract::freshMachine();
    CHECK_FALSE(loadPictureFile(pathOf("none.bmp")));
    CHECK_FALSE(loadPictureFile(contract::scratchFolder()));
    CHECK_FALSE(loadPictureFile(""));

    const std::string good = fileOf({{2, 2}, {1, 2, 3, 4}});
    REQUIRE(load(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        CAPTURE(length);
        CHECK_FALSE(load(good.substr(0, length)));
    }
    struct Damage {
        const char* what;
        std::size_t at;
        std::string bytes;
    };
    const Damage damages[] = {
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
        {"no bits a pixel", 28, contract::bytesOf(0, 2)},
        {"compressed", 30, contract::bytesOf(1, 4)},
    };
    for (const Damage& damage : damages) {
        CAPTURE(damage.what);
        CHECK_FALSE(load(changed(good, damage.at, damage.bytes)));
    }
}

TEST_CASE("saving what is no picture, or where nothing can be written, fails") {
    contract::freshMachine();
    CHECK_FALSE(savePictureFile(pathOf("empty.bmp"), {}));
    CHECK_FALSE(fileExists(pathOf("empty.bmp")));
    const PictureHandle picture = load(fileOf({{1, 1}, {0xFF0000}}));
    CHECK_FALSE(savePictureFile(pathOf("no such folder\\a.bmp"), picture));
    CHECK_FALSE(savePictureFile(contract::sealedFile(), picture));
    CHECK(pictureSize({}) == Size{});
}

TEST_CASE("the icon of a program becomes a picture with alpha") {
    contract::freshMachine();
    for (const int size : {16, 32}) {
        CAPTURE(size);
        const IconHandle icon = extractIcon(contract::programWithIcon(), size);
        REQUIRE(icon);
        const PictureHandle picture = pictureFromIcon(icon.raw(), size);
        REQUIRE(picture);
        CHECK(pictureSize(picture) == Size{size, size});
        const std::vector<std::uint32_t> pixels = savedPixels(picture);
        const auto alphaIs = [](std::uint32_t alpha) {
            return [alpha](std::uint32_t pixel) { return pixel >> 24 == alpha; };
        };
        CHECK(std::any_of(pixels.begin(), pixels.end(), alphaIs(0)));
        CHECK(std::any_of(pixels.begin(), pixels.end(), alphaIs(255)));
        CHECK(std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return (p & 0xFFFFFF) != 0; }));
        CHECK(std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return p >> 24 != 0 || p == 0; }));
    }
    CHECK_FALSE(extractIcon(pathOf("none.exe"), 16));
    REQUIRE(writeFile(pathOf("text.txt"), "no icon in here"));
    CHECK_FALSE(extractIcon(pathOf("text.txt"), 32));
    CHECK_FALSE(extractIcon("", 16));
    CHECK_FALSE(pictureFromIcon(0, 16));
    CHECK_FALSE(loadPictureResource(0));
    CHECK_FALSE(loadIconResource(0, 16));
}

TEST_CASE("a picture becomes an icon that is see-through where it has a certain colour") {
    contract::freshMachine();
    const std::uint32_t see = 0x00FF00FF;  // one that reads the same from both ends, and one that does not
    for (const std::uint32_t transparent : {see, 0x00FFFFFFU, 0x00112233U, 0x00000000U}) {
        CAPTURE(transparent);
        const std::uint32_t asColor =
            (transparent & 0xFF) << 16 | (transparent & 0xFF00) | (transparent & 0xFF0000) >> 16;
        const int side = transparent == see ? 32 : 16;
        // Black and white are colours like any other, and so is one that is almost the transparent one.
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(side * side), transparent);
        const std::uint32_t shown[] = {0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0x010203, transparent ^ 1};
        for (std::size_t i = 0; i < std::size(shown); ++i)
            pixels[i * 2 + static_cast<std::size_t>(side)] = shown[i];
        std::vector<std::uint32_t> expected;
        for (const std::uint32_t pixel : pixels) {
            expected.push_back(pixel == transparent ? 0 : pixel | 0xFF000000U);
        }
        CHECK(iconPixels(iconFromPicture(load(fileOf({{side, side}, pixels, 24})), asColor), side) == expected);
        // A picture with an alpha channel is taken for its colours.
        for (std::uint32_t& pixel : pixels) pixel |= 0xFF000000U;
        CHECK(iconPixels(iconFromPicture(load(fileOf({{side, side}, pixels, 32})), asColor), side) == expected);
    }
    CHECK_FALSE(iconFromPicture({}, 0));
}

TEST_CASE("a colour is replaced where it is exactly that") {
    contract::freshMachine();
    PictureHandle picture =
        load(fileOf({{3, 2}, {0x102030, 0x102031, 0x302010, 0x102030, 0x000000, 0xFFFFFF}, 24}));
    replaceColor(picture, rgb(0x10, 0x20, 0x30), rgb(0xFF, 0xFF, 0xFF));
    replaceColor(picture, rgb(0xFF, 0xFF, 0xFF), rgb(1, 2, 3));
    CHECK(savedPixels(picture) ==
          std::vector<std::uint32_t>{0x010203, 0x102031, 0x302010, 0x010203, 0x000000, 0x010203});
    PictureHandle none;
    replaceColor(none, 0, 1);
    CHECK_FALSE(none);
}

TEST_CASE("a picture is drawn in memory, without an alpha channel") {
    contract::freshMachine();
    const PictureHandle picture = drawPicture({4, 3}, rgb(1, 2, 3), [](Canvas& canvas) {
        CHECK(canvas.needsPaint({3, 2, 4, 3}));
        canvas.fill({1, 0, 3, 2}, rgb(255, 0, 0));
        canvas.line({0, 2}, {3, 2}, rgb(0, 0, 255));
        canvas.pixel({2, 1}, rgb(0, 0, 0));
        canvas.fill({3, 0, 100, 1}, rgb(0, 255, 0));
    });
    REQUIRE(picture);
    CHECK(savedPixels(picture) == std::vector<std::uint32_t>{0x010203, 0xFF0000, 0xFF0000, 0x00FF00,  //
                                                             0x010203, 0xFF0000, 0x000000, 0x010203,  //
                                                             0x0000FF, 0x0000FF, 0x0000FF, 0x010203});
    CHECK(savedPixels(drawPicture({1, 1}, rgb(9, 8, 7), {})) == std::vector<std::uint32_t>{0x090807});
    CHECK_FALSE(drawPicture({0, 5}, 0, {}));

    // What draws itself by an alpha channel of its own leaves none behind.
    const IconHandle icon = extractIcon(contract::programWithIcon(), 16);
    const PictureHandle shown = drawPicture({16, 16}, rgb(255, 255, 255), [&](Canvas& canvas) {
        canvas.icon({0, 0}, icon.raw(), 16);
    });
    const std::vector<std::uint32_t> pixels = savedPixels(shown);
    CHECK(std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t p) { return p >> 24 == 0; }));
}
