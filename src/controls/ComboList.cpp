#include "controls/ComboList.h"

#include <algorithm>
#include <string_view>

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::Point;
using platform::Rect;
using platform::rgb;
using platform::Size;
using platform::SysColor;
using platform::systemColor;

namespace {

constexpr struct {
    std::string_view name;
    Color color;
} kSwatches[] = {
    {"Black", rgb(0, 0, 0)},       {"Blue", rgb(0, 0, 255)},     {"Cyan", rgb(0, 255, 255)},
    {"Green", rgb(0, 255, 0)},     {"Purple", rgb(255, 0, 255)}, {"Red", rgb(255, 0, 0)},
    {"White", rgb(255, 255, 255)}, {"Yellow", rgb(255, 255, 0)},
};

constexpr int kArrowHeight = 9;  // of the strips at both ends of a list that scrolls
constexpr int kArrowRows = 4;

constexpr int kBorder = 1;  // of the popup window: its text stands under that of the face

// Any size a border fits around.
constexpr Rect kTrial{0, 0, 100, 100};

}  // namespace

std::optional<Color> SwatchColor(const std::string& text) {
    for (const auto& swatch : kSwatches) {
        if (swatch.name == text) return swatch.color;
    }
    return std::nullopt;
}

Rect SwatchRect(int width, int itemTop, int itemHeight) {
    return {width - 14, itemTop, width - 4, itemTop + itemHeight - 3};
}

bool ComboList::Open(platform::Window& owner, const Rect& face, const std::vector<std::string>& items,
                     int itemHeight, int row) {
    items_ = &items;
    itemHeight_ = itemHeight;
    faceWidth_ = face.width();
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Popup;
    spec.className = "FlatTinyComboList";
    spec.parent = &owner;
    spec.bounds = kTrial;
    if (!create(spec)) return false;
    Place(face);
    first_ = 0;
    row_ = row;
    SetRow(row);
    show(platform::ShowCommand::ShowInactive);
    return true;
}

void ComboList::Place(const Rect& face) {
    const Rect work = platform::nearestWorkArea(face);
    const Size client = clientSize();
    const int border = bounds().height() - client.height;
    const int below = work.bottom - face.bottom;
    const int above = face.top - work.top;
    const int whole = Count() * itemHeight_ + border;
    const bool upwards = whole > below && above > below;
    const int room = upwards ? above : below;
    shown_ = Count();
    int height = whole;
    if (whole > room) {
        shown_ = std::clamp((room - border - 2 * kArrowHeight) / itemHeight_, 1, Count());
        height = shown_ * itemHeight_ + 2 * kArrowHeight + border;
    }
    const int left = std::max(work.left, std::min(face.left, work.right - face.width()));
    const int top = upwards ? face.top - height : face.bottom;
    setBounds(Rect::fromSize({left, top}, {face.width(), height}));
}

void ComboList::SetRow(int row) {
    row_ = row;
    invalidate();
    if (row < 0 || row >= Count()) return;
    if (row < first_) ScrollBy(row - first_);
    if (row >= first_ + shown_) ScrollBy(row - first_ - shown_ + 1);
}

void ComboList::ScrollBy(int rows) {
    const int first = std::clamp(first_ + rows, 0, std::max(0, Count() - shown_));
    if (first == first_) return;
    first_ = first;
    invalidate();
}

// ---- geometry ----

Point ComboList::Local(Point screen) const {
    const Point origin = toScreen({0, 0});
    return {screen.x - origin.x, screen.y - origin.y};
}

Rect ComboList::Rows() const {
    const int top = shown_ < Count() ? kArrowHeight : 0;
    return {0, top, clientSize().width, top + shown_ * itemHeight_};
}

std::optional<int> ComboList::RowAt(Point screen) const {
    const Point at = Local(screen);
    const Rect rows = Rows();
    if (!rows.contains(at)) return std::nullopt;
    return first_ + (at.y - rows.top) / itemHeight_;
}

int ComboList::ArrowAt(Point screen) const {
    const Point at = Local(screen);
    const Rect rows = Rows();
    if (shown_ == Count() || !Covers(screen) || rows.contains(at)) return 0;
    return at.y < rows.top ? -1 : 1;
}

// ---- painting ----

void ComboList::onPaint(Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::Menu));
    for (int row = first_; row < first_ + shown_; ++row) PaintRow(canvas, row);
    if (shown_ == Count()) return;
    PaintArrow(canvas, false);
    PaintArrow(canvas, true);
}

void ComboList::PaintRow(Canvas& canvas, int row) const {
    const std::string& text = (*items_)[static_cast<std::size_t>(row)];
    const Rect rows = Rows();
    const int top = rows.top + (row - first_) * itemHeight_;
    const Rect area{0, top, rows.right, top + itemHeight_};
    const bool selected = row == row_;
    if (selected) canvas.fill(area, systemColor(SysColor::Highlight));
    const auto swatch = SwatchColor(text);
    const Rect box = SwatchRect(faceWidth_, top, itemHeight_);
    if (swatch) {
        canvas.frame(box.inset(-1, -1),
                     systemColor(SysColor::ButtonShadow));  // white would be lost on most grounds
        canvas.fill(box, *swatch);
    }
    canvas.text({kComboTextLeft - kBorder, area.top, swatch ? box.left : area.right, area.bottom}, text,
                systemColor(selected ? SysColor::HighlightText : SysColor::MenuText), platform::Font::Normal,
                platform::kTextSingleLine | platform::kTextNoPrefix | platform::kTextWordEllipsis);
}

void ComboList::PaintArrow(Canvas& canvas, bool down) const {
    const Rect rows = Rows();
    const bool more = down ? first_ + shown_ < Count() : first_ > 0;
    const Color ink = systemColor(more ? SysColor::MenuText : SysColor::GrayText);
    const int middle = rows.right / 2;
    const int top = (down ? rows.bottom : 0) + (kArrowHeight - kArrowRows) / 2;
    for (int line = 0; line < kArrowRows; ++line) {
        const int half = down ? kArrowRows - 1 - line : line;
        canvas.line({middle - half, top + line}, {middle + half + 1, top + line}, ink);
    }
}

}  // namespace controls
