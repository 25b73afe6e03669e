// What the user and the timers do with favourites: apply them, add and remove them, Auto Set, Enforce.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/AffinityBoxes.h"
#include "app/Messages.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "controls/ToolBar.h"
#include "favorites/EnforceState.h"
#include "favorites/FavoritesList.h"
#include "process/ProcessAccess.h"
#include "settings/Settings.h"
#include "tray/TrayIcon.h"

namespace app {

class FavoriteCommands {
public:
    // The parts of the main window that the commands work on; all outlive the commands.
    struct Parts {
        platform::Window& window;
        controls::ToolBar& toolBar;
        Messages& messages;
        AffinityBoxes& affinityBoxes;
        RefreshCycle& refresh;
        TimerSlots& slots;
        BusyFlag& busy;
        favorites::FavoritesList& favorites;
        favorites::EnforceState& enforce;
        process::ProcessAccess& access;
        settings::Settings& settings;
        tray::TrayIcon& trayIcon;
    };
    explicit FavoriteCommands(const Parts& parts) : parts_(parts) {}

    std::function<void()> ProfilesChanged;  // one came into being or went

    // Gives every running instance of every favourite its affinity and priority. True when something was
    // changed, or a change was tried; the process list has then been rebuilt unless the window is minimised.
    bool SetFavs();

    // The check buttons of ToolBar1, after they took their new state.
    void AutoSetToggled();
    void EnforceToggled();
    // Reads Enforce and Auto Set from the settings and, when Auto Set is to be on, switches it on.
    void StartAutoSet();
    bool AutoSetPressed() const;

    void BrowseForFavorite();
    // Adds several programs; what is to be said of those that are refused comes once they have been added.
    void Add(const std::vector<std::string>& paths);
    void RemoveFavorites();

private:
    favorites::AddFavResult AddFav(const std::string& path);

    Parts parts_;
};

}  // namespace app
