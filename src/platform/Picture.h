// Icons and bitmaps.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Handle.h"

namespace platform {

struct IconTag {
    static void close(std::uintptr_t raw) noexcept;  // DestroyIcon
};
using IconHandle = Handle<IconTag>;

struct PictureTag {
    static void close(std::uintptr_t raw) noexcept;  // DeleteObject
};
// A 32-bit bitmap, with or without an alpha channel (premultiplied).
using PictureHandle = Handle<PictureTag>;

// The first icon of a program file, 16 x 16 or 32 x 32 (`size` 16 or 32); empty when it has none. ExtractIconExA.
IconHandle extractIcon(const std::string& path, int size);
// An icon resource of this program at `size` pixels; empty when missing. LoadImageA.
IconHandle loadIconResource(int id, int size);
// A bitmap resource of this program; empty when missing. LoadImageA.
PictureHandle loadPictureResource(int id);

// A new picture with alpha showing the icon at `size` pixels on a transparent ground.
PictureHandle pictureFromIcon(std::uintptr_t icon, int size);
// An icon of the picture's size in which the pixels of colour `transparent` (0x00BBGGRR) are see-through and all
// others opaque; empty on failure. Takes the picture and deletes it whether or not there is an icon.
// BitBlt, CreateIconIndirect.
IconHandle iconFromPicture(PictureHandle picture, std::uint32_t transparent);
// Gives every pixel that is exactly `from` the colour `to`, row by row (0x00BBGGRR). GetPixel, SetPixelV.
void replaceColor(PictureHandle& picture, std::uint32_t from, std::uint32_t to);
// A picture of these pixels: 0xAARRGGBB, rows from the top. There is an alpha channel (a colour above its alpha
// comes down to it) unless every alpha is 0. Empty when there are not width x height of them.
PictureHandle pictureFromPixels(Size size, std::span<const std::uint32_t> pixels);
// Its pixels in that form; none for an empty handle.
std::vector<std::uint32_t> picturePixels(const PictureHandle& picture);
// 0 x 0 for an empty handle.
Size pictureSize(const PictureHandle& picture);

}  // namespace platform
