// What the user does with the processes selected in the list.
#pragma once

#include <string>
#include <vector>

#include "app/AffinityBoxes.h"
#include "app/FavoriteCommands.h"
#include "app/FilterCommands.h"
#include "app/Messages.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "controls/FlatTinyCombo.h"
#include "controls/ToolBar.h"
#include "controls/UcList1.h"
#include "favorites/FavoritesList.h"
#include "graphs/CpuGraphs.h"
#include "process/ProcessAccess.h"
#include "settings/DisplayOptions.h"
#include "settings/Settings.h"

namespace app {

// Commands of the list's menu and of ToolBar2.
namespace command {
inline constexpr int kAddToFavorites = 1, kAddToFilter = 2, kFilterDialog = 4, kFileExtensions = 5, kFileTips = 6,
                     kOpenGraph = 8, kTerminate = 10;
}

class ProcessCommands {
public:
    // The parts of the main window that the commands work on; all outlive the commands.
    struct Parts {
        platform::Window& window;
        controls::UcList1& list;
        controls::ToolBar& toolBar1;
        controls::ToolBar& toolBar2;
        AffinityBoxes& affinityBoxes;
        controls::FlatTinyCombo& priority;
        Messages& messages;
        RefreshCycle& refresh;
        TimerSlots& slots;
        FavoriteCommands& favoriteCommands;
        FilterCommands& filterCommands;
        favorites::FavoritesList& favorites;
        process::ProcessAccess& access;
        settings::Settings& settings;
        settings::DisplayOptions& options;
        graphs::CpuGraphs& graphs;
    };
    explicit ProcessCommands(const Parts& parts) : parts_(parts) {}

    // Fills the priority chooser.
    void FillPriorities();
    // Brings boxes and chooser in line with a row of the list.
    void ShowSettingsOf(int row);

    // Gives the selected processes the affinity and priority chosen above the list.
    void ApplyChanges();
    void InvertAffinity();
    void FileListRefresh();
    // Runs a command; a number that is none does nothing.
    void Run(int command);
    void ToolBar2Clicked(int button);
    // The list's menu, at a point of the screen.
    void ShowMenu(platform::Point at);
    // Shows on ToolBar2 which display options are on.
    void ShowOptions();
    // A key was pressed in the list.
    void Key(std::uint16_t code);

private:
    std::vector<std::string> SelectedPaths() const;
    void OpenGraphs();
    void Terminate();
    void ToggleExtensions();
    void ToggleFileTips();

    Parts parts_;
};

}  // namespace app
