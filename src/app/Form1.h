// The main window: owns every part of the program and brings them up and down in order.
#pragma once

#include <string>

#include "app/AffinityBoxes.h"
#include "app/FavoriteCommands.h"
#include "app/FavoriteSettings.h"
#include "app/FilterCommands.h"
#include "app/Gauges.h"
#include "app/Hotkeys.h"
#include "app/LayoutMemory.h"
#include "app/MainLayout.h"
#include "app/MainToolBars.h"
#include "app/Messages.h"
#include "app/OptionsCommands.h"
#include "app/ParamEditor.h"
#include "app/ProcessCommands.h"
#include "app/ProfileCommands.h"
#include "app/RefreshCycle.h"
#include "app/SingleInstance.h"
#include "app/Splitter.h"
#include "app/StatusStrip.h"
#include "app/TimerSlots.h"
#include "app/TrayCommands.h"
#include "controls/BalloonTips.h"
#include "controls/FlatTinyCombo.h"
#include "controls/FrmMsgBox.h"
#include "controls/ToolBar.h"
#include "controls/UcList1.h"
#include "controls/XPbutn.h"
#include "favorites/EnforceState.h"
#include "favorites/FavoritesList.h"
#include "filter/FileFilter.h"
#include "graphs/CpuGraphs.h"
#include "graphs/FrmColorMeter.h"
#include "graphs/GraphOptions.h"
#include "platform/Window.h"
#include "process/ErrorCounters.h"
#include "process/ProcessAccess.h"
#include "settings/DisplayOptions.h"
#include "settings/Settings.h"
#include "tray/TrayIcon.h"

namespace app {

class Form1 : public platform::Window, private RefreshHost {
public:
    Form1();
    ~Form1() override;

    enum class StartResult {
        Running,
        Duplicate,  // another copy runs and has been woken; this one is to end without a trace
        Failed,     // there can be no window
    };
    // Brings the program up, in its window or in the notification area. (StartUp.cpp)
    StartResult Start();
    // Runs until the program has ended, by whatever way, and gives its exit code. (ShutDown.cpp)
    int Run();
    // Starts the program anew, for settings that count only from the start, and ends this one. (ShutDown.cpp)
    void Restart();

    // For tests, which look at the parts from outside.
    controls::UcList1& ProcessList() { return processList_; }
    controls::UcList1& FavoritesListControl() { return favoritesControl_; }
    controls::ToolBar& ToolBar1() { return toolBar1_; }
    controls::ToolBar& ToolBar2() { return toolBar2_; }
    controls::FlatTinyCombo& Priority() { return cmboPriority_; }
    const StatusStrip& Status() const { return status_; }
    AffinityBoxes& CpuAffinity() { return affinityBoxes_; }
    TrayCommands& Tray() { return trayCommands_; }
    RefreshCycle& Refresh() { return refresh_; }
    graphs::FrmColorMeter& TotalGraph() { return totalGraph_; }
    graphs::CpuGraphs& Graphs() { return graphs_; }

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSize(platform::Size client, platform::WindowState state) override;
    void onClose() override;
    void onEndSession() override;
    void onTaskbarCreated() override;
    void onDestroyed() override;
    platform::Size minimumSize() const override;

private:
    // RefreshHost
    bool Minimized() const override { return state() == platform::WindowState::Minimized; }
    bool AutoSetPressed() const override { return toolBar1_.IsChecked(button::kAutoSet); }
    bool FilterPressed() const override { return filterCommands_.Pressed(); }
    bool SetFavs() override { return commands_.SetFavs(); }
    void SelectionReplaced() override;
    void UpdateStatusLine() override;

    // StartUp.cpp: the steps of Start.
    bool CreateFrame();
    bool CreateParts();
    bool CreateToolBars();
    bool CreateChoosers();
    bool CreateLists();
    void WireEvents();
    void WireProcessCommands();
    void WireFavorites();
    void WireLists();
    void WireGraphs();
    void WireTips();
    process::TipText TipOfProcess(int row);
    process::TipText TipOfFavorite(int row);
    void LoadFavorites();
    void ReadUnread();
    void LoadOptions();
    void RestorePlacement();
    void ShowFirstTime();

    // ShutDown.cpp
    void Exit();
    void StopTimers();
    void StartAnew();
    void RestoreDefaults();
    void CloseGraphs();
    void Save();
    void SaveSettings();
    void Unload();

    // TrayLife.cpp: into the notification area and back.
    enum class Raise { No, Yes };
    void MinimizeToTray();
    void RestoreFromTray(Raise raise);
    void WakenUp();
    void ShowMemory();

    // Form1.cpp
    void ToolBar1Clicked(int index);
    platform::Point BelowButton(int index) const;
    void FavoritesKey(std::uint16_t code);
    void FinishEdits();
    void ViewHelp();
    platform::Pointer DragOver() const;
    void ApplyColumns(bool maximized);
    void CaptureColumns(bool maximized);
    void FrmMax() { UseLayout(true); }
    void FrmRestore() { UseLayout(false); }
    void UseLayout(bool maximized);
    void LayOut();
    void MoveSplitter(int left);
    void ResetColumns();
    void SetFavsNow();

    settings::Settings settings_;
    settings::DisplayOptions options_;
    graphs::GraphOptions graphOptions_;
    SingleInstance instance_;
    process::ErrorCounters errors_;
    process::ProcessAccess access_;
    const std::string baseFolder_;
    favorites::EnforceState enforce_;
    TimerSlots slots_;
    BusyFlag busy_;
    controls::MsgBoxes msgBoxes_;
    controls::BalloonTips tips_;
    Messages messages_;

    controls::ToolBar toolBar1_;
    controls::ToolBar toolBar2_;
    AffinityBoxes affinityBoxes_;
    controls::FlatTinyCombo cmboPriority_;
    controls::XPbutn cmdInvert_;
    controls::XPbutn cmdRefresh_;
    controls::UcList1 processList_;
    Splitter splitter_;
    controls::UcList1 favoritesControl_;
    StatusStrip status_;
    Gauges gauges_;

    tray::TrayIcon trayIcon_;
    filter::FileFilter filter_;
    graphs::CpuGraphs graphs_;
    RefreshCycle refresh_;
    favorites::FavoritesList favorites_;
    FavoriteCommands commands_;
    FilterCommands filterCommands_;
    ProcessCommands processCommands_;
    ProfileCommands profileCommands_;
    ParamEditor paramEditor_;
    FavoriteSettings favoriteSettings_;
    TrayCommands trayCommands_;
    graphs::FrmColorMeter totalGraph_;
    Hotkeys hotkeys_;
    OptionsCommands optionsCommands_;

    MainParts parts_;
    LayoutMemory layouts_;
    bool maximized_ = false;  // the set of column widths in use
    bool started_ = false;
    bool saved_ = false;
    bool saveOnExit_ = true;  // not when everything has just been forgotten
    bool inTray_ = false;     // the window is hidden; nobody keeps the process list meanwhile
};

}  // namespace app
