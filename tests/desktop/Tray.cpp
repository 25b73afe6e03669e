#include "desktop/Tray.h"

#include <shellapi.h>

#include "desktop/Session.h"

namespace desktop {

namespace {

constexpr Rect kPlace{1260, 780, 1280, 800};  // of the only icon, on a screen of 1280 x 800
constexpr Point kMiddle{1272, 788};
constexpr const char* kMenuClass = "#32768";

// A menu that is shown, whoever's it is.
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

}  // namespace

Picture TrayPicture() {
    return {nullptr, kPlace};
}

bool TrayHasIcon() {
    return !TrayPicture().Plain();
}

void DoubleClickTray() {
    ClickScreen(kMiddle, MouseKey::Left);
    ClickScreen(kMiddle, MouseKey::Left);
    ParkPointer();
}

bool ChooseInTray(int item) {
    const auto open = [](int) { ClickScreen(kMiddle, MouseKey::Right); };
    if (!Repeat(open, [] { return Menu() != nullptr; })) return false;
    for (int i = 0; i <= item; ++i) {
        if (!SelectNextItem(Menu())) return false;
    }
    PressKey(VK_RETURN);
    return WaitFor([] { return Menu() == nullptr; });
}

void LoseTrayIcon(HWND main) {
    NOTIFYICONDATAA record{};
    record.cbSize = NOTIFYICONDATAA_V2_SIZE;
    record.hWnd = Child(main, "P2", "P2");
    record.uID = 1;
    Shell_NotifyIconA(NIM_DELETE, &record);
}

void AnnounceShell() {
    PostMessageA(HWND_BROADCAST, RegisterWindowMessageA("TaskbarCreated"), 0, 0);
}

}  // namespace desktop
