// What the user does with the file filter: hide and show filtered programs, add names, edit the list.
#pragma once

#include <string>
#include <vector>

#include "app/Messages.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "controls/BalloonTips.h"
#include "controls/FrmMsgBox.h"
#include "controls/ToolBar.h"
#include "favorites/FavoritesList.h"
#include "filter/FileFilter.h"
#include "settings/DisplayOptions.h"

namespace app {

class FilterCommands {
public:
    // The parts of the main window that the commands work on; all outlive the commands.
    struct Parts {
        platform::Window& window;
        controls::ToolBar& toolBar;
        controls::MsgBoxes& msgBoxes;
        controls::BalloonTips& tips;
        Messages& messages;
        RefreshCycle& refresh;
        TimerSlots& slots;
        BusyFlag& busy;
        favorites::FavoritesList& favorites;
        filter::FileFilter& filter;
        const settings::DisplayOptions& options;
    };
    explicit FilterCommands(const Parts& parts) : parts_(parts) {}

    // At the start: filtering is on when there is something to filter.
    void Load();
    // The filter file could not be read at the start, and is read now.
    bool ReadUnread();
    bool Pressed() const;
    // The check button of ToolBar1, after it took its new state.
    void Toggled();
    // Adds the file names of programs; each is asked for once, however many of its processes are given.
    void Add(const std::vector<std::string>& paths);
    void ShowDialog();

private:
    void ShowLoaded();
    void FilterChanged();

    Parts parts_;
};

}  // namespace app
