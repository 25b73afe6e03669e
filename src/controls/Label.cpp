#include "controls/Label.h"

namespace controls {

using platform::Font;
using platform::SysColor;
using platform::systemColor;

bool Label::Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds) {
    return createChild(parent, "Label", instanceName, bounds, platform::TabStop::No);
}

void Label::SetCaption(const std::string& caption) {
    setText(caption);
    invalidate();
}

void Label::SetEnabled(bool enabledNow) {
    enable(enabledNow);
    invalidate();
}

platform::Size Label::PreferredSize() const {
    return platform::textSize(text(), Font::Normal);
}

void Label::onPaint(platform::Canvas& canvas, const platform::Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::ButtonFace));
    canvas.text(
        platform::Rect::fromSize({0, 0}, clientSize()), text(),
        systemColor(enabled() ? SysColor::ButtonText : SysColor::GrayText), Font::Normal,
        platform::kTextSingleLine | platform::kTextNoPrefix | platform::kTextVCenter | platform::kTextWordEllipsis);
}

}  // namespace controls
