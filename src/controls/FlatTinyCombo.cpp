#include "controls/FlatTinyCombo.h"

#include <algorithm>
#include <utility>

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::MouseAction;
using platform::MouseButton;
using platform::Point;
using platform::Rect;
using platform::rgb;
using platform::Size;
using platform::SysColor;
using platform::systemColor;

namespace key = platform::key;

namespace {

constexpr int kButtonWidth = 14;
constexpr std::uint16_t kF4 = key::kF1 + 3;

constexpr int kScrollTimer = 1;
constexpr std::uint32_t kScrollPeriod = 80;  // milliseconds a row
constexpr int kDeltaPerRow = 40;             // three rows a notch of the wheel, as lists have it

struct Shade {
    Color from, to;
};
constexpr Shade kPlain{rgb(112, 112, 112), rgb(224, 224, 224)};
constexpr Shade kLight{rgb(192, 192, 192), rgb(224, 224, 224)};
constexpr Color kArrow = rgb(0, 0, 0);
constexpr Color kArrowOnDark = rgb(255, 255, 255);
constexpr Color kArrowDisabled = rgb(150, 150, 150);

// Dark enough that only white can be seen on it.
bool Dark(Color color) {
    const auto channel = [color](unsigned shift) { return static_cast<int>(color >> shift & 0xFFU); };
    return channel(0) * 77 + channel(8) * 151 + channel(16) * 28 < 128 * 256;
}

}  // namespace

bool FlatTinyCombo::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    itemHeight_ = std::max(1, platform::textSize("Xg", platform::Font::Normal).height);
    faceHeight_ = itemHeight_ + 2;
    return createChild(parent, "FlatTinyCombo", instanceName, bounds, platform::TabStop::Yes);
}

// ---- items ----

void FlatTinyCombo::AddItem(const std::string& text) {
    CloseList();  // its rows would no longer be those of the items
    items_.push_back(text);
    ShowSelected();
}

void FlatTinyCombo::Clear() {
    CloseList();
    items_.clear();
    ShowSelected();
}

void FlatTinyCombo::SelectItem(int index) {
    selected_ = static_cast<std::int16_t>(std::clamp(index, -1, 32766) + 1);
    if (Dropped()) list_.SetRow(GetIndex());
    ShowSelected();
}

void FlatTinyCombo::ShowSelected() {
    if (exists()) invalidate();
}

const std::string& FlatTinyCombo::SelectedText() const {
    static const std::string none;
    const int index = GetIndex();
    return index >= 0 && index < Count() ? items_[static_cast<std::size_t>(index)] : none;
}

void FlatTinyCombo::SetEnabled(bool enabled) {
    CloseList();
    enable(enabled);
    ShowSelected();
}

Size FlatTinyCombo::PreferredSize() const {
    int widest = 0;
    for (const std::string& item : items_) {
        widest = std::max(widest, platform::textSize(item, platform::Font::Normal).width);
    }
    return {kComboTextLeft + widest + kComboTextLeft + kButtonWidth, faceHeight_};
}

// ---- list ----

void FlatTinyCombo::Drop() {
    if (Dropped() || items_.empty()) return;
    const Rect face = Rect::fromSize(toScreen({0, 0}), clientSize());
    if (!list_.Open(*this, face, items_, itemHeight_, GetIndex())) return;
    // All the mouse does from now on is told to this control, wherever it happens, so that the list needs no input
    // of its own, and a press anywhere else closes it.
    capture();
    invalidate();
}

void FlatTinyCombo::CloseList() {
    if (!Dropped()) return;
    stopTimer(kScrollTimer);
    scrolling_ = 0;
    list_.destroy();  // before the capture goes: its loss is then no news
    releaseCapture();
    invalidate();
}

void FlatTinyCombo::Pick(int row) {
    CloseList();
    if (row < 0 || row >= Count()) return;
    SelectItem(row);
    const auto click = Click;  // lives on when the receiver destroys the control
    if (click) click(static_cast<std::int16_t>(row));
}

// ---- mouse ----

void FlatTinyCombo::SetHovered(bool hovered) {
    if (hovered == hovered_) return;
    hovered_ = hovered;
    invalidate();
    if (!hovered && Left) Left();
}

void FlatTinyCombo::onMouse(const platform::MouseEvent& event) {
    const bool onFace = Rect::fromSize({0, 0}, clientSize()).contains(event.at);
    const Point screen = toScreen(event.at);
    const bool left = event.button == MouseButton::Left;
    if (event.action == MouseAction::Move) {
        SetHovered(onFace);
        if (onFace && Hover) Hover();
        if (Dropped()) MoveOverList(screen);
    } else if (event.action == MouseAction::Up) {
        // Let go over a row, whether it was pressed there or on the face and drawn down.
        if (!Dropped() || !left) return;
        if (const auto row = list_.RowAt(screen)) Pick(*row);
    } else if (Dropped()) {
        if (!list_.Covers(screen)) CloseList();
    } else if (left) {
        focus();
        Drop();
    }
}

void FlatTinyCombo::MoveOverList(Point screen) {
    if (const auto row = list_.RowAt(screen)) list_.SetRow(*row);
    const int scrolling = list_.ArrowAt(screen);
    if (scrolling == std::exchange(scrolling_, scrolling)) return;
    if (scrolling == 0) {
        stopTimer(kScrollTimer);
    } else {
        startTimer(kScrollTimer, kScrollPeriod);
    }
}

// As long as the pointer rests on an arrow, as menus do it.
void FlatTinyCombo::onTimer(int id) {
    if (id == kScrollTimer && Dropped()) list_.ScrollBy(scrolling_);
}

void FlatTinyCombo::onMouseLeave() {
    if (!captured()) SetHovered(false);
}

// The wheel scrolls the list, but leaves the face alone: who scrolls a window in passing must not change a value.
void FlatTinyCombo::onWheel(const platform::WheelEvent& event) {
    if (Dropped()) list_.ScrollBy(-event.delta / kDeltaPerRow);
}

void FlatTinyCombo::onCaptureLost() {
    CloseList();
    if (!underPointer()) SetHovered(false);
}

void FlatTinyCombo::onDestroyed() {
    list_.destroy();
    hovered_ = false;
}

// ---- keyboard ----

void FlatTinyCombo::onFocus(bool gained) {
    keyHeld_ = false;
    if (!gained) CloseList();
    invalidate();
}

void FlatTinyCombo::onKey(const platform::KeyEvent& event) {
    if (!event.down) {
        keyHeld_ = false;
        return;
    }
    const bool vertical = event.code == key::kUp || event.code == key::kDown;
    if (event.code == key::kSpace || (event.code == kF4 && !event.modifiers.alt) ||
        (vertical && event.modifiers.alt)) {
        ToggleByKey();
    } else if (event.modifiers.alt || event.modifiers.ctrl) {
        return;
    } else if (Dropped()) {
        ListKey(event.code);
    } else {
        FaceKey(event.code);
    }
}

void FlatTinyCombo::ToggleByKey() {
    // A key held down repeats itself, but the list must not come and go.
    if (std::exchange(keyHeld_, true)) return;
    if (Dropped()) {
        Pick(list_.Row());
    } else {
        Drop();
    }
}

void FlatTinyCombo::ListKey(std::uint16_t code) {
    if (code == key::kEnter) {
        Pick(list_.Row());
    } else if (code == key::kEscape) {
        CloseList();
    } else {
        list_.SetRow(RowFor(code, list_.Row()));
    }
}

void FlatTinyCombo::FaceKey(std::uint16_t code) {
    const int row = RowFor(code, GetIndex());
    if (row != GetIndex()) Pick(row);
}

// Where a key leads from a row; that row itself for a key that leads nowhere.
int FlatTinyCombo::RowFor(std::uint16_t code, int from) const {
    if (items_.empty()) return from;
    const int page = std::max(1, list_.ShownRows() - 1);
    const auto to = [this](int row) { return std::clamp(row, 0, Count() - 1); };
    switch (code) {
        case key::kUp:
            return to(from - 1);
        case key::kDown:
            return to(from + 1);
        case key::kPageUp:
            return Dropped() ? to(from - page) : from;
        case key::kPageDown:
            return Dropped() ? to(from + page) : from;
        case key::kHome:
            return to(0);
        case key::kEnd:
            return to(Count() - 1);
        default:
            break;
    }
    // A letter or digit leads to the next item that begins with it.
    const bool character = (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
    for (int step = 1; character && step <= Count(); ++step) {
        const int row = (std::max(from, -1) + step) % Count();
        const std::string& item = items_[static_cast<std::size_t>(row)];
        if (!item.empty() && (item[0] == code || item[0] == code + ('a' - 'A') * (code >= 'A'))) return row;
    }
    return from;
}

// ---- painting the face ----

void FlatTinyCombo::onPaint(Canvas& canvas, const Rect& dirty) {
    const Size size = clientSize();
    canvas.fill(dirty, systemColor(Enabled() ? SysColor::Window : SysColor::ButtonFace));
    PaintItem(canvas, size);
    PaintButton(canvas, size);
    const bool active = Enabled() && (focused() || hovered_ || Dropped());
    canvas.frame(Rect::fromSize({0, 0}, size), systemColor(active ? SysColor::Highlight : SysColor::ButtonShadow));
    if (focused()) canvas.focusRect({2, 1, size.width - kButtonWidth - 1, size.height - 1});
}

void FlatTinyCombo::PaintItem(Canvas& canvas, const Size& size) const {
    const int top = (size.height - itemHeight_) / 2;
    canvas.text({kComboTextLeft, top, size.width - kButtonWidth - 2, top + itemHeight_}, SelectedText(),
                systemColor(Enabled() ? SysColor::WindowText : SysColor::GrayText), platform::Font::Normal,
                platform::kTextSingleLine | platform::kTextNoPrefix | platform::kTextWordEllipsis);
}

// The swatch stands where the button is: it goes between the button's ground and its arrow, so that neither is
// lost.
void FlatTinyCombo::PaintButton(Canvas& canvas, const Size& size) const {
    const Shade& shade = hovered_ || !Enabled() ? kLight : kPlain;
    canvas.gradient({size.width - kButtonWidth, 1, size.width - 2, size.height - 1}, shade.from, shade.to,
                    platform::Direction::Vertical);
    const auto swatch = SwatchColor(SelectedText());
    if (swatch) canvas.fill(SwatchRect(size.width, (size.height - itemHeight_) / 2, itemHeight_), *swatch);
    const Color ink = !Enabled() ? kArrowDisabled : swatch && Dark(*swatch) ? kArrowOnDark : kArrow;
    // On a face of its own height the arrow is at rows 6 to 9; on a higher one it stays in the middle with the
    // text.
    const int top = 6 + (size.height - faceHeight_) / 2;
    for (int line = 0; line < 4; ++line) {
        canvas.line({size.width - 12 + line, top + line}, {size.width - 5 - line, top + line}, ink);
    }
}

}  // namespace controls
