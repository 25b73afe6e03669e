#include "tray/TrayIcon.h"

#include "controls/Resources.h"

namespace tray {

namespace {

constexpr std::uint32_t kIconId = 1;
constexpr int kIconSize = 16;  // pixels
constexpr char kTip[] = "Kestrum 2 by Tam Orrin";

}  // namespace

TrayIcon::TrayIcon(platform::Window& owner)
    : owner_(owner), icon_(platform::loadIconResource(controls::kProgramIcon, kIconSize)) {}

TrayIcon::~TrayIcon() {
    Remove();
}

void TrayIcon::Add_Tray() {
    platform::trayAdd(owner_, kIconId, icon_.raw(), kTip);
    // Even when the shell says no: busy at log-on it may add the icon late, and one already there is ours, too.
    added_ = true;
}

void TrayIcon::TrayBalloon(const std::string& text, const std::string& title, platform::BalloonIcon icon) {
    platform::trayBalloon(owner_, kIconId, title, text, icon);
    // The balloon stays up; this only puts the icon's own picture and tip back in force.
    platform::trayModify(owner_, kIconId, icon_.raw(), kTip);
}

void TrayIcon::Remove() {
    if (!added_) return;
    added_ = false;
    platform::trayDelete(owner_, kIconId);
}

}  // namespace tray
