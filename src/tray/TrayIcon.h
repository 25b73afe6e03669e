// The program's icon in the notification area and its balloons.
#pragma once

#include <string>

#include "platform/Picture.h"
#include "platform/Tray.h"
#include "platform/Window.h"

namespace tray {

class TrayIcon {
public:
    // `owner` receives the icon's events and must outlive this object.
    explicit TrayIcon(platform::Window& owner);
    ~TrayIcon();  // removes the icon
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    // Adds the icon; also to be called when the shell has come back. A refusal leaves the program without an
    // icon until then. trayAdd.
    void Add_Tray();
    // Shows a balloon at the icon. trayBalloon, trayModify.
    void TrayBalloon(const std::string& text, const std::string& title, platform::BalloonIcon icon);
    // Takes the icon away; does nothing when it is not there. trayDelete.
    void Remove();

private:
    platform::Window& owner_;
    platform::IconHandle icon_;
    bool added_ = false;
};

}  // namespace tray
