#include "app/ProfileCommands.h"

#include <optional>
#include <vector>

#include "controls/PictureMenu.h"
#include "favorites/FavoriteEdits.h"
#include "favorites/JrHandOff.h"
#include "favorites/ProfileTransfer.h"
#include "favorites/Profiles.h"
#include "platform/Files.h"
#include "platform/Instance.h"
#include "platform/OtherWindows.h"
#include "platform/Shell.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace app {

using controls::MenuEntry;

namespace {

// Ids of the favourites menu; a profile's number is added to the first of its group.
constexpr int kInformation = 100, kSettings = 10, kCopyTo = 20, kMoveTo = 30, kRemove = 40;

enum class CurrentProfile { Checked, Greyed };

// One entry for each profile.
std::vector<MenuEntry> ProfilesFrom(int firstId, const std::string& baseFolder, int current, CurrentProfile how) {
    std::vector<MenuEntry> entries;
    int number = 0;
    for (const favorites::ProfileEntry& profile : favorites::ProfileEntries(baseFolder)) {
        const bool isCurrent = ++number == current;
        entries.push_back({firstId + number, profile.caption, -1, !isCurrent || how != CurrentProfile::Greyed,
                           isCurrent && how == CurrentProfile::Checked});
    }
    return entries;
}

MenuEntry Information(const char* text) {
    return {kInformation, text, -1, false};
}

bool IsProfile(int number) {
    return number >= 1 && number <= favorites::kProfileCount;
}

}  // namespace

void CloseJr() {
    for (const std::uintptr_t window : platform::topLevelWindowNumbers()) {
        const auto facts = platform::windowFacts(window);
        if (facts && facts->caption == favorites::kJrCaption) platform::postClose(window);
    }
}

int ProfileCommands::Current() const {
    for (int number = 1; number <= favorites::kProfileCount; ++number) {
        if (favorites::ProfileName(number) == parts_.favorites.FavName()) return number;
    }
    return 0;
}

void ProfileCommands::ShowProfileMenu(platform::Point at) {
    std::vector<MenuEntry> entries =
        ProfilesFrom(0, parts_.favorites.BaseFolder(), Current(), CurrentProfile::Checked);
    entries.insert(entries.begin(), Information("Favorite Profile"));
    SwitchTo(controls::ShowPictureMenu(parts_.window, at, entries));
}

void ProfileCommands::ShowJrMenu(platform::Point at) {
    std::vector<MenuEntry> entries = ProfilesFrom(0, parts_.favorites.BaseFolder(), 0, CurrentProfile::Checked);
    entries.insert(entries.begin(), Information("Launch Kestrum Jr. using"));
    HandOver(controls::ShowPictureMenu(parts_.window, at, entries));
}

void ProfileCommands::ShowFavoritesMenu(platform::Point at) {
    if (parts_.favorites.Count() == 0) return;
    const bool any = parts_.favorites.AnySelected();
    MenuEntry copy{kCopyTo, "Copy Selected To...", -1, any};
    copy.submenu = ProfilesFrom(kCopyTo, parts_.favorites.BaseFolder(), Current(), CurrentProfile::Greyed);
    MenuEntry move{kMoveTo, "Move Selected To...", -1, any};
    move.submenu = ProfilesFrom(kMoveTo, parts_.favorites.BaseFolder(), Current(), CurrentProfile::Greyed);
    const std::vector<MenuEntry> entries = {{kSettings, "Change Settings", -1, any}, {}, copy, {}, move, {},
                                            {kRemove, "Remove Selected", -1, any}};
    const int chosen = controls::ShowPictureMenu(parts_.window, at, entries);
    if (chosen == kSettings) {
        ChangeSettings();
    } else if (IsProfile(chosen - kCopyTo)) {
        CopyTo(chosen - kCopyTo);
    } else if (IsProfile(chosen - kMoveTo)) {
        MoveTo(chosen - kMoveTo);
    } else if (chosen == kRemove) {
        parts_.favoriteCommands.RemoveFavorites();
    }
}

void ProfileCommands::SwitchTo(int profile) {
    if (!IsProfile(profile) || profile == Current()) return;
    FinishEdits();
    parts_.favorites.SavePending();
    parts_.favorites.SetFavName(favorites::ProfileName(profile));
    parts_.filterCommands.Toggled();  // loads the favourites and rebuilds the list
    if (parts_.favoriteCommands.AutoSetPressed()) parts_.favoriteCommands.SetFavs();
    ProfilesChanged();  // one whose programs are all gone is empty now
}

void ProfileCommands::CopyTo(int profile) {
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    favorites::CopySelectedTo(parts_.favorites, favorites::ProfileName(profile));
    ProfilesChanged();
}

void ProfileCommands::MoveTo(int profile) {
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    favorites::MoveSelectedTo(parts_.favorites, favorites::ProfileName(profile));
    parts_.refresh.UpdateStatusLine();
    ProfilesChanged();
}

// Nothing is said of a program that is gone or cannot be started.
void ProfileCommands::Launch() {
    const std::vector<int> selected = parts_.favorites.SelectedRows();
    if (!parts_.options.launchFavorites || selected.empty()) return;
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    const favorites::Favorite favorite = parts_.favorites.Row(selected.front());
    if (!platform::fileExists(favorite.path)) return;
    const platform::BusyPointer pointer;
    const std::string file(text::FileNameOf(favorite.path));
    const std::string folder = favorite.path.substr(0, favorite.path.size() - file.size());
    platform::launch(parts_.window, file,
                     favorite.param.empty() ? std::nullopt : std::optional<std::string>(favorite.param), folder);
}

void ProfileCommands::HandOver(int profile) {
    if (!IsProfile(profile)) return;
    const std::string name = favorites::ProfileName(profile);
    const std::string& folder = parts_.favorites.BaseFolder();
    favorites::JrTask task{profile, 0};
    std::string question = "Exit and start Kestrum Jr. using " + name + "?";
    if (parts_.enforce.On()) {
        task.enforceSeconds = parts_.enforce.IntervalSeconds();
        question = "Exit and start Jr. using " + name + " with Auto Set Enforce at interval of " +
                   text::Decimal(task.enforceSeconds) + " seconds?";
    }
    if (!platform::fileExists(folder + favorites::kJrProgram)) {
        parts_.messages.Tell(std::string("Missing File: ") + favorites::kJrProgram, "File Missing");
        return;
    }
    parts_.favorites.SavePending();
    if (!favorites::ProfileExists(folder, name)) {
        parts_.messages.Tell(name + " is empty!", "No Favorites");
        return;
    }
    if (!parts_.messages.Ask(question, "Launch Kestrum Jr?") || !parts_.window.exists()) return;
    CloseJr();
    platform::launch(parts_.window, favorites::kJrProgram, favorites::FormatJrTask(task), folder);
    platform::pumpMessages();
    Exit();
}

}  // namespace app
