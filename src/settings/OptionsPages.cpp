#include "settings/OptionsPages.h"

namespace settings {

using platform::Rect;
using platform::SysColor;
using platform::systemColor;

namespace {
// The mark lies within the border of the button and leaves its round corners and the focus rectangle alone.
constexpr int kMarkInset = 2;
constexpr int kMarkHeight = 3;
}  // namespace

bool OptionsPage::Create(platform::Window& parent, const std::string& instanceName) {
    return createChild(parent, "Framez", instanceName, {0, 0, 1, 1}, platform::TabStop::No);
}

void OptionsPage::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::ButtonFace));
    canvas.edge(Rect::fromSize({0, 0}, clientSize()), platform::Edge::Etched);
}

void OptionsPageButton::SetActive(bool active) {
    if (active == active_) return;
    active_ = active;
    if (exists()) invalidate();
}

void OptionsPageButton::Paint(platform::Canvas& canvas, const Rect& area) {
    XPbutn::Paint(canvas, area);
    if (!active_) return;
    const int bottom = area.bottom - 1;
    canvas.fill({area.left + kMarkInset, bottom - kMarkHeight, area.right - kMarkInset, bottom},
                systemColor(SysColor::Highlight));
}

}  // namespace settings
