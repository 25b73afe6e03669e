// The main window between the screen and the notification area.
#include "app/Form1.h"
#include "settings/WindowPosition.h"

namespace app {

// The timers of the process list and of the meter go on: Auto Set works as before.
void Form1::MinimizeToTray() {
    inTray_ = true;
    FinishEdits();
    show(platform::ShowCommand::Hide);
    slots_.Stop(Slot::Memory);
    tips_.Remove();
    optionsCommands_.ShowAgain();
}

void Form1::RestoreFromTray(Raise raise) {
    inTray_ = false;
    // What the last tick saw is up to half a second old, and it saw the processes come and go without a look.
    refresh_.TakeSnapshot();
    refresh_.ForceRebuild();
    refresh_.FullRebuild();
    if (raise == Raise::Yes) {
        show(platform::ShowCommand::Normal);
        settings::BringWithinReach(*this);
        bringToFront();
    }
    optionsCommands_.BringForward();
    ShowMemory();
}

void Form1::ShowMemory() {
    gauges_.UpdateMemory();
    slots_.Start(Slot::Memory, kMemoryMilliseconds);
}

// Another copy was started. It asks for this window, too, but in vain when only this copy is elevated. The balloon
// comes first: it tells what is just happening.
void Form1::WakenUp() {
    if (!started_) return;
    trayIcon_.TrayBalloon("A copy of Kestrum 2 is already running,\r\nand has been restored to the desktop.",
                          kProgramTitle, platform::BalloonIcon::Info);
    RestoreFromTray(Raise::Yes);
    msgBoxes_.BringToFront();  // an open question comes first
}

}  // namespace app
