// Icons and pictures of the simulated machine.
#include "platform/Picture.h"

#include <algorithm>
#include <limits>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;
using sim::PictureData;

namespace {

constexpr int kMostPixels = 256;  // a side
// Pixels come and go with blue in the lowest byte, and are kept with red there.
std::uint32_t swapRedBlue(std::uint32_t color) {
    return (color & 0xFF00FF00U) | (color & 0xFFU) << 16 | (color >> 16 & 0xFFU);
}

std::size_t area(Size size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
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
    sim::note("extractIcon", path);
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

PictureHandle pictureFromPixels(Size size, std::span<const std::uint32_t> pixels) {
    if (size.width <= 0 || size.height <= 0 || pixels.size() != area(size)) return {};
    PictureData picture{size, false, {}};
    picture.alpha = std::any_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel >> 24 != 0; });
    for (const std::uint32_t pixel : pixels) {
        const std::uint32_t most = picture.alpha ? pixel >> 24 : 255;
        const auto channel = [&](int shift) { return std::min(pixel >> shift & 0xFFU, most) << shift; };
        picture.pixels.push_back(swapRedBlue((pixel & 0xFF000000U) | channel(16) | channel(8) | channel(0)));
    }
    return open(std::move(picture));
}

std::vector<std::uint32_t> picturePixels(const PictureHandle& picture) {
    const PictureData* data = machine().pictures.find(picture.raw());
    if (data == nullptr) return {};
    std::vector<std::uint32_t> pixels = data->pixels;
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), swapRedBlue);
    return pixels;
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
