// What the user does with the favourites list: another profile, copies in other profiles, launching, and handing
// over to Kestrum Jr.
#pragma once

#include <functional>
#include <string>

#include "app/FavoriteCommands.h"
#include "app/FilterCommands.h"
#include "app/Messages.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "favorites/EnforceState.h"
#include "favorites/FavoritesList.h"
#include "settings/DisplayOptions.h"

namespace app {

// Asks a running Kestrum Jr. to close: only one of the two programs is to set favourites.
void CloseJr();

class ProfileCommands {
public:
    // The parts of the main window that the commands work on; all outlive the commands.
    struct Parts {
        platform::Window& window;
        Messages& messages;
        RefreshCycle& refresh;
        TimerSlots& slots;
        FavoriteCommands& favoriteCommands;
        FilterCommands& filterCommands;
        favorites::FavoritesList& favorites;
        const favorites::EnforceState& enforce;
        const settings::DisplayOptions& options;
    };
    explicit ProfileCommands(const Parts& parts) : parts_(parts) {}

    std::function<void()> ChangeSettings;   // of the selected favourites
    std::function<void()> FinishEdits;      // other favourites come: what is being edited belongs to these
    std::function<void()> ProfilesChanged;  // one came into being or went
    std::function<void()> Exit;             // the program is to end: Kestrum Jr. has taken over

    // Menus, at a point of the screen.
    void ShowProfileMenu(platform::Point at);
    void ShowJrMenu(platform::Point at);
    void ShowFavoritesMenu(platform::Point at);  // nothing while there are no favourites

    void SwitchTo(int profile);  // 1..5
    void CopyTo(int profile);
    void MoveTo(int profile);
    // Starts the first selected favourite, when the user has that switched on.
    void Launch();
    // Ends this program in favour of Kestrum Jr. with a profile, if the user agrees.
    void HandOver(int profile);

private:
    int Current() const;

    Parts parts_;
};

}  // namespace app
