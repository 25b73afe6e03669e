#include "platform/Menu.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Window.h"
#include "platform/win32/Bitmap.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

struct MenuTag {
    static void close(std::uintptr_t raw) noexcept { DestroyMenu(reinterpret_cast<HMENU>(raw)); }
};
using MenuHandle = Handle<MenuTag>;

UINT flagsOf(const MenuItem& item) {
    if (item.id == 0) return MF_SEPARATOR;
    return MF_STRING | (item.enabled ? MF_ENABLED : MF_GRAYED) | (item.checked ? MF_CHECKED : MF_UNCHECKED);
}

// A menu's own picture of an item, as a menu in the style of the desktop blends pictures by their fourth byte and
// would show nothing of one that has no alpha channel. Empty for none.
PictureHandle menuPicture(const PictureHandle* original) {
    if (original == nullptr) return {};
    const std::span<const Pixel> from = pixelsOf(*original);
    PictureHandle copy = newPicture(pictureSize(*original));
    const std::span<Pixel> to = pixelsOf(copy);
    if (from.empty() || to.size() != from.size()) return {};
    std::copy(from.begin(), from.end(), to.begin());
    if (hasAlpha(*original)) return copy;
    for (Pixel& p : to) p.alpha = 255;
    return copy;
}

// A menu with the pictures it shows, which it does not take along when it goes.
class PopupMenu {
public:
    explicit PopupMenu(const std::vector<MenuItem>& items)
        : menu_(reinterpret_cast<std::uintptr_t>(CreatePopupMenu())) {
        UINT position = 0;
        for (const MenuItem& item : items) {
            if (!append(item)) continue;
            setPictures(position, item);
            ++position;
        }
    }

    HMENU native() const { return reinterpret_cast<HMENU>(menu_.raw()); }

private:
    bool append(const MenuItem& item) {
        if (item.submenu.empty()) {
            return AppendMenuA(native(), flagsOf(item), static_cast<UINT_PTR>(item.id), item.text.c_str()) != FALSE;
        }
        auto submenu = std::make_unique<PopupMenu>(item.submenu);
        const auto handle = reinterpret_cast<UINT_PTR>(submenu->native());
        if (!AppendMenuA(native(), flagsOf(item) | MF_POPUP, handle, item.text.c_str())) return false;
        submenu->menu_.release();  // goes with this menu from here on
        submenus_.push_back(std::move(submenu));
        return true;
    }

    void setPictures(UINT position, const MenuItem& item) {
        if (item.id == 0) return;
        const HBITMAP plain = keep(menuPicture(item.picture));
        const HBITMAP checked = keep(menuPicture(item.checkedPicture));
        if (plain == nullptr && checked == nullptr) return;
        SetMenuItemBitmaps(native(), position, MF_BYPOSITION, plain, checked);
    }

    HBITMAP keep(PictureHandle picture) {
        if (!picture) return nullptr;
        pictures_.push_back(std::move(picture));
        return hbitmapOf(pictures_.back());
    }

    std::vector<PictureHandle> pictures_;
    std::vector<std::unique_ptr<PopupMenu>> submenus_;  // for their pictures
    MenuHandle menu_;                                   // goes first
};

}  // namespace

Size menuPictureSize() {
    return {GetSystemMetrics(SM_CXMENUCHECK), GetSystemMetrics(SM_CYMENUCHECK)};
}

int showMenu(const Window& owner, Point screen, const std::vector<MenuItem>& items) {
    if (!owner.exists() || items.empty()) return 0;
    const HWND hwnd = hwndOf(owner);  // the owner may be gone when the menu is
    const PopupMenu menu(items);
    // Either button chooses: who opened the menu with the right one goes on with it.
    const BOOL chosen =
        TrackPopupMenu(menu.native(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, hwnd, nullptr);
    // Without another message for its owner, a menu of an icon in the notification area that was dismissed by a
    // click elsewhere goes away at once when it is opened the next time.
    PostMessageA(hwnd, WM_NULL, 0, 0);
    return chosen;
}

Point pointerPosition() {
    POINT at{};
    GetCursorPos(&at);
    return {at.x, at.y};
}

}  // namespace platform
