#include "desktop/Tray.h"

#include "desktop/Menu.h"

namespace desktop {

namespace {

constexpr Rect kPlace{1260, 780, 1280, 800};  // of the only icon, on a screen of 1280 x 800
constexpr Point kMiddle{1272, 788};

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
    return ChooseInMenu([](int) { ClickScreen(kMiddle, MouseKey::Right); }, item);
}

void LoseTrayIcon(HWND main) {
    RemoveTrayIcon(Child(main, "P2", "P2"));
}

void AnnounceShell() {
    PostMessageA(HWND_BROADCAST, RegisterWindowMessageA("TaskbarCreated"), 0, 0);
}

}  // namespace desktop
