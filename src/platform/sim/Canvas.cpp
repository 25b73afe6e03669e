// Drawing: each call is recorded, and sets the pixels that can be told without fonts and icons.
#include "platform/Canvas.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "platform/sim/SimCanvas.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::Drawn;
using sim::machine;
using sim::PaintContext;
using sim::PictureData;

namespace {

constexpr int kLineHeight = 13;

PaintContext& contextOf(void* native) {
    return *static_cast<PaintContext*>(native);
}

// Notes an operation; nullptr when nothing of it can be seen.
Drawn* record(PaintContext& context, const char* what, const Rect& area, Color color = 0) {
    if (!area.intersects(context.clip)) return nullptr;
    ++machine().desktop.drawCount;
    Drawn& drawn = context.drawn.emplace_back();
    drawn.what = what;
    drawn.area = area;
    drawn.color = color;
    return &drawn;
}

void outline(PaintContext& context, const Rect& area, Color topLeft, Color bottomRight) {
    if (area.empty()) return;
    context.fill({area.left, area.top, area.right, area.top + 1}, topLeft);
    context.fill({area.left, area.top, area.left + 1, area.bottom}, topLeft);
    context.fill({area.left, area.bottom - 1, area.right, area.bottom}, bottomRight);
    context.fill({area.right - 1, area.top, area.right, area.bottom}, bottomRight);
}

// Of what was drawn without pixels: 1..126, another one for anything else almost surely.
Color markOf(const Drawn& drawn) {
    std::size_t hash = std::hash<std::string>()(drawn.text);
    for (const std::size_t part :
         {static_cast<std::size_t>(drawn.color), static_cast<std::size_t>(drawn.font),
          static_cast<std::size_t>(drawn.format), static_cast<std::size_t>(drawn.object),
          static_cast<std::size_t>(drawn.area.left), static_cast<std::size_t>(drawn.area.top),
          static_cast<std::size_t>(drawn.area.right), static_cast<std::size_t>(drawn.area.bottom)}) {
        hash = (hash ^ part) * 0x100000001B3ULL;
    }
    return static_cast<Color>((hash >> 32U) % 126U + 1U);
}

void markAll(PaintContext& context, const Drawn& drawn) {
    context.mark(drawn.area, [mark = markOf(drawn)](Color) { return mark; });
}

unsigned channel(Color color, unsigned shift) {
    return color >> shift & 0xFFU;
}

Color between(Color from, Color to, int at, int length) {
    Color mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto first = static_cast<int>(channel(from, shift));
        const auto last = static_cast<int>(channel(to, shift));
        mixed |= static_cast<Color>(first + (last - first) * at / length) << shift;
    }
    return mixed;
}

Color blend(Color under, std::uint32_t over) {
    const unsigned rest = 255U - channel(over, 24);
    Color mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        mixed |= std::min(255U, channel(over, shift) + channel(under, shift) * rest / 255U) << shift;
    }
    return mixed;
}

// Calls set(pixel of the window, pixel of the picture) for what of the picture's part can be seen.
template <class Set>
void copyPicture(PaintContext& context, Point at, const PictureHandle& handle, const Rect& source, Set set) {
    const PictureData* picture = machine().pictures.find(handle.raw());
    if (picture == nullptr) return;
    const Rect part = source.intersect(Rect::fromSize({}, picture->size));
    const int dx = at.x - source.left;
    const int dy = at.y - source.top;
    const Rect inside = context.visible(part.offset(dx, dy));
    if (part.empty() || inside.empty()) return;
    for (int y = inside.top; y < inside.bottom; ++y) {
        const auto* from = picture->pixels.data() + static_cast<std::ptrdiff_t>(y - dy) * picture->size.width;
        for (int x = inside.left; x < inside.right; ++x) set(context.row(y)[x], from[x - dx]);
    }
}

PaintContext* recordPicture(void* native, const char* what, Point at, const PictureHandle& picture,
                            const Rect& source, Color mask) {
    PaintContext& context = contextOf(native);
    Drawn* drawn = record(context, what, Rect::fromSize(at, source.size()), mask);
    if (drawn == nullptr) return nullptr;
    drawn->object = picture.raw();
    drawn->source = source.origin();
    return &context;
}

}  // namespace

Color systemColor(SysColor which) {
    return machine().desktop.systemColors[static_cast<std::size_t>(which)];
}

bool highContrast() {
    return machine().desktop.highContrast;
}

bool Canvas::needsPaint(const Rect& area) const {
    return area.intersects(contextOf(native_).clip);
}

void Canvas::fill(const Rect& area, Color color) {
    if (record(contextOf(native_), "fill", area, color) != nullptr) contextOf(native_).fill(area, color);
}

void Canvas::frame(const Rect& area, Color color) {
    if (record(contextOf(native_), "frame", area, color) != nullptr) {
        outline(contextOf(native_), area, color, color);
    }
}

void Canvas::line(Point from, Point to, Color color) {
    if (from == to) return;
    const int dx = std::abs(to.x - from.x);
    const int dy = std::abs(to.y - from.y);
    const int stepX = from.x < to.x ? 1 : -1;
    const int stepY = from.y < to.y ? 1 : -1;
    PaintContext& context = contextOf(native_);
    Rect touched{from.x, from.y, from.x + 1, from.y + 1};
    int error = dx - dy;
    for (Point at = from; at != to;) {
        touched = {std::min(touched.left, at.x), std::min(touched.top, at.y), std::max(touched.right, at.x + 1),
                   std::max(touched.bottom, at.y + 1)};
        context.fill({at.x, at.y, at.x + 1, at.y + 1}, color);
        const int twice = 2 * error;
        if (twice > -dy) {
            error -= dy;
            at.x += stepX;
        }
        if (twice < dx) {
            error += dx;
            at.y += stepY;
        }
    }
    record(context, "line", touched, color);
}

void Canvas::pixel(Point at, Color color) {
    const Rect area{at.x, at.y, at.x + 1, at.y + 1};
    if (record(contextOf(native_), "pixel", area, color) != nullptr) contextOf(native_).fill(area, color);
}

void Canvas::gradient(const Rect& area, Color from, Color to, Direction direction) {
    PaintContext& context = contextOf(native_);
    if (record(context, "gradient", area, from) == nullptr) return;
    const bool across = direction == Direction::Horizontal;
    const int length = across ? area.width() : area.height();
    for (int at = 0; at < length; ++at) {
        const Color color = between(from, to, at, length);
        if (across) {
            context.fill({area.left + at, area.top, area.left + at + 1, area.bottom}, color);
        } else {
            context.fill({area.left, area.top + at, area.right, area.top + at + 1}, color);
        }
    }
}

void Canvas::edge(const Rect& area, Edge kind) {
    PaintContext& context = contextOf(native_);
    if (record(context, "edge", area) == nullptr) return;
    const Color light = systemColor(SysColor::ButtonHighlight);
    const Color dark = systemColor(SysColor::ButtonShadow);
    const bool raised = kind == Edge::RaisedInner;
    outline(context, area, raised ? light : dark, raised ? dark : light);
    if (kind == Edge::Etched) outline(context, area.inset(1, 1), light, dark);
}

// A second one in the same place takes the first away.
void Canvas::focusRect(const Rect& area) {
    PaintContext& context = contextOf(native_);
    if (record(context, "focus", area) == nullptr) return;
    const Rect inner = area.inset(1, 1);
    for (const Rect& side :
         {Rect{area.left, area.top, area.right, inner.top}, Rect{area.left, inner.bottom, area.right, area.bottom},
          Rect{area.left, inner.top, inner.left, inner.bottom},
          Rect{inner.right, inner.top, area.right, inner.bottom}}) {
        context.mark(side, [](Color mark) { return mark ^ 0x80U; });
    }
}

void Canvas::text(const Rect& area, std::string_view text, Color color, Font font, unsigned format) {
    Drawn* drawn = record(contextOf(native_), "text", area, color);
    if (drawn == nullptr) return;
    drawn->text = text;
    drawn->font = font;
    drawn->format = format;
    markAll(contextOf(native_), *drawn);
}

void Canvas::icon(Point at, std::uintptr_t icon, int size) {
    Drawn* drawn = record(contextOf(native_), "icon", Rect::fromSize(at, {size, size}));
    if (drawn == nullptr) return;
    drawn->object = icon;
    markAll(contextOf(native_), *drawn);
}

void Canvas::picture(Point at, const PictureHandle& picture, const Rect& source) {
    PaintContext* context = recordPicture(native_, "picture", at, picture, source, 0);
    if (context == nullptr) return;
    const PictureData* data = machine().pictures.find(picture.raw());
    const bool alpha = data != nullptr && data->alpha;
    copyPicture(*context, at, picture, source, [alpha](Color& under, std::uint32_t over) {
        under = alpha ? blend(under, over) : over & 0xFFFFFFU;
    });
}

void Canvas::maskedPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask) {
    PaintContext* context = recordPicture(native_, "masked", at, picture, source, mask);
    if (context == nullptr) return;
    copyPicture(*context, at, picture, source, [mask](Color& under, std::uint32_t over) {
        if ((over & 0xFFFFFFU) != mask) under = over & 0xFFFFFFU;
    });
}

void Canvas::disabledPicture(Point at, const PictureHandle& picture, const Rect& source, Color mask) {
    PaintContext* context = recordPicture(native_, "disabled", at, picture, source, mask);
    if (context == nullptr) return;
    const Color grey = systemColor(SysColor::GrayText);
    copyPicture(*context, at, picture, source, [mask, grey](Color& under, std::uint32_t over) {
        if ((over & 0xFFFFFFU) != mask) under = grey;
    });
}

ClipGuard::ClipGuard(Canvas& canvas, const Rect& area) : canvas_(canvas) {
    PaintContext& context = contextOf(canvas_.native_);
    saved_ = static_cast<int>(context.saved.size());
    context.saved.push_back(context.clip);
    context.clip = context.clip.intersect(area);
}

ClipGuard::~ClipGuard() {
    PaintContext& context = contextOf(canvas_.native_);
    context.clip = context.saved[static_cast<std::size_t>(saved_)];
    context.saved.resize(static_cast<std::size_t>(saved_));
}

PictureHandle drawPicture(Size size, Color ground, const std::function<void(Canvas&)>& draw) {
    if (size.width <= 0 || size.height <= 0) return {};
    const std::size_t area = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    PictureData picture{size, false, std::vector<std::uint32_t>(area, ground)};
    std::vector<Drawn> drawn;  // counted, but nobody can ask for it
    PaintContext context{picture.size, picture.pixels, drawn, Rect::fromSize({}, size), {}};
    Canvas canvas(&context);
    if (draw) draw(canvas);
    for (std::uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFFU;  // marks are for windows
    return PictureHandle(machine().pictures.add(std::move(picture)));
}

Size textSize(std::string_view text, Font font, int wrapWidth) {
    const int perByte = font == Font::Bold ? 7 : 6;
    const auto widthOf = [perByte](std::size_t bytes) { return static_cast<int>(bytes) * perByte; };
    if (wrapWidth <= 0) return {widthOf(text.size()), kLineHeight};
    // Words go on the line while they fit; one that is wider than the line stands alone.
    Size size{0, kLineHeight};
    std::size_t line = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] == '\n') {
            line = 0;
            size.height += kLineHeight;
            ++at;
            continue;
        }
        const std::size_t end = std::min(text.find_first_of(" \n", at + 1), text.size());
        std::size_t word = end - at;
        if (line > 0 && widthOf(line + word) > wrapWidth) {
            size.height += kLineHeight;
            line = 0;
            if (text[at] == ' ') --word;
        }
        line += word;
        size.width = std::max(size.width, widthOf(line));
        at = end;
    }
    return size;
}

}  // namespace platform
