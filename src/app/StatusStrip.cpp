#include "app/StatusStrip.h"

#include <algorithm>

namespace app {

using platform::Rect;

namespace {
constexpr int kIndent = 6;
constexpr unsigned kFormat = platform::kTextSingleLine | platform::kTextVCenter | platform::kTextNoPrefix;

int Width(const std::string& text) {
    return platform::textSize(text, platform::Font::Normal).width;
}

}  // namespace

int StatusStrip::UsualWidth() {
    return kIndent + Width("Processes: 250 of 250  |    Favorites: 250") + kIndent;
}

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
    const int most = area.right - Width(favorites_) - kIndent;
    const int x = std::max(std::min(favoritesX_, most), kIndent + Width(processes_));
    canvas.text({x, 0, area.right, area.bottom}, favorites_, ink, platform::Font::Normal, kFormat);
}

}  // namespace app
