#include "tray/TrayIcon.h"

#include <utility>

#include "controls/Resources.h"

namespace tray {

namespace {

constexpr std::uint32_t kIconId = 1;
constexpr int kIconSize = 16;  // pixels

}  // namespace

TrayIcon::TrayIcon(std::string tip)
    : icon_(platform::loadIconResource(controls::kProgramIcon, kIconSize)), tip_(std::move(tip)) {}

TrayIcon::~TrayIcon() {
    Remove();
}

bool TrayIcon::Create(platform::Window& parent) {
    if (!createChild(parent, "P2", "P2", {0, 0, 1, 1}, platform::TabStop::No)) return false;
    show(platform::ShowCommand::Hide);
    return true;
}

void TrayIcon::Add_Tray() {
    platform::trayAdd(*this, kIconId, icon_.raw(), tip_);
    // Even when the shell says no: busy at log-on it may add the icon late, and one already there is ours, too.
    added_ = true;
}

void TrayIcon::Put(const platform::IconHandle& icon) {
    platform::trayModify(*this, kIconId, icon.raw(), tip_);
}

void TrayIcon::PutProgramIcon() {
    Put(icon_);
}

void TrayIcon::SetTip(const std::string& tip) {
    tip_ = tip;
    if (added_) platform::trayModify(*this, kIconId, 0, tip_);
}

void TrayIcon::TrayBalloon(const std::string& text, const std::string& title, platform::BalloonIcon icon) {
    platform::trayBalloon(*this, kIconId, title, text, icon);
    // The balloon stays up; this only puts the icon's tip back in force. The picture stays whatever it is.
    platform::trayModify(*this, kIconId, 0, tip_);
}

void TrayIcon::Remove() {
    if (!added_) return;
    added_ = false;
    platform::trayDelete(*this, kIconId);
}

void TrayIcon::onTray(platform::TrayEvent event) {
    if (Notified) Notified(event);
}

}  // namespace tray
