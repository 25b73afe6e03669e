// What the notification area does for the user: the meter and the menu of the icon.
#pragma once

#include <cstdint>
#include <functional>

#include "app/FavoriteCommands.h"
#include "app/Gauges.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "controls/FrmMsgBox.h"
#include "controls/ToolBar.h"
#include "graphs/CpuGraphs.h"
#include "process/CpuTotals.h"
#include "process/clsCPUUsage.h"
#include "settings/DisplayOptions.h"
#include "tray/TrayIcon.h"
#include "tray/TrayMenu.h"
#include "tray/TrayMeter.h"

namespace app {

inline constexpr std::uint32_t kTrayMilliseconds = 500;  // from one picture of the meter to the next

class TrayCommands {
public:
    // The parts of the main window that the commands work on; all outlive the commands.
    struct Parts {
        platform::Window& window;
        tray::TrayIcon& icon;
        TimerSlots& slots;
        BusyFlag& busy;
        controls::MsgBoxes& msgBoxes;
        controls::ToolBar& toolBar;
        FavoriteCommands& favorites;
        Gauges& gauges;
        graphs::CpuGraphs& graphs;
    };
    explicit TrayCommands(const Parts& parts) : parts_(parts) {}

    std::function<void()> Restore;      // the user asks for the window
    std::function<void()> ShowOptions;  // and for the options dialog
    std::function<void()> Exit;         // the user ends the program; its timers have been stopped

    // Type and colours of the meter.
    void Show(const settings::DisplayOptions& options);
    // One tick: reads the processor load, shows it in the gauge and in the notification area.
    void TrayTimer();
    // The plain program icon back in place of the meter.
    void TrayIconOff();
    // What the user does at the icon.
    void Notified(platform::TrayEvent event);
    // Runs a command of the icon's menu; ids that are none do nothing.
    void MnuTraySel(int id);

    // Whoever shows the average may begin it anew.
    process::CpuTotals& Totals() { return totals_; }
    const process::CpuTotals& Totals() const { return totals_; }

private:
    void ShowMenu();

    Parts parts_;
    process::clsCPUUsage cpuUsage_;
    process::CpuTotals totals_;
    tray::TrayMeter meter_;
    tray::TrayMenu menu_;
};

}  // namespace app
