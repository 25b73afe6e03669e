// Pictures as Windows keeps them: 32-bit bitmaps whose pixels this program can reach.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Picture.h"
#include "platform/win32/Win32.h"

namespace platform {

// One pixel, as it lies in memory.
struct Pixel {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t alpha = 0;
};
static_assert(sizeof(Pixel) == 4);

inline HBITMAP hbitmapOf(const PictureHandle& picture) {
    return reinterpret_cast<HBITMAP>(picture.raw());
}

// A new bitmap, black and transparent; empty on failure. CreateDIBSection.
PictureHandle newPicture(Size size);
// Its pixels, rows from top to bottom; empty for an empty handle. What GDI has still to draw is drawn first.
std::span<Pixel> pixelsOf(const PictureHandle& picture);
// To be called when the pixels are complete: finds out whether there is an alpha channel, remembers it, and makes
// sure that no colour is above its alpha, as premultiplied pixels must be.
void finishPicture(const PictureHandle& picture);
bool hasAlpha(const PictureHandle& picture);

// A memory DC with a bitmap selected for as long as it lives.
class BitmapDc {
public:
    explicit BitmapDc(const PictureHandle& picture)
        : dc_(CreateCompatibleDC(nullptr)), previous_(SelectObject(dc_, hbitmapOf(picture))) {}
    ~BitmapDc() {
        SelectObject(dc_, previous_);
        DeleteDC(dc_);
    }
    BitmapDc(const BitmapDc&) = delete;
    BitmapDc& operator=(const BitmapDc&) = delete;

    HDC get() const { return dc_; }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

}  // namespace platform
