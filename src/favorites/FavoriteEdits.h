// What the user does to favourites of the current profile: new parameter, new settings, copies in other profiles.
// Everything is saved at once. Messages, paused timers and busy pointers belong to the form that calls.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "favorites/FavoritesList.h"

namespace favorites {

// Gives a row the parameter its program is launched with; tabs and line ends become blanks, because a profile file
// cannot hold them. Saves, loads again, sorts, and selects that favourite. False when nothing changed.
bool SetParam(FavoritesList& list, int row, const std::string& param);

// New settings for several favourites at once. What is not named here stays as each of them has it.
struct SettingsChoice {
    int cpuCount = 0;                     // processors there is a choice about: 0 to this
    std::map<int, bool> cpus;             // processor number -> use it
    std::optional<std::string> priority;  // its name
};
struct SettingsEdit {
    bool changed = false;  // something is different now
    bool noCpu = false;    // some favourite would have had no processor left, and has kept its affinity
};
// Saves, loads again and sorts. The affinity of one that changes names processors up to cpuCount only.
SettingsEdit SetSettings(FavoritesList& list, const std::vector<int>& rows, const SettingsChoice& choice,
                         FavoritesList::Select select = FavoritesList::Select::Replaced);

// Copies the selected favourites into another profile, without those it holds already. False when that changed no
// file; the current profile and names that are no profile are refused.
bool CopySelectedTo(FavoritesList& list, const std::string& profileName);

// Copies them, then removes those that the other profile holds now, whether just copied or there before. What could
// not be copied stays, and stays selected. Gives how many left the current profile, whose file goes with the last.
int MoveSelectedTo(FavoritesList& list, const std::string& profileName);

}  // namespace favorites
