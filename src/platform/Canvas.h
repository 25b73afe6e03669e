// Drawing. A Canvas exists while a window paints; coordinates are client pixels of that window, clipped to
// what needs painting. Every call takes its colour and font: the clip is the only state.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/Geometry.h"
#include "platform/Picture.h"

namespace platform {

using Color = std::uint32_t;  // 0x00BBGGRR

constexpr Color rgb(int red, int green, int blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

enum class SysColor {
    Window,
    WindowText,
    Highlight,
    HighlightText,
    ButtonFace,
    ButtonText,
    ButtonShadow,
    ButtonHighlight,
    GrayText,
    MenuText,
    Menu,
};
// The user's colour for a part of the desktop. GetSysColor.
Color systemColor(SysColor which);

// The user has chosen few colours that stand far apart; a mix of two of them is none. onSystemColors tells of a
// change. SystemParametersInfoA (SPI_GETHIGHCONTRAST).
bool highContrast();

enum class Font { Normal, Bold };

// Bits of the text format; left and top aligned when none is given.
enum TextFormat : unsigned {
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextVCenter = 4,
    kTextWordBreak = 0x10,
    kTextSingleLine = 0x20,
    kTextNoPrefix = 0x800,
    kTextWordEllipsis = 0x40000,
};

enum class Edge { RaisedInner, SunkenInner, Etched };
enum class Direction { Horizontal, Vertical };

class Canvas {
public:
    explicit Canvas(void* native) : native_(native) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // True when part of the rectangle needs painting. RectVisible.
    bool needsPaint(const Rect& area) const;
    void fill(const Rect& area, Color color);      // FillRect
    void frame(const Rect& area, Color color);     // FrameRect, one pixel wide
    void line(Point from, Point to, Color color);  // LineTo: the last point is not set
    void pixel(Point at, Color color);             // SetPixelV
    void gradient(const Rect& area, Color from, Color to, Direction direction);  // GradientFill
    void edge(const Rect& area, Edge kind);                                      // DrawEdge with BF_RECT
    void focusRect(const Rect& area);                                            // DrawFocusRect
    // `format` is a set of TextFormat bits. DrawTextW.
    void text(const Rect& area, std::string_view text, Color color, Font font, unsigned format);
    // Icon at `size` pixels. DrawIconEx.
    void icon(Point at, std::uintptr_t icon, int size);
    // The part `source` of a picture, blended by its alpha channel if it has one. AlphaBlend.
    void picture(Point at, const PictureHandle& picture, const Rect& source);
    // The part `source` of a picture, leaving out the pixels of colour `mask`. TransparentBlt.
    void maskedPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask);
    // The disabled look: the shape of maskedPicture in grey.
    void disabledPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask);

private:
    // Restricts drawing to a rectangle for the life of the guard.
    friend class ClipGuard;
    void* native_;
};

// Clips a canvas to `area` (and what was clipped before) while it lives. SaveDC, IntersectClipRect, RestoreDC.
class ClipGuard {
public:
    ClipGuard(Canvas& canvas, const Rect& area);
    ~ClipGuard();
    ClipGuard(const ClipGuard&) = delete;
    ClipGuard& operator=(const ClipGuard&) = delete;

private:
    Canvas& canvas_;
    int saved_ = 0;
};

// A new picture without alpha, in colour `ground` and with what `draw` draws on it; empty on failure.
// CreateDIBSection.
PictureHandle drawPicture(Size size, Color ground, const std::function<void(Canvas&)>& draw);

// Width and height of the text on one line, or wrapped to `wrapWidth` pixels when that is above 0.
// DrawTextW with DT_CALCRECT.
Size textSize(std::string_view text, Font font, int wrapWidth = 0);

}  // namespace platform
