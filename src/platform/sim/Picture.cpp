// Icons and pictures of the simulated machine. BMP files are real ones, of 24 or 32 bits a pixel.
#include "platform/Picture.h"

#include <cstdlib>
#include <limits>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;
using sim::PictureData;

namespace {

constexpr int kMostPixels = 256;  // a side
constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kHeaders = kFileHeader + 40;

void append(std::string& file, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file.push_back(static_cast<char>(value >> 8 * i & 0xFFU));
}

std::uint32_t take(const std::string& file, std::size_t at, int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i) {
        const auto byte = static_cast<unsigned char>(file[at + static_cast<std::size_t>(i)]);
        value |= static_cast<std::uint32_t>(byte) << 8 * i;
    }
    return value;
}

// Files have blue first, colours here have red first.
std::uint32_t swapRedBlue(std::uint32_t color) {
    return (color & 0xFF00FF00U) | (color & 0xFFU) << 16 | (color >> 16 & 0xFFU);
}

std::size_t area(Size size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

std::string toBmp(const PictureData& picture) {
    std::string file = "BM";
    const auto bytes = static_cast<std::uint32_t>(area(picture.size) * 4);
    append(file, static_cast<std::uint32_t>(kHeaders) + bytes, 4);
    append(file, 0, 4);
    append(file, kHeaders, 4);
    append(file, 40, 4);
    append(file, static_cast<std::uint32_t>(picture.size.width), 4);
    append(file, static_cast<std::uint32_t>(picture.size.height), 4);
    append(file, 1, 2);
    append(file, 32, 2);
    append(file, 0, 4);
    append(file, bytes, 4);
    for (int i = 0; i < 4; ++i) append(file, 0, 4);
    for (int y = picture.size.height - 1; y >= 0; --y) {
        for (int x = 0; x < picture.size.width; ++x) {
            const auto index = static_cast<std::size_t>(y * picture.size.width + x);
            append(file, swapRedBlue(picture.pixels[index]), 4);
        }
    }
    return file;
}

// Empty size when the bytes are no such picture.
PictureData fromBmp(const std::string& file) {
    if (file.size() < kHeaders || file.compare(0, 2, "BM") != 0 || take(file, 14, 4) < 40) return {};
    const auto width = static_cast<std::int32_t>(take(file, 18, 4));
    const auto height = static_cast<std::int32_t>(take(file, 22, 4));
    const std::uint32_t bits = take(file, 28, 2);
    if (width <= 0 || width > kMostPixels || height == 0 || height < -kMostPixels || height > kMostPixels)
        return {};
    if ((bits != 24 && bits != 32) || take(file, 30, 4) != 0) return {};

    PictureData picture;
    picture.size = {width, std::abs(height)};
    const std::size_t pixelBytes = bits / 8;
    const std::size_t rowBytes = (static_cast<std::size_t>(width) * pixelBytes + 3) / 4 * 4;
    const std::size_t start = take(file, 10, 4);
    const auto rows = static_cast<std::size_t>(picture.size.height);
    if (start < kHeaders || start > file.size() || file.size() - start < rowBytes * rows) return {};
    for (std::size_t y = 0; y < rows; ++y) {
        const std::size_t row = start + rowBytes * (height > 0 ? rows - 1 - y : y);
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            const std::uint32_t color = take(file, row + x * pixelBytes, static_cast<int>(pixelBytes));
            picture.alpha = picture.alpha || color >> 24 != 0;
            picture.pixels.push_back(swapRedBlue(color));
        }
    }
    return picture;
}

PictureHandle open(PictureData picture) {
    if (picture.pixels.empty()) return {};
    return PictureHandle(machine().pictures.add(std::move(picture)));
}

IconHandle openIcon(std::string source, int size) {
    return IconHandle(machine().icons.add({std::move(source), {size, size}, {}}));
}

// An icon of a file or resource looks like a square of its own colour that leaves a transparent border.
PictureData lookOf(const std::string& source, int size) {
    std::uint32_t color = 2166136261U;
    for (const char letter : source) color = (color ^ static_cast<unsigned char>(letter)) * 16777619U;
    PictureData picture{{size, size}, true, {}};
    const Rect inside = Rect::fromSize({}, picture.size).inset(size / 8, size / 8);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) picture.pixels.push_back(inside.contains({x, y}) ? color | 0xFF000000U : 0);
    }
    return picture;
}

// An icon made from a picture, stretched to a square.
PictureData stretched(const sim::IconData& icon, int size) {
    PictureData picture{{size, size}, true, {}};
    for (int y = 0; y < size; ++y) {
        const int row = y * icon.size.height / size * icon.size.width;
        for (int x = 0; x < size; ++x) {
            const Color color = icon.pixels[static_cast<std::size_t>(row + x * icon.size.width / size)];
            picture.pixels.push_back(color == sim::kUnpainted ? 0 : color | 0xFF000000U);
        }
    }
    return picture;
}

constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();

bool isProgram(const std::string& path) {
    const std::string lower = lowerCase(path);
    return lower.ends_with(".exe") || lower.ends_with(".scr");
}

}  // namespace

void IconTag::close(std::uintptr_t raw) noexcept {
    // Icons made from pictures come and go all the time, so they stay out of the log.
    const sim::IconData* data = machine().icons.find(raw);
    if (data != nullptr && !data->source.empty()) sim::note("destroyIcon", data->source);
    machine().icons.remove(raw);
}

void PictureTag::close(std::uintptr_t raw) noexcept {
    machine().pictures.remove(raw);
}

IconHandle extractIcon(const std::string& path, int size) {
    if ((size != 16 && size != 32) || !isProgram(path) || !readFile(path, kAnySize)) return {};
    return openIcon(path, size);
}

IconHandle loadIconResource(int id, int size) {
    if (id <= 0 || size <= 0 || machine().iconsFail) return {};
    return openIcon("#" + std::to_string(id), size);
}

PictureHandle loadPictureResource(int id) {
    if (id <= 0) return {};
    const auto found = machine().pictureResources.find(id);
    if (found != machine().pictureResources.end()) return open(found->second);
    const Size strip{288, 24};
    return open({strip, false, std::vector<std::uint32_t>(area(strip), rgb(128, 128, 128))});
}

PictureHandle pictureFromIcon(std::uintptr_t icon, int size) {
    const sim::IconData* data = machine().icons.find(icon);
    if (data == nullptr || size <= 0 || size > kMostPixels) return {};
    return open(data->pixels.empty() ? lookOf(data->source, size) : stretched(*data, size));
}

IconHandle iconFromPicture(PictureHandle picture, std::uint32_t transparent) {
    const PictureData* data = machine().pictures.find(picture.raw());
    if (data == nullptr || machine().iconsFail) return {};
    sim::IconData icon{{}, data->size, data->pixels};
    for (Color& pixel : icon.pixels) {
        pixel &= 0xFFFFFFU;
        if (pixel == transparent) pixel = sim::kUnpainted;
    }
    return IconHandle(machine().icons.add(std::move(icon)));
}

void replaceColor(PictureHandle& picture, std::uint32_t from, std::uint32_t to) {
    PictureData* data = machine().pictures.find(picture.raw());
    if (data == nullptr) return;
    for (std::uint32_t& pixel : data->pixels) {
        if ((pixel & 0xFFFFFFU) == from) pixel = to;
    }
}

PictureHandle loadPictureFile(const std::string& path) {
    const std::optional<std::string> file = readFile(path);
    return file ? open(fromBmp(*file)) : PictureHandle();
}

bool savePictureFile(const std::string& path, const PictureHandle& picture) {
    const PictureData* data = machine().pictures.find(picture.raw());
    deleteFile(path);
    return data != nullptr && writeNewFile(path, toBmp(*data));
}

Size pictureSize(const PictureHandle& picture) {
    const PictureData* data = machine().pictures.find(picture.raw());
    return data == nullptr ? Size{} : data->size;
}

void sim::failIcons(bool refuse) {
    machine().iconsFail = refuse;
}

void sim::setPictureResource(int id, Size size, std::vector<Color> pixels) {
    if (pixels.empty()) pixels.assign(area(size), rgb(128, 128, 128));
    if (pixels.size() != area(size)) fail("setPictureResource: not as many pixels as the size says");
    machine().pictureResources[id] = {size, false, std::move(pixels)};
}

}  // namespace platform
