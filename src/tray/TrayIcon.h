// A program's icon in the notification area and its balloons.
#pragma once

#include <functional>
#include <string>

#include "platform/Event.h"
#include "platform/Picture.h"
#include "platform/Tray.h"
#include "platform/Window.h"

namespace tray {

// Itself the hidden window `P2` that owns the icon and is told what the user does at it.
class TrayIcon : public platform::Window {
public:
    std::function<void(platform::TrayEvent)> Notified;

    // `tip` is what the user reads at the icon.
    explicit TrayIcon(std::string tip = "Kestrum 2 by Tam Orrin");
    ~TrayIcon() override;  // removes the icon

    // A child of the main window, never shown. False when there is no window.
    bool Create(platform::Window& parent);

    // Adds the icon with the program's own picture; also to be called when the shell has come back. A refusal
    // leaves the program without an icon until then. trayAdd.
    void Add_Tray();
    // Shows another picture. The shell keeps a copy: the icon may be destroyed at once. trayModify.
    void Put(const platform::IconHandle& icon);
    void PutProgramIcon();
    void SetTip(const std::string& tip);
    // Shows a balloon at the icon. trayBalloon, trayModify.
    void TrayBalloon(const std::string& text, const std::string& title, platform::BalloonIcon icon);
    // Takes the icon away; does nothing when it is not there. trayDelete.
    void Remove();

protected:
    void onTray(platform::TrayEvent event) override;

private:
    platform::IconHandle icon_;
    std::string tip_;
    bool added_ = false;
};

}  // namespace tray
