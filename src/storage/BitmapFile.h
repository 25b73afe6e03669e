// BMP files, the format in which icons are kept. Anybody may have written one: whatever is wrong with it, it is
// refused.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace storage {

struct Bitmap {
    platform::Size size;                // 1 x 1 to 256 x 256
    int bitsPerPixel = 32;              // in the file: 24 or 32
    std::vector<std::uint32_t> pixels;  // 0xAARRGGBB, rows from the top; alpha 0 in those of 24 bits
};

// The bytes of the largest file that can be one.
inline constexpr std::size_t kMostBitmapBytes = 300'000;

// nullopt when this is no uncompressed picture of 24 or 32 bits a pixel whose rows are all there.
std::optional<Bitmap> DecodeBitmap(std::string_view content);
// A file of 32 bits a pixel with these pixels, of which there are width x height.
std::string EncodeBitmap(platform::Size size, std::span<const std::uint32_t> pixels);

}  // namespace storage
