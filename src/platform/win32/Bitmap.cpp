// 32-bit bitmaps: making them, reaching their pixels, and the mark that says there is an alpha channel.
#include "platform/win32/Bitmap.h"

#include <algorithm>

namespace platform {

PictureHandle newPicture(Size size) {
    if (size.width <= 0 || size.height <= 0) return {};
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;  // rows from top to bottom
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    return PictureHandle(
        reinterpret_cast<std::uintptr_t>(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0)));
}

std::span<Pixel> pixelsOf(const PictureHandle& picture) {
    DIBSECTION section{};
    if (GetObjectA(hbitmapOf(picture), sizeof section, &section) != sizeof section) return {};
    if (section.dsBm.bmBits == nullptr || section.dsBm.bmBitsPixel != 32) return {};
    GdiFlush();
    const auto count =
        static_cast<std::size_t>(section.dsBm.bmWidth) * static_cast<std::size_t>(section.dsBm.bmHeight);
    return {static_cast<Pixel*>(section.dsBm.bmBits), count};
}

void finishPicture(const PictureHandle& picture) {
    const std::span<Pixel> pixels = pixelsOf(picture);
    if (std::none_of(pixels.begin(), pixels.end(), [](const Pixel& p) { return p.alpha != 0; })) return;
    for (Pixel& p : pixels) {
        p.red = std::min(p.red, p.alpha);
        p.green = std::min(p.green, p.alpha);
        p.blue = std::min(p.blue, p.alpha);
    }
    // A pair of numbers that GDI keeps with a bitmap and leaves to the program; 0 x 0 in a new one.
    SetBitmapDimensionEx(hbitmapOf(picture), 1, 1, nullptr);
}

bool hasAlpha(const PictureHandle& picture) {
    SIZE mark{};
    return GetBitmapDimensionEx(hbitmapOf(picture), &mark) && mark.cx != 0;
}

}  // namespace platform
