#include "tray/TrayIcon.h"

namespace tray {

namespace {

constexpr std::uint32_t kIconId = 1;
constexpr int kProgramIcon = 1;  // resource
constexpr int kIconSize = 16;    // pixels
constexpr char kTip[] = "Kestrum 2 by Tam Orrin";

}  // namespace

TrayIcon::TrayIcon(platform::Window& owner)
    : owner_(owner), icon_(platform::loadIconResource(kProgramIcon, kIconSize)) {}

TrayIcon::~TrayIcon() {
    Remove();
}

void TrayIcon::Add_Tray() {
    // The shell refuses an icon it has already; that one is still ours to remove.
    if (platform::trayAdd(owner_, kIconId, icon_.raw(), kTip)) added_ = true;
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
