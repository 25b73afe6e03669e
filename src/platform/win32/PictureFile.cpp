// Pictures as BMP files. Read by hand rather than by LoadImage: that one drops the alpha channel, and a damaged
// file must be refused whatever is wrong with it.
#include <cstring>
#include <optional>
#include <string>

#include "platform/Files.h"
#include "platform/Picture.h"
#include "platform/win32/Bitmap.h"

namespace platform {

namespace {

constexpr int kLongestSide = 256;
constexpr std::size_t kHeaders = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
constexpr std::size_t kMaxFile = 2 * kHeaders + std::size_t{4} * kLongestSide * kLongestSide;
constexpr WORD kSignature = 0x4D42;  // "BM"

struct Layout {
    Size size;
    bool topDown = false;
    std::size_t bytesPerPixel = 0;
    std::size_t stride = 0;  // bytes of a row, padded to 4
    std::size_t offset = 0;  // of the first row
};

// Nothing when this is no uncompressed picture of 24 or 32 bits whose rows are all there.
std::optional<Layout> readLayout(const std::string& content) {
    BITMAPFILEHEADER file{};
    BITMAPINFOHEADER info{};
    if (content.size() < kHeaders) return std::nullopt;
    std::memcpy(&file, content.data(), sizeof file);
    std::memcpy(&info, content.data() + sizeof file, sizeof info);
    const bool known = file.bfType == kSignature && info.biSize >= sizeof info && info.biPlanes == 1 &&
                       info.biCompression == BI_RGB && (info.biBitCount == 24 || info.biBitCount == 32);
    const bool fits = info.biWidth > 0 && info.biWidth <= kLongestSide && info.biHeight != 0 &&
                      info.biHeight >= -kLongestSide && info.biHeight <= kLongestSide;
    if (!known || !fits) return std::nullopt;
    Layout layout;
    layout.topDown = info.biHeight < 0;
    layout.size = {info.biWidth, layout.topDown ? -info.biHeight : info.biHeight};
    layout.bytesPerPixel = info.biBitCount / 8U;
    layout.stride = (static_cast<std::size_t>(info.biWidth) * layout.bytesPerPixel + 3) & ~std::size_t{3};
    layout.offset = file.bfOffBits;
    const std::size_t needed = layout.stride * static_cast<std::size_t>(layout.size.height);
    const bool complete =
        layout.offset >= kHeaders && layout.offset <= content.size() && content.size() - layout.offset >= needed;
    return complete ? std::optional(layout) : std::nullopt;
}

std::string headersFor(Size size) {
    const auto bytes = static_cast<DWORD>(size.width) * static_cast<DWORD>(size.height) * 4;
    BITMAPFILEHEADER file{};
    file.bfType = kSignature;
    file.bfSize = static_cast<DWORD>(kHeaders) + bytes;
    file.bfOffBits = static_cast<DWORD>(kHeaders);
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = size.width;
    info.biHeight = size.height;
    info.biPlanes = 1;
    info.biBitCount = 32;
    info.biCompression = BI_RGB;
    info.biSizeImage = bytes;
    std::string headers(kHeaders, '\0');
    std::memcpy(headers.data(), &file, sizeof file);
    std::memcpy(headers.data() + sizeof file, &info, sizeof info);
    return headers;
}

}  // namespace

PictureHandle loadPictureFile(const std::string& path) {
    const std::optional<std::string> content = readFile(path, kMaxFile);
    if (!content) return {};
    const std::optional<Layout> layout = readLayout(*content);
    if (!layout) return {};
    PictureHandle picture = newPicture(layout->size);
    const std::span<Pixel> pixels = pixelsOf(picture);
    const auto width = static_cast<std::size_t>(layout->size.width);
    const auto height = static_cast<std::size_t>(layout->size.height);
    if (pixels.size() != width * height) return {};
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = layout->topDown ? y : height - 1 - y;
        const char* from = content->data() + layout->offset + row * layout->stride;
        for (std::size_t x = 0; x < width; ++x) {
            std::memcpy(&pixels[y * width + x], from + x * layout->bytesPerPixel, layout->bytesPerPixel);
        }
    }
    finishPicture(picture);
    return picture;
}

bool savePictureFile(const std::string& path, const PictureHandle& picture) {
    const Size size = pictureSize(picture);
    const std::span<const Pixel> pixels = pixelsOf(picture);
    if (pixels.empty()) return false;
    std::string content = headersFor(size);
    const auto width = static_cast<std::size_t>(size.width);
    for (int y = size.height - 1; y >= 0; --y) {
        const std::span<const Pixel> row = pixels.subspan(static_cast<std::size_t>(y) * width, width);
        content.append(reinterpret_cast<const char*>(row.data()), row.size_bytes());
    }
    deleteFile(path);
    return writeNewFile(path, content);
}

}  // namespace platform
