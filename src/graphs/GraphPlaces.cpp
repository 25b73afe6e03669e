#include "graphs/GraphPlaces.h"

#include <algorithm>

#include "platform/Window.h"

namespace graphs {

namespace {

using platform::Rect;
using platform::Size;

constexpr int kGap = 4;  // pixels between graphs, and to the edges
constexpr Size kCell{kGraphSize.width + kGap, kGraphSize.height + kGap};
constexpr Rect kFirstScreen{0, 0, 1, 1};  // which has the origin

}  // namespace

std::optional<Rect> RememberedPlace(int slot, const settings::Settings& settings) {
    const auto top = settings.GraphTop(slot);
    const auto left = settings.GraphLeft(slot);
    if (!top || !left) return std::nullopt;
    return Rect::fromSize({*left, *top}, kGraphSize);
}

Rect FreePlace(int slot, const settings::Settings& settings, std::vector<Rect> taken) {
    for (int other = 1; other <= settings::kGraphSlots; ++other) {
        if (const auto place = RememberedPlace(other, settings)) taken.push_back(*place);
    }
    const Rect area = platform::nearestWorkArea(kFirstScreen);
    const int columns = std::max(1, (area.width() - kGap) / kCell.width);
    const int rows = std::max(1, (area.height() - kGap) / kCell.height);
    const auto cell = [&](int index) {
        return Rect::fromSize(
            {area.right - (index / rows + 1) * kCell.width, area.bottom - (index % rows + 1) * kCell.height},
            kGraphSize);
    };
    for (int index = 0; index < columns * rows; ++index) {
        const Rect place = cell(index);
        const auto meets = [&](const Rect& other) { return place.intersects(other); };
        if (std::none_of(taken.begin(), taken.end(), meets)) return place;
    }
    return cell((slot - 1) % (columns * rows));
}

}  // namespace graphs
