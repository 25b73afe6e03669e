// Canvas: drawing pictures, with their alpha channel, with a mask colour, and disabled.
#include <algorithm>

#include "platform/Canvas.h"
#include "platform/win32/Bitmap.h"
#include "platform/win32/SystemLibrary.h"

namespace platform {

namespace {

// What of the source exists, and where that part goes: GDI draws nothing at all of a source that reaches beyond
// its bitmap.
struct Part {
    Rect source;
    Point at;
};

Part existing(const PictureHandle& picture, const Rect& source, Point at) {
    const Rect kept = source.intersect(Rect::fromSize({0, 0}, pictureSize(picture)));
    return {kept, {at.x + kept.left - source.left, at.y + kept.top - source.top}};
}

void blend(HDC dc, const Part& part, const PictureHandle& picture) {
    const BitmapDc from(picture);
    const Rect& s = part.source;
    static const auto blendAlpha = systemFunction<decltype(&AlphaBlend)>("msimg32.dll", "AlphaBlend");
    if (blendAlpha == nullptr) return;
    blendAlpha(dc, part.at.x, part.at.y, s.width(), s.height(), from.get(), s.left, s.top, s.width(), s.height(),
               {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
}

// The part without the pixels of colour `mask`, as a picture with alpha of its own.
PictureHandle cutOut(const PictureHandle& picture, const Rect& source, Color mask) {
    PictureHandle cut = newPicture(source.size());
    const std::span<const Pixel> from = pixelsOf(picture);
    const std::span<Pixel> to = pixelsOf(cut);
    if (from.empty() || to.empty()) return {};
    const bool alpha = hasAlpha(picture);
    const int pitch = pictureSize(picture).width;
    auto out = to.begin();
    for (int y = source.top; y < source.bottom; ++y) {
        for (int x = source.left; x < source.right; ++x, ++out) {
            const Pixel p = from[static_cast<std::size_t>(y * pitch + x)];
            if (rgb(p.red, p.green, p.blue) == mask) continue;
            *out = p;
            if (!alpha) out->alpha = 255;
        }
    }
    return cut;
}

// Disabled: the brightness stays, the colour goes, and what is left moves more than half of the way towards the
// ground. Pictures of any colour keep their drawing and are paler than every enabled one.
Pixel disabled(const Pixel& p, Color face) {
    constexpr int kKept = 45;  // percent
    const int luminance = (p.red * 77 + p.green * 151 + p.blue * 28) / 256;
    const auto toward = [&](int ground) {
        const int premultiplied = ground * p.alpha / 255;
        return static_cast<std::uint8_t>(
            std::min<int>((luminance * kKept + premultiplied * (100 - kKept)) / 100, p.alpha));
    };
    return {toward(GetBValue(face)), toward(GetGValue(face)), toward(GetRValue(face)), p.alpha};
}

}  // namespace

void Canvas::picture(Point at, const PictureHandle& picture, const Rect& source) {
    const Part part = existing(picture, source, at);
    if (part.source.empty()) return;
    const auto dc = static_cast<HDC>(native_);
    if (hasAlpha(picture)) {
        blend(dc, part, picture);
        return;
    }
    const BitmapDc from(picture);
    BitBlt(dc, part.at.x, part.at.y, part.source.width(), part.source.height(), from.get(), part.source.left,
           part.source.top, SRCCOPY);
}

void Canvas::maskedPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask) {
    const Part part = existing(picture, source, at);
    if (part.source.empty()) return;
    const auto dc = static_cast<HDC>(native_);
    const Rect& s = part.source;
    if (hasAlpha(picture)) {  // TransparentBlt would copy the alpha channel instead of using it
        const PictureHandle cut = cutOut(picture, s, mask);
        if (cut) blend(dc, {Rect::fromSize({0, 0}, s.size()), part.at}, cut);
        return;
    }
    const BitmapDc from(picture);
    static const auto copy = systemFunction<decltype(&TransparentBlt)>("msimg32.dll", "TransparentBlt");
    if (copy == nullptr) return;
    copy(dc, part.at.x, part.at.y, s.width(), s.height(), from.get(), s.left, s.top, s.width(), s.height(), mask);
}

void Canvas::disabledPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask) {
    const Part part = existing(picture, source, at);
    if (part.source.empty()) return;
    const PictureHandle cut = cutOut(picture, part.source, mask);
    if (!cut) return;
    const Color face = systemColor(SysColor::ButtonFace);
    for (Pixel& p : pixelsOf(cut)) p = disabled(p, face);
    blend(static_cast<HDC>(native_), {Rect::fromSize({0, 0}, part.source.size()), part.at}, cut);
}

PictureHandle drawPicture(Size size, Color ground, const std::function<void(Canvas&)>& draw) {
    PictureHandle picture = newPicture(size);
    if (!picture) return {};
    {
        const BitmapDc dc(picture);
        Canvas canvas(dc.get());
        canvas.fill(Rect::fromSize({}, size), ground);
        if (draw) draw(canvas);
    }
    // GDI leaves what it likes in the fourth byte.
    for (Pixel& p : pixelsOf(picture)) p.alpha = 0;
    return picture;
}

}  // namespace platform
