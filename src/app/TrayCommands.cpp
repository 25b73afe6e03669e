#include "app/TrayCommands.h"

#include "app/MainToolBars.h"
#include "platform/Menu.h"
#include "platform/Sound.h"

namespace app {

using platform::TrayEvent;
using platform::WindowState;

void TrayCommands::Show(const settings::DisplayOptions& options) {
    meter_.SetType(tray::MeterTypeFromSetting(options.trayType));
    meter_.SetBorderColor(options.trayBorder);
    meter_.SetTrayColor(options.trayColor);
}

void TrayCommands::TrayTimer() {
    const std::int32_t percent = cpuUsage_.CurrentCPUUsage();
    totals_.sum += percent;
    ++totals_.samples;
    totals_.last = percent;
    if (parts_.window.state() != WindowState::Minimized) parts_.gauges.ShowCpu(percent);
    const platform::IconHandle icon = meter_.Draw(percent);
    if (icon) parts_.icon.Put(icon);
}

void TrayCommands::TrayIconOff() {
    const PausedSlot pause(parts_.slots, Slot::Tray, kTrayMilliseconds);
    parts_.icon.PutProgramIcon();
}

void TrayCommands::Notified(TrayEvent event) {
    parts_.slots.Retry();
    if (parts_.busy.Raised() || parts_.msgBoxes.Showing()) {
        // A question or a dialog of ours, of whichever window, is open and comes first.
        if (event != TrayEvent::LeftUp && event != TrayEvent::RightUp) return;
        if (parts_.window.visible()) parts_.window.bringToFront();
        parts_.msgBoxes.BringToFront();  // which may be another window's
        platform::beep();
    } else if (event == TrayEvent::LeftDoubleClick) {
        Restore();
    } else if (event == TrayEvent::RightUp) {
        ShowMenu();
    } else if (event == TrayEvent::BalloonClicked) {
        if (parts_.window.state() != WindowState::Minimized) parts_.window.bringToFront();
    }
}

void TrayCommands::ShowMenu() {
    // In front, so that the menu goes when the user clicks elsewhere.
    parts_.icon.bringToFront();
    tray::TrayMenuState state;
    state.autoSet = parts_.favorites.AutoSetPressed();
    state.graphsOpen = parts_.graphs.AnyOpen();
    MnuTraySel(menu_.Show(parts_.icon, platform::pointerPosition(), state));
}

void TrayCommands::MnuTraySel(int id) {
    switch (id) {
        case tray::command::kSetNow:
            parts_.favorites.SetFavs();
            break;
        case tray::command::kAutoSet:
            parts_.toolBar.SetChecked(button::kAutoSet, !parts_.favorites.AutoSetPressed());
            parts_.favorites.AutoSetToggled();
            break;
        case tray::command::kOptions:
            ShowOptions();
            break;
        case tray::command::kShowGraphs:
            parts_.graphs.ShowAll();
            break;
        case tray::command::kExit:
            parts_.slots.StopAll();
            Exit();
            break;
        default:
            break;
    }
}

}  // namespace app
