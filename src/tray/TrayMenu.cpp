#include "tray/TrayMenu.h"

#include <span>
#include <utility>
#include <vector>

#include "controls/Resources.h"
#include "platform/Canvas.h"
#include "platform/Menu.h"
#include "platform/Picture.h"

namespace tray {

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

struct Entry {
    int id = 0;  // 0: a separator
    const char* text = nullptr;
    bool enabled = true;
    bool checked = false;
};

Color Halfway(Color a, Color b) {
    return ((a & 0xFEFEFEU) >> 1) + ((b & 0xFEFEFEU) >> 1);
}

// A picture stands in place of the check mark: the one of a checked item has to say it itself, as buttons do that
// are held down.
void DrawCheckedGround(Canvas& canvas, const Rect& area) {
    const Color menu = platform::systemColor(SysColor::Menu);
    const Color highlight = platform::systemColor(SysColor::Highlight);
    canvas.fill(area, Halfway(menu, Halfway(menu, highlight)));
    canvas.frame(area, highlight);
}

// Picture number `index` of the artwork, as large as the system wants it and on the menu's own colour: not every
// Windows leaves out parts of a menu's picture. Empty on failure, or when there is no artwork.
PictureHandle MakePicture(const PictureHandle& artwork, int index, bool enabled, bool checked) {
    if (!artwork) return {};
    const Size size = platform::menuPictureSize();
    return platform::drawPicture(size, platform::systemColor(SysColor::Menu), [&](Canvas& canvas) {
        if (checked) DrawCheckedGround(canvas, Rect::fromSize({0, 0}, size));
        const platform::Point at{(size.width - kArtwork.width) / 2, (size.height - kArtwork.height) / 2};
        const Rect source = Rect::fromSize({index * kArtwork.width, 0}, kArtwork);
        if (enabled) {
            canvas.maskedPicture(at, artwork, source, kTransparent);
        } else {
            canvas.disabledPicture(at, artwork, source, kTransparent);
        }
    });
}

// The items of one menu with the pictures they show.
class Items {
public:
    explicit Items(std::span<const Entry> entries) {
        const PictureHandle artwork = platform::loadPictureResource(controls::kMenuPictures);
        pictures_.reserve(2 * entries.size());  // the items point at them
        int command = 0;
        for (const Entry& entry : entries) {
            platform::MenuItem& item = items_.emplace_back();
            if (entry.id == 0) continue;
            item.id = entry.id;
            item.text = entry.text;
            item.enabled = entry.enabled;
            item.checked = entry.checked;
            item.picture = Keep(MakePicture(artwork, command, entry.enabled, false));
            if (entry.checked) item.checkedPicture = Keep(MakePicture(artwork, command, entry.enabled, true));
            ++command;
        }
    }

    const std::vector<platform::MenuItem>& List() const { return items_; }

private:
    const PictureHandle* Keep(PictureHandle picture) {
        return picture ? &pictures_.emplace_back(std::move(picture)) : nullptr;
    }

    std::vector<platform::MenuItem> items_;
    std::vector<PictureHandle> pictures_;
};

}  // namespace

int TrayMenu::Show(const platform::Window& owner, platform::Point at, const TrayMenuState& state) {
    const Entry entries[] = {
        // clang-format off
        {command::kSetNow, "Set Now", !state.autoSet},
        {},
        {command::kAutoSet, "Auto Set", true, state.autoSet},
        {},
        {command::kOptions, "Options", state.options},
        {command::kShowGraphs, "Show CPU Graphs", state.graphsOpen},
        {},
        {command::kExit, "Exit"},
        // clang-format on
    };
    const Items items(entries);
    return platform::showMenu(owner, at, items.List());
}

}  // namespace tray
