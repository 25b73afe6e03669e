#include "storage/BitmapFile.h"

#include <cstdlib>

namespace storage {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kHeaders = kFileHeader + kInfoHeader;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::int32_t kLongestSide = 256;  // pixels

// Where the fields are that matter, in bytes from the start.
namespace at {
constexpr std::size_t kRows = 10, kInfoSize = 14, kWidth = 18, kHeight = 22, kPlanes = 26, kBits = 28,
                      kCompression = 30;
}

// Numbers are stored with their lowest byte first.
std::uint32_t Take(std::string_view content, std::size_t where, std::size_t bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes; i-- > 0;) value = value << 8 | static_cast<unsigned char>(content[where + i]);
    return value;
}

void Append(std::string& content, std::size_t value, int bytes) {
    for (; bytes > 0; --bytes, value >>= 8) content.push_back(static_cast<char>(value & 0xFF));
}

// Rows are padded to whole groups of four bytes.
std::size_t BytesOfRow(int width, std::size_t bytesPerPixel) {
    return (static_cast<std::size_t>(width) * bytesPerPixel + 3) / 4 * 4;
}

}  // namespace

std::optional<Bitmap> DecodeBitmap(std::string_view content) {
    if (content.size() < kHeaders || !content.starts_with("BM")) return std::nullopt;
    const auto width = static_cast<std::int32_t>(Take(content, at::kWidth, 4));
    const auto height = static_cast<std::int32_t>(Take(content, at::kHeight, 4));  // below 0: rows from the top
    const std::uint32_t bits = Take(content, at::kBits, 2);
    const bool known = Take(content, at::kInfoSize, 4) >= kInfoHeader && Take(content, at::kPlanes, 2) == 1 &&
                       Take(content, at::kCompression, 4) == kUncompressed && (bits == 24 || bits == 32);
    const bool fits =
        width > 0 && width <= kLongestSide && height != 0 && height >= -kLongestSide && height <= kLongestSide;
    if (!known || !fits) return std::nullopt;

    Bitmap bitmap{{width, std::abs(height)}, static_cast<int>(bits), {}};
    const std::size_t bytesPerPixel = bits / 8;
    const std::size_t stride = BytesOfRow(width, bytesPerPixel);
    const auto rows = static_cast<std::size_t>(bitmap.size.height);
    const std::size_t start = Take(content, at::kRows, 4);
    if (start < kHeaders || start > content.size() || content.size() - start < stride * rows) return std::nullopt;
    bitmap.pixels.reserve(static_cast<std::size_t>(width) * rows);
    for (std::size_t y = 0; y < rows; ++y) {
        const std::size_t row = start + stride * (height < 0 ? y : rows - 1 - y);
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            bitmap.pixels.push_back(Take(content, row + x * bytesPerPixel, bytesPerPixel));
        }
    }
    return bitmap;
}

std::string EncodeBitmap(platform::Size size, std::span<const std::uint32_t> pixels) {
    const std::size_t bytes = pixels.size() * 4;
    std::string content = "BM";
    Append(content, kHeaders + bytes, 4);
    Append(content, 0, 4);
    Append(content, kHeaders, 4);
    Append(content, kInfoHeader, 4);
    Append(content, static_cast<std::uint32_t>(size.width), 4);
    Append(content, static_cast<std::uint32_t>(size.height), 4);
    Append(content, 1, 2);   // planes
    Append(content, 32, 2);  // bits a pixel
    Append(content, kUncompressed, 4);
    Append(content, bytes, 4);
    content.append(kHeaders - content.size(), '\0');  // resolution and palette: none
    const auto width = static_cast<std::size_t>(size.width);
    for (std::size_t row = pixels.size(); row > 0; row -= width) {  // from the bottom
        for (const std::uint32_t pixel : pixels.subspan(row - width, width)) Append(content, pixel, 4);
    }
    return content;
}

}  // namespace storage
