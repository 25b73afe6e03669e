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

// A menu is on the screen a little before it listens, so the key is pressed until the menu shows that it was seen.
bool SelectNextItem(HWND menu) {
    const int before = SelectedRow(menu);
    for (int attempt = 0; attempt < 10; ++attempt) {
        PressKey(VK_DOWN);
        if (WaitFor([&] { return SelectedRow(menu) != before; }, 1000)) return true;
    }
    return false;
}

// `selected` is the item that is selected already, -1 for none.
bool SelectItem(HWND menu, int selected, int item) {
    for (int i = selected; i < item; ++i) {
        if (!SelectNextItem(menu)) return false;
    }
    return true;
}

}  // namespace

bool SelectInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner) {
    if (!Repeat(open, [] { return Menu() != nullptr; })) return false;
    const HWND menu = Menu();
    if (!SelectItem(menu, -1, item)) return false;
    if (inner) {
        PressKey(VK_RIGHT);
        if (!WaitFor([&] { return Menu() != menu && SelectedRow(Menu()) >= 0; })) return false;
        if (!SelectItem(Menu(), 0, *inner)) return false;  // it opens with its first item selected
    }
    return true;
}

bool ChooseInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner) {
    if (!SelectInMenu(open, item, inner)) return false;
    PressKey(VK_RETURN);
    return WaitFor([] { return Menu() == nullptr; });
}

}  // namespace desktop
