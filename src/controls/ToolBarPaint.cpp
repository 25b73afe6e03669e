// How the toolbar looks.
#include "controls/ToolBar.h"

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::Edge;
using platform::Point;
using platform::Rect;
using platform::SysColor;
using platform::systemColor;

namespace {

constexpr int kFocusInset = 2;

// Half way between two colours.
Color Between(Color a, Color b) {
    return ((a & 0xFEFEFE) >> 1) + ((b & 0xFEFEFE) >> 1);
}

}  // namespace

void ToolBar::onPaint(Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, Transparency() ? systemColor(SysColor::ButtonFace) : BackColor());
    for (int index = 0; index < ImageCount(); ++index) {
        const Rect line = layout_.Separator(index);
        if (!line.empty() && canvas.needsPaint(line)) canvas.edge(line, Edge::Etched);
        if (canvas.needsPaint(layout_.Button(index))) PaintButton(canvas, index);
    }
}

void ToolBar::PaintButton(Canvas& canvas, int index) const {
    const Rect area = layout_.Button(index);
    const bool pressed = index == pressed_;
    if (IsChecked(index) && !pressed) {
        // Besides its edge a button that is down has a light ground: the edge alone is easily overlooked.
        canvas.fill(area, Between(BackColor(), systemColor(SysColor::ButtonHighlight)));
    }
    PaintPicture(canvas, index);
    if (pressed || IsChecked(index)) {
        canvas.edge(area, Edge::SunkenInner);
    } else if (index == hovered_ && IsEnabled(index)) {
        canvas.edge(area, Edge::RaisedInner);
    }
    if (index == focusButton_ && focused()) canvas.focusRect(area.inset(kFocusInset, kFocusInset));
}

void ToolBar::PaintPicture(Canvas& canvas, int index) const {
    const ToolBarSlot& slot = properties_.slots[static_cast<std::size_t>(index)];
    if (!strip_ || slot.image < 0) return;
    const int size = layout_.ImageSize();
    const int inset = (layout_.Pitch() - size) / 2 + (index == pressed_ ? 1 : 0);
    const Rect area = layout_.Button(index);
    const Point at{area.left + inset, area.top + inset};
    const Rect source = Rect::fromSize({slot.image * size, 0}, {size, size});
    // A disabled picture is its shape in grey, as the platform draws disabled icons.
    if (IsEnabled(index)) {
        canvas.maskedPicture(at, strip_, source, slot.mask);
    } else {
        canvas.disabledPicture(at, strip_, source, slot.mask);
    }
}

}  // namespace controls
