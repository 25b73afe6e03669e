// Canvas: shapes, text and icons. Pictures are in CanvasPictures.cpp.
#include "platform/Canvas.h"

#include <algorithm>

#include "platform/win32/Fonts.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

static_assert(kTextCenter == DT_CENTER && kTextRight == DT_RIGHT && kTextVCenter == DT_VCENTER &&
              kTextWordBreak == DT_WORDBREAK && kTextSingleLine == DT_SINGLELINE && kTextNoPrefix == DT_NOPREFIX &&
              kTextWordEllipsis == DT_WORD_ELLIPSIS);

// More than any control can show; DrawText takes long over text that nobody sees.
constexpr std::size_t kLongestText = 4096;

// DrawText. The drawing functions know the system's code page only, not the one that the manifest gives to the
// process: text goes to them as wide characters, of which there are never more than bytes.
void drawText(HDC dc, std::string_view text, RECT& r, UINT format) {
    wchar_t wide[kLongestText];
    const int bytes = static_cast<int>(std::min(text.size(), kLongestText));
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide, bytes);
    DrawTextW(dc, wide, length, &r, format);
}

// The brush and the pen that belong to the DC: only their colour changes, so that nothing has to be made.
HBRUSH brush(HDC dc, Color color) {
    SetDCBrushColor(dc, color);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

TRIVERTEX vertex(int x, int y, Color color) {
    const auto channel = [](int value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)), 0};
}

}  // namespace

bool highContrast() {
    HIGHCONTRASTA chosen{};
    chosen.cbSize = sizeof chosen;
    return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof chosen, &chosen, 0) &&
           (chosen.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

Color systemColor(SysColor which) {
    switch (which) {
        case SysColor::Window:
            return GetSysColor(COLOR_WINDOW);
        case SysColor::WindowText:
            return GetSysColor(COLOR_WINDOWTEXT);
        case SysColor::Highlight:
            return GetSysColor(COLOR_HIGHLIGHT);
        case SysColor::HighlightText:
            return GetSysColor(COLOR_HIGHLIGHTTEXT);
        case SysColor::ButtonFace:
            return GetSysColor(COLOR_BTNFACE);
        case SysColor::ButtonText:
            return GetSysColor(COLOR_BTNTEXT);
        case SysColor::ButtonShadow:
            return GetSysColor(COLOR_BTNSHADOW);
        case SysColor::ButtonHighlight:
            return GetSysColor(COLOR_BTNHIGHLIGHT);
        case SysColor::GrayText:
            return GetSysColor(COLOR_GRAYTEXT);
        case SysColor::MenuText:
            return GetSysColor(COLOR_MENUTEXT);
        case SysColor::Menu:
            return GetSysColor(COLOR_MENU);
    }
    return 0;
}

bool Canvas::needsPaint(const Rect& area) const {
    const RECT r = toRECT(area);
    return !area.empty() && RectVisible(static_cast<HDC>(native_), &r) != FALSE;
}

void Canvas::fill(const Rect& area, Color color) {
    if (area.empty()) return;  // GDI would fill a rectangle that is the wrong way round
    const auto dc = static_cast<HDC>(native_);
    const RECT r = toRECT(area);
    FillRect(dc, &r, brush(dc, color));
}

void Canvas::frame(const Rect& area, Color color) {
    if (area.empty()) return;
    const auto dc = static_cast<HDC>(native_);
    const RECT r = toRECT(area);
    FrameRect(dc, &r, brush(dc, color));
}

void Canvas::line(Point from, Point to, Color color) {
    const auto dc = static_cast<HDC>(native_);
    SetDCPenColor(dc, color);
    const HGDIOBJ previous = SelectObject(dc, GetStockObject(DC_PEN));
    MoveToEx(dc, from.x, from.y, nullptr);
    LineTo(dc, to.x, to.y);
    SelectObject(dc, previous);
}

void Canvas::pixel(Point at, Color color) {
    SetPixelV(static_cast<HDC>(native_), at.x, at.y, color);
}

void Canvas::gradient(const Rect& area, Color from, Color to, Direction direction) {
    if (area.empty()) return;
    TRIVERTEX corners[] = {vertex(area.left, area.top, from), vertex(area.right, area.bottom, to)};
    GRADIENT_RECT mesh{0, 1};
    const ULONG mode = direction == Direction::Horizontal ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V;
    static const auto fill = systemFunction<decltype(&GradientFill)>("msimg32.dll", "GradientFill");
    if (fill != nullptr) fill(static_cast<HDC>(native_), corners, 2, &mesh, 1, mode);
}

void Canvas::edge(const Rect& area, Edge kind) {
    if (area.empty()) return;
    UINT edge = EDGE_ETCHED;
    if (kind == Edge::RaisedInner) edge = BDR_RAISEDINNER;
    if (kind == Edge::SunkenInner) edge = BDR_SUNKENINNER;
    RECT r = toRECT(area);
    DrawEdge(static_cast<HDC>(native_), &r, edge, BF_RECT);
}

void Canvas::focusRect(const Rect& area) {
    if (area.empty()) return;
    const auto dc = static_cast<HDC>(native_);
    const RECT r = toRECT(area);
    SetTextColor(dc, rgb(0, 0, 0));  // the dots are a pattern of text and background colour
    SetBkColor(dc, rgb(255, 255, 255));
    DrawFocusRect(dc, &r);
}

void Canvas::text(const Rect& area, std::string_view text, Color color, Font font, unsigned format) {
    if (area.empty() || text.empty()) return;
    const auto dc = static_cast<HDC>(native_);
    RECT r = toRECT(area);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    const HGDIOBJ previous = SelectObject(dc, fontHandle(font));
    drawText(dc, text, r, format);
    SelectObject(dc, previous);
}

void Canvas::icon(Point at, std::uintptr_t icon, int size) {
    if (icon == 0) return;
    DrawIconEx(static_cast<HDC>(native_), at.x, at.y, reinterpret_cast<HICON>(icon), size, size, 0, nullptr,
               DI_NORMAL);
}

ClipGuard::ClipGuard(Canvas& canvas, const Rect& area) : canvas_(canvas) {
    const auto dc = static_cast<HDC>(canvas.native_);
    saved_ = SaveDC(dc);
    // An empty rectangle would count as its corners swapped.
    const Rect clip = area.empty() ? Rect{} : area;
    IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
}

ClipGuard::~ClipGuard() {
    RestoreDC(static_cast<HDC>(canvas_.native_), saved_);
}

Size textSize(std::string_view text, Font font, int wrapWidth) {
    // An empty text is as high as any: layouts do not jump when a text comes.
    const std::string_view measured = text.empty() ? std::string_view(" ") : text;
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(screen, fontHandle(font));
    RECT r{0, 0, wrapWidth, 0};
    const UINT format = DT_CALCRECT | DT_NOPREFIX | (wrapWidth > 0 ? DT_WORDBREAK : DT_SINGLELINE);
    drawText(screen, measured, r, format);
    SelectObject(screen, previous);
    ReleaseDC(nullptr, screen);
    return {text.empty() ? 0 : static_cast<int>(r.right), static_cast<int>(r.bottom)};
}

}  // namespace platform
