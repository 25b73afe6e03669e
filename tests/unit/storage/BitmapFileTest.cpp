#include "storage/BitmapFile.h"

#include <doctest/doctest.h>

using platform::Size;
using Pixels = std::vector<std::uint32_t>;

namespace {

std::string BytesOf(std::uint32_t value, int count) {
    std::string bytes;
    for (; count > 0; --count, value >>= 8) bytes.push_back(static_cast<char>(value & 0xFF));
    return bytes;
}

// The file of a picture of two rows: from the top in it, or from the bottom.
std::string FileOf(int width, int bits, bool fromTop, const std::string& rows) {
    return "BM" + BytesOf(0, 8) + BytesOf(54, 4) + BytesOf(40, 4) + BytesOf(static_cast<std::uint32_t>(width), 4) +
           BytesOf(fromTop ? 0xFFFFFFFE : 2, 4) + BytesOf(1, 2) + BytesOf(static_cast<std::uint32_t>(bits), 2) +
           BytesOf(0, 24) + rows;
}

}  // namespace

TEST_CASE("a bitmap comes back as it was written, and others are read whatever the order of their rows") {
    const Pixels pixels{0xFFFF0000, 0xFF00FF00, 0x80400020, 0x00000000, 0xFF0000FF, 0x01010001};
    const std::string file = storage::EncodeBitmap({3, 2}, pixels);
    const auto back = storage::DecodeBitmap(file);
    REQUIRE(back);
    CHECK(back->size == Size{3, 2});
    CHECK(back->bitsPerPixel == 32);
    CHECK(back->pixels == pixels);

    const std::string upper{"\1\2\3\4\5\6\0\0", 8};  // blue first, padded
    const std::string lower{"\7\10\11\12\13\14\0\0", 8};
    for (const bool fromTop : {false, true}) {
        const auto read = storage::DecodeBitmap(FileOf(2, 24, fromTop, fromTop ? upper + lower : lower + upper));
        REQUIRE(read);
        CHECK(read->bitsPerPixel == 24);
        CHECK(read->pixels == Pixels{0x030201, 0x060504, 0x090807, 0x0C0B0A});
    }
    const Size most{256, 256};
    const std::string largest = storage::EncodeBitmap(most, Pixels(256 * 256, 7));
    CHECK(largest.size() <= storage::kMostBitmapBytes);
    CHECK(storage::DecodeBitmap(largest)->size == most);
    for (const Size size : {Size{257, 1}, Size{1, 257}}) {
        CHECK_FALSE(storage::DecodeBitmap(storage::EncodeBitmap(size, Pixels(257, 7))));
    }
}

TEST_CASE("damaged bitmaps are refused") {
    const std::string good = storage::EncodeBitmap({2, 2}, Pixels{1, 2, 3, 4});
    REQUIRE(storage::DecodeBitmap(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        CAPTURE(length);
        CHECK_FALSE(storage::DecodeBitmap(good.substr(0, length)));
    }
    const struct {
        const char* what;
        std::size_t at;
        std::string bytes;
    } damages[] = {
        {"signature", 0, "PK"},
        {"rows inside the headers", 10, BytesOf(20, 4)},
        {"rows beyond the end", 10, BytesOf(55, 4)},
        {"rows far beyond the end", 10, BytesOf(0xFFFFFFF0, 4)},
        {"header too short", 14, BytesOf(12, 4)},
        {"no columns", 18, BytesOf(0, 4)},
        {"columns below zero", 18, BytesOf(0xFFFFFFFE, 4)},
        {"too many columns", 18, BytesOf(0x7FFFFFFF, 4)},
        {"no rows", 22, BytesOf(0, 4)},
        {"as many rows below zero as there can be", 22, BytesOf(0x80000000, 4)},
        {"more rows than there are", 22, BytesOf(3, 4)},
        {"no planes", 26, BytesOf(0, 2)},
        {"8 bits a pixel", 28, BytesOf(8, 2)},
        {"compressed", 30, BytesOf(1, 4)},
    };
    for (const auto& damage : damages) {
        CAPTURE(damage.what);
        CHECK_FALSE(storage::DecodeBitmap(std::string(good).replace(damage.at, damage.bytes.size(), damage.bytes)));
    }
}
