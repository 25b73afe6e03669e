// BMP files made by tests, and looked into.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "platform/Geometry.h"

namespace contract {

// A file of 24 or 32 bits a pixel. `pixels` are 0xAARRGGBB, rows from top to bottom.
struct Bmp {
    platform::Size size;
    std::vector<std::uint32_t> pixels;
    int bits = 32;
    bool topDown = false;
};

inline std::string bytesOf(std::uint64_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i, value >>= 8) bytes.push_back(static_cast<char>(value & 0xFF));
    return bytes;
}

inline std::string fileOf(const Bmp& bmp) {
    const int height = bmp.size.height;
    std::string rows;
    for (int y = 0; y < height; ++y) {
        const int row = bmp.topDown ? y : height - 1 - y;
        for (int x = 0; x < bmp.size.width; ++x) {
            rows += bytesOf(bmp.pixels[static_cast<std::size_t>(row * bmp.size.width + x)], bmp.bits / 8);
        }
        while (rows.size() % 4 != 0) rows.push_back('\0');
    }
    std::string file = "BM" + bytesOf(static_cast<std::uint32_t>(54 + rows.size()), 4) + bytesOf(0, 4);
    file += bytesOf(54, 4) + bytesOf(40, 4) + bytesOf(static_cast<std::uint32_t>(bmp.size.width), 4);
    file += bytesOf(static_cast<std::uint32_t>(bmp.topDown ? -height : height), 4) + bytesOf(1, 2);
    file += bytesOf(static_cast<std::uint32_t>(bmp.bits), 2) + bytesOf(0, 24);
    return file + rows;
}

// The pixels of a file as savePictureFile writes it: 32 bits, rows from bottom to top. None when it has another
// size.
inline std::vector<std::uint32_t> pixelsOf(const std::string& file, platform::Size size) {
    const auto width = static_cast<std::size_t>(size.width);
    std::vector<std::uint32_t> pixels(width * static_cast<std::size_t>(size.height));
    if (file.size() != 54 + 4 * pixels.size()) return {};
    for (std::size_t row = 0; row < pixels.size(); row += width) {
        std::memcpy(&pixels[row], &file[54 + 4 * (pixels.size() - width - row)], 4 * width);
    }
    return pixels;
}

}  // namespace contract
