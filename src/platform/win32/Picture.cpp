// Icons and bitmaps: from files and resources, and one from the other.
#include "platform/Picture.h"

#include "platform/win32/Win32.h"

#include <shellapi.h>

#include <algorithm>

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

Size pictureSize(const PictureHandle& picture) {
    BITMAP bitmap{};
    if (!picture || GetObjectA(hbitmapOf(picture), sizeof bitmap, &bitmap) == 0) return {};
    return {bitmap.bmWidth, bitmap.bmHeight};
}

}  // namespace platform
