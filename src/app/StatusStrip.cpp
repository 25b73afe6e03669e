#include "app/StatusStrip.h"

#include <algorithm>

namespace app {

using platform::Rect;

namespace {
constexpr int kIndent = 6;
constexpr unsigned kFormat = platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix;
}  // namespace

bool StatusStrip::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    return createChild(parent, "StatusStrip", instanceName, bounds, platform::TabStop::No);
}

void StatusStrip::Print(const std::string& processes, const std::string& favorites, int favoritesX) {
    if (processes == processes_ && favorites == favorites_ && favoritesX == favoritesX_) return;
    processes_ = processes;
    favorites_ = favorites;
    favoritesX_ = favoritesX;
    invalidate();
}

void StatusStrip::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    using platform::SysColor;
    canvas.fill(dirty, platform::systemColor(SysColor::ButtonFace));
    const Rect area = Rect::fromSize({0, 0}, clientSize());
    const platform::Color ink = platform::systemColor(SysColor::ButtonText);
    const Rect left{kIndent, 0, area.right, area.bottom};
    canvas.text(left, processes_, ink, platform::Font::Normal, kFormat);
    const int x = std::max(favoritesX_, kIndent + platform::textSize(processes_, platform::Font::Normal).width);
    canvas.text({x, 0, area.right, area.bottom}, favorites_, ink, platform::Font::Normal, kFormat);
}

}  // namespace app
