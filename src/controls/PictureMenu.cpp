#include "controls/PictureMenu.h"

#include <deque>
#include <span>
#include <utility>
#include <vector>

#include "controls/Resources.h"
#include "platform/Canvas.h"
#include "platform/Menu.h"
#include "platform/Picture.h"

namespace controls {

namespace {

using platform::Canvas;
using platform::Color;
using platform::PictureHandle;
using platform::Rect;
using platform::Size;
using platform::SysColor;

constexpr Color kTransparent = platform::rgb(255, 255, 255);
// The size of check marks on most systems. Where they are larger, the picture stands in the middle: as crisp as it
// was drawn.
constexpr Size kArtwork{13, 13};

Color Halfway(Color a, Color b) {
    return ((a & 0xFEFEFEU) >> 1) + ((b & 0xFEFEFEU) >> 1);
}

// A picture stands in place of the check mark: the one of a checked item has to say it itself, as buttons do that
// are held down. The frame lies over the picture, which may fill the place.
Color CheckedGround() {
    const Color menu = platform::systemColor(SysColor::Menu);
    return Halfway(menu, Halfway(menu, platform::systemColor(SysColor::Highlight)));
}

// Picture number `index` of the artwork, as large as the system wants it and on the menu's own colour: not every
// Windows leaves out parts of a menu's picture. Empty on failure, or when there is none.
PictureHandle MakePicture(const PictureHandle& artwork, int index, bool enabled, bool checked) {
    if (!artwork || index < 0) return {};
    const Size size = platform::menuPictureSize();
    return platform::drawPicture(size, platform::systemColor(SysColor::Menu), [&](Canvas& canvas) {
        const Rect area = Rect::fromSize({0, 0}, size);
        if (checked) canvas.fill(area, CheckedGround());
        const platform::Point at{(size.width - kArtwork.width) / 2, (size.height - kArtwork.height) / 2};
        const Rect source = Rect::fromSize({index * kArtwork.width, 0}, kArtwork);
        if (enabled) {
            canvas.maskedPicture(at, artwork, source, kTransparent);
        } else {
            canvas.disabledPicture(at, artwork, source, kTransparent);
        }
        if (checked) canvas.frame(area, platform::systemColor(SysColor::Highlight));
    });
}

// The items of one menu with the pictures they show.
class Items {
public:
    explicit Items(std::span<const MenuEntry> entries) {
        items_ = Make(entries, platform::loadPictureResource(kMenuPictures));
    }

    const std::vector<platform::MenuItem>& List() const { return items_; }

private:
    std::vector<platform::MenuItem> Make(std::span<const MenuEntry> entries, const PictureHandle& artwork) {
        std::vector<platform::MenuItem> items;
        for (const MenuEntry& entry : entries) {
            platform::MenuItem& item = items.emplace_back();
            if (entry.id == 0) continue;
            item.id = entry.id;
            item.text = entry.text;
            item.enabled = entry.enabled;
            item.checked = entry.checked;
            item.picture = Keep(MakePicture(artwork, entry.picture, entry.enabled, false));
            if (entry.checked) item.checkedPicture = Keep(MakePicture(artwork, entry.picture, entry.enabled, true));
            item.submenu = Make(entry.submenu, artwork);
        }
        return items;
    }

    const PictureHandle* Keep(PictureHandle picture) {
        return picture ? &pictures_.emplace_back(std::move(picture)) : nullptr;
    }

    std::vector<platform::MenuItem> items_;
    std::deque<PictureHandle> pictures_;  // which stay where they are: the items point at them
};

}  // namespace

int ShowPictureMenu(const platform::Window& owner, platform::Point screen, std::span<const MenuEntry> entries) {
    const Items items(entries);
    return platform::showMenu(owner, screen, items.List());
}

}  // namespace controls
