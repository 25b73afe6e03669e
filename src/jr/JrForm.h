// Kestrum Jr.: one profile applied in the background. A hidden window by which it is found and asked to close, and
// an icon in the notification area.
#pragma once

#include <string>

#include "controls/FrmMsgBox.h"
#include "favorites/ApplyFavorites.h"
#include "favorites/EnforceState.h"
#include "favorites/ProcessSetWatch.h"
#include "jr/ProfileWatch.h"
#include "platform/Instance.h"
#include "platform/Timer.h"
#include "platform/Window.h"
#include "process/ErrorCounters.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"
#include "tray/TrayIcon.h"

namespace jr {

// What the icon's menu offers. Profile n has the id kProfile + n.
namespace command {
inline constexpr int kSetNow = 1;
inline constexpr int kOpenMain = 2;
inline constexpr int kExit = 3;
inline constexpr int kProfile = 10;
}  // namespace command

class JrForm : public platform::Window {
public:
    JrForm();
    ~JrForm() override;

    // Comes up with what the program was started with. False when there is nothing to run: the arguments are wrong,
    // which the user has been told, or there can be no window. While another copy runs this one waits a moment for
    // it to go; if that does not, this one says so and ends.
    bool Start(const std::string& arguments);

protected:
    void onClose() override { End(); }
    void onEndSession() override { End(); }
    void onTaskbarCreated() override;
    void onDestroyed() override;

private:
    bool CreateFrame();
    bool AloneNow();
    void WaitForOther();
    void Begin();
    void StartTicking();
    void End();

    void Tick();
    void SetFavs();
    void SetNow();
    void UseProfile(int number);
    void ShowTip();

    void Notified(platform::TrayEvent event);
    int ShowMenu();
    void Run(int id);
    void OpenMain();
    void Tell(const std::string& text);

    const std::string baseFolder_;
    process::ErrorCounters errors_;
    process::ProcessAccess access_;
    int profile_ = 1;
    ProfileWatch favorites_;
    process::ProcessSnapshot snapshot_;
    favorites::ProcessSetWatch watch_;
    favorites::EnforceState enforce_;
    favorites::ApplyResult last_;
    controls::MsgBoxes msgBoxes_;
    tray::TrayIcon trayIcon_;
    platform::MutexHandle mutex_;
    platform::TimerHandle timer_;
    bool ticking_ = false;  // timer_ is that of Tick
    int waits_ = 0;
    bool resting_ = false;  // this tick does without a look at the processes
    bool menuOpen_ = false;
};

}  // namespace jr
