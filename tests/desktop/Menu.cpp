#include "desktop/Menu.h"

#include "desktop/Driver.h"

namespace desktop {

namespace {

constexpr const char* kMenuClass = "#32768";

// A menu that is shown, whoever's it is; the one inside another when there are two.
HWND Menu() {
    const HWND menu = FindWindowA(kMenuClass, nullptr);
    return menu != nullptr && IsWindowVisible(menu) ? menu : nullptr;
}

// First row of the selected item, -1 without one.
int SelectedRow(HWND menu) {
    const DWORD color = GetSysColor(COLOR_HIGHLIGHT);
    const std::uint32_t highlight = GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color);
    const Picture picture(nullptr, ScreenRect(menu));
    const int column = picture.Width() - 8;  // right of the texts
    for (int y = 0; y < picture.Height(); ++y) {
        if (picture.At(column, y) == highlight) return y;
    }
    return -1;
}

// Keys that select an item, and one of the menu inside it. They are posted: a menu is on the screen a little before
// it listens. They begin with the first item, so that they may be repeated.
void PressKeysFor(HWND menu, int item, std::optional<int> inner) {
    const auto down = [menu](int times) {
        while (times-- > 0) PressKeyIn(menu, VK_DOWN);
    };
    PressKeyIn(menu, VK_HOME);
    down(item);
    if (!inner) return;
    PressKeyIn(menu, VK_RIGHT);  // it opens with its first item selected
    down(*inner);
}

}  // namespace

bool SelectInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner) {
    if (!Repeat(open, [] { return Menu() != nullptr; })) return false;
    const HWND menu = Menu();
    PressKeysFor(menu, item, inner);
    return WaitFor([&] { return (!inner || Menu() != menu) && SelectedRow(Menu()) >= 0; });
}

bool ChooseInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner) {
    if (!Repeat(open, [] { return Menu() != nullptr; })) return false;
    // Once more when a late click has opened it anew.
    return Repeat(
        [&](int) {
            const HWND menu = Menu();
            PressKeysFor(menu, item, inner);
            PressKeyIn(menu, VK_RETURN);
        },
        [] { return Menu() == nullptr; });
}

}  // namespace desktop
