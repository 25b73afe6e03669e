// Icons and bitmaps: from files and resources, and one from the other.
#include "platform/Picture.h"

#include "platform/win32/Win32.h"

#include <shellapi.h>

#include <algorithm>
#include <bit>

#include "platform/win32/Bitmap.h"

namespace platform {

namespace {

IconHandle owned(HICON icon) {
    return IconHandle(reinterpret_cast<std::uintptr_t>(icon));
}

bool drawIcon(const PictureHandle& picture, HICON icon, int size) {
    const BitmapDc dc(picture);
    return DrawIconEx(dc.get(), 0, 0, icon, size, size, 0, nullptr, DI_NORMAL) != FALSE;
}

// Black where `mask` is to have ones: a white pixel of an icon's mask leaves the ground as it is, and the icon's
// colour is then combined with it.
bool blacken(HDC colors, HDC mask, Size size) {
    SetTextColor(colors, RGB(255, 255, 255));
    SetBkColor(colors, RGB(0, 0, 0));
    return BitBlt(colors, 0, 0, size.width, size.height, mask, 0, 0, SRCAND) != FALSE;
}

// Turns colour bitmap and empty one-bit bitmap into the two halves of an icon.
bool splitIntoIcon(const PictureHandle& picture, const PictureHandle& mask, COLORREF transparent) {
    const Size size = pictureSize(picture);
    const BitmapDc colors(picture);
    const BitmapDc ones(mask);
    // From colour to one bit, exactly the pixels of the background colour become 1.
    const COLORREF previous = SetBkColor(colors.get(), transparent);
    const bool masked = BitBlt(ones.get(), 0, 0, size.width, size.height, colors.get(), 0, 0, SRCCOPY) != FALSE;
    SetBkColor(colors.get(), previous);
    return masked && blacken(colors.get(), ones.get(), size);
}

}  // namespace

void IconTag::close(std::uintptr_t raw) noexcept {
    DestroyIcon(reinterpret_cast<HICON>(raw));
}

void PictureTag::close(std::uintptr_t raw) noexcept {
    DeleteObject(reinterpret_cast<HBITMAP>(raw));
}

IconHandle extractIcon(const std::string& path, int size) {
    HICON icon = nullptr;
    const bool large = size > 16;
    const UINT count = ExtractIconExA(path.c_str(), 0, large ? &icon : nullptr, large ? nullptr : &icon, 1);
    return count == 0 || count == UINT_MAX ? IconHandle{} : owned(icon);
}

IconHandle loadIconResource(int id, int size) {
    return owned(static_cast<HICON>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

PictureHandle loadPictureResource(int id) {
    const PictureHandle loaded(reinterpret_cast<std::uintptr_t>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    const Size size = pictureSize(loaded);
    PictureHandle picture = newPicture(size);
    if (!picture) return {};
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(nullptr);
    const int rows = GetDIBits(screen, hbitmapOf(loaded), 0, static_cast<UINT>(size.height),
                               pixelsOf(picture).data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (rows != size.height) return {};
    finishPicture(picture);
    return picture;
}

PictureHandle pictureFromIcon(std::uintptr_t icon, int size) {
    // Icons carry an alpha channel or only a mask. Drawn on black and on white they look the same where they are
    // opaque and differ by the ground that shines through elsewhere: that works for both.
    PictureHandle onBlack = newPicture({size, size});
    const PictureHandle onWhite = newPicture({size, size});
    const std::span<Pixel> black = pixelsOf(onBlack);
    const std::span<Pixel> white = pixelsOf(onWhite);
    if (icon == 0 || black.empty() || black.size() != white.size()) return {};
    std::fill(white.begin(), white.end(), Pixel{255, 255, 255, 0});
    const auto handle = reinterpret_cast<HICON>(icon);
    if (!drawIcon(onBlack, handle, size) || !drawIcon(onWhite, handle, size)) return {};
    GdiFlush();
    for (std::size_t i = 0; i < black.size(); ++i) {
        const int through = white[i].green - black[i].green;  // below 0 where an old mask inverts the ground
        black[i].alpha = static_cast<std::uint8_t>(255 - std::clamp(through, 0, 255));
    }
    finishPicture(onBlack);
    return onBlack;
}

IconHandle iconFromPicture(PictureHandle picture, std::uint32_t transparent) {
    const Size size = pictureSize(picture);
    if (size == Size{}) return {};
    const PictureHandle mask(
        reinterpret_cast<std::uintptr_t>(CreateBitmap(size.width, size.height, 1, 1, nullptr)));
    // Any alpha at all would have Windows use that instead of the mask.
    for (Pixel& p : pixelsOf(picture)) p.alpha = 0;
    if (!mask || !splitIntoIcon(picture, mask, transparent)) return {};
    ICONINFO halves{};
    halves.fIcon = TRUE;
    halves.hbmMask = hbitmapOf(mask);
    halves.hbmColor = hbitmapOf(picture);
    return owned(CreateIconIndirect(&halves));
}

// On the pixels themselves: SetPixelV would take the alpha channel away with the colour.
void replaceColor(PictureHandle& picture, std::uint32_t from, std::uint32_t to) {
    const bool alpha = hasAlpha(picture);
    for (Pixel& p : pixelsOf(picture)) {
        if (RGB(p.red, p.green, p.blue) != from) continue;
        const std::uint8_t most = alpha ? p.alpha : 255;
        p.red = std::min<std::uint8_t>(GetRValue(to), most);
        p.green = std::min<std::uint8_t>(GetGValue(to), most);
        p.blue = std::min<std::uint8_t>(GetBValue(to), most);
    }
}

PictureHandle pictureFromPixels(Size size, std::span<const std::uint32_t> pixels) {
    PictureHandle picture = newPicture(size);
    const std::span<Pixel> to = pixelsOf(picture);
    if (to.empty() || to.size() != pixels.size()) return {};
    // In memory such a number is a Pixel.
    std::transform(pixels.begin(), pixels.end(), to.begin(), std::bit_cast<Pixel, std::uint32_t>);
    finishPicture(picture);
    return picture;
}

std::vector<std::uint32_t> picturePixels(const PictureHandle& picture) {
    const std::span<const Pixel> from = pixelsOf(picture);
    std::vector<std::uint32_t> pixels(from.size());
    std::transform(from.begin(), from.end(), pixels.begin(), std::bit_cast<std::uint32_t, Pixel>);
    return pixels;
}

Size pictureSize(const PictureHandle& picture) {
    BITMAP bitmap{};
    if (!picture || GetObjectA(hbitmapOf(picture), sizeof bitmap, &bitmap) == 0) return {};
    return {bitmap.bmWidth, bitmap.bmHeight};
}

}  // namespace platform
