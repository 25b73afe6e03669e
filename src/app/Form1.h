// The main window: owns every part of the program and brings them up and down in order.
#pragma once

#include <string>

#include "app/AffinityBoxes.h"
#include "app/FavoriteCommands.h"
#include "app/LayoutMemory.h"
#include "app/MainLayout.h"
#include "app/MainToolBars.h"
#include "app/RefreshCycle.h"
#include "app/Splitter.h"
#include "app/StatusStrip.h"
#include "app/TimerSlots.h"
#include "controls/FrmMsgBox.h"
#include "controls/ToolBar.h"
#include "controls/UcList1.h"
#include "favorites/EnforceState.h"
#include "favorites/FavoritesList.h"
#include "platform/Window.h"
#include "process/ErrorCounters.h"
#include "process/ProcessAccess.h"
#include "settings/Settings.h"
#include "tray/TrayIcon.h"

namespace app {

class Form1 : public platform::Window, private RefreshHost {
public:
    Form1();
    ~Form1() override;

    // Brings the program up and shows the window; false when there can be no window. (StartUp.cpp)
    bool Start();

    // For tests, which look at the parts from outside.
    controls::UcList1& ProcessList() { return processList_; }
    controls::UcList1& FavoritesListControl() { return favoritesControl_; }
    controls::ToolBar& ToolBar1() { return toolBar1_; }
    const StatusStrip& Status() const { return status_; }
    AffinityBoxes& CpuAffinity() { return affinityBoxes_; }

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
    bool SetFavs() override { return commands_.SetFavs(); }
    void SelectionReplaced() override;
    void UpdateStatusLine() override;

    // StartUp.cpp: the steps of Start and of the way down.
    bool CreateWindows();
    bool CreateToolBars();
    bool CreateLists();
    void WireEvents();
    void LoadFavorites();
    void RestorePlacement();
    void ShowFirstTime();
    void SaveSettings();
    void Unload();

    // Form1.cpp
    void ToolBar1Clicked(int index);
    void FavoritesKey(std::uint16_t code);
    void ViewHelp();
    void ApplyColumns(bool maximized);
    void CaptureColumns(bool maximized);
    void LayOut();
    void MoveSplitter(int left);

    settings::Settings settings_;
    process::ErrorCounters errors_;
    process::ProcessAccess access_;
    const std::string baseFolder_;
    favorites::EnforceState enforce_;
    TimerSlots slots_;
    BusyFlag busy_;
    controls::MsgBoxes msgBoxes_;

    controls::ToolBar toolBar1_;
    controls::ToolBar toolBar2_;
    AffinityBoxes affinityBoxes_;
    controls::UcList1 processList_;
    Splitter splitter_;
    controls::UcList1 favoritesControl_;
    StatusStrip status_;

    tray::TrayIcon trayIcon_;
    RefreshCycle refresh_;
    favorites::FavoritesList favorites_;
    FavoriteCommands commands_;

    MainParts parts_;
    LayoutMemory layouts_;
    bool maximized_ = false;  // the set of column widths in use
    bool started_ = false;
    bool wasMinimized_ = false;
};

}  // namespace app
