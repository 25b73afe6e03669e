#include "app/FavoriteCommands.h"

#include <optional>
#include <set>

#include "app/MainToolBars.h"
#include "favorites/ApplyFavorites.h"
#include "platform/Shell.h"
#include "text/Case.h"

namespace app {

using settings::Key;

bool FavoriteCommands::SetFavs() {
    favorites::ApplyResult result;
    {
        const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
        const platform::BusyPointer pointer;
        parts_.toolBar.EnableButton(button::kSetFavoritesNow, false);
        result = favorites::ApplyFavorites(parts_.favorites.Rows(), parts_.refresh.Snapshot(), parts_.access);
        if (result.changed && parts_.window.state() != platform::WindowState::Minimized) {
            parts_.refresh.FullRebuild();
        }
        // While Auto Set is on, setting them by hand has nothing to add.
        parts_.toolBar.EnableButton(button::kSetFavoritesNow, !AutoSetPressed());
        parts_.enforce.Reset();
    }
    if (result.Failed()) {
        parts_.trayIcon.TrayBalloon(favorites::ApplySummary(result), kProgramTitle, platform::BalloonIcon::Warning);
    }
    return result.changed;
}

bool FavoriteCommands::AutoSetPressed() const {
    return parts_.toolBar.IsChecked(button::kAutoSet);
}

void FavoriteCommands::AutoSetToggled() {
    const bool on = AutoSetPressed();
    parts_.toolBar.EnableButton(button::kSetFavoritesNow, !on);
    parts_.toolBar.EnableButton(button::kEnforce, on);
    parts_.toolBar.SetChecked(button::kEnforce, on && parts_.enforce.On());
    if (on) SetFavs();
}

void FavoriteCommands::EnforceToggled() {
    const bool on = parts_.toolBar.IsChecked(button::kEnforce);
    parts_.enforce.SetOn(on);
    parts_.settings.WriteNumber(Key::ReEnforce, on ? 1 : 0);
}

void FavoriteCommands::StartAutoSet() {
    parts_.enforce.SetOn(parts_.settings.Number(Key::ReEnforce) == 1);
    parts_.enforce.SetIntervalIndex(parts_.settings.Number(Key::EnforceInterval));
    if (parts_.settings.Number(Key::AutoSet) == 1) parts_.toolBar.SetChecked(button::kAutoSet, true);
    AutoSetToggled();
}

void FavoriteCommands::BrowseForFavorite() {
    std::optional<std::string> path;
    {
        const BusyGuard guard(parts_.busy);
        path = platform::chooseFile(parts_.window, "Add Files to Favorites", {{"*.Exe, *.Scr", "*.exe;*.scr"}});
    }
    if (path && parts_.window.exists()) Add({*path});
}

// One box for each kind of refusal, however many files: one by one they would be a stack to click away. Files that
// are in the list already are all in one box, programs of the same name in different folders as one.
void FavoriteCommands::Add(const std::vector<std::string>& paths) {
    bool badExtension = false;
    std::set<std::string> named;
    std::string duplicates;
    for (const std::string& path : paths) {
        const favorites::AddFavResult result = AddFav(path);
        badExtension = badExtension || result == favorites::AddFavResult::BadExtension;
        if (result != favorites::AddFavResult::Duplicate) continue;
        if (!named.insert(text::Lower(text::FileNameOf(path))).second) continue;
        duplicates += (duplicates.empty() ? "" : "\r\n\r\n") + favorites::DuplicateText(path);
    }
    if (badExtension) parts_.messages.Tell(favorites::kBadExtensionText);
    if (!duplicates.empty() && parts_.window.exists()) parts_.messages.Tell(duplicates);
}

favorites::AddFavResult FavoriteCommands::AddFav(const std::string& path) {
    favorites::AddFavResult result;
    {
        const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
        const platform::BusyPointer pointer;
        result = parts_.favorites.AddFav(path, parts_.affinityBoxes.Text());
        parts_.refresh.UpdateStatusLine();
    }
    ProfilesChanged();
    // It may be running already: with Auto Set on the next tick sets it.
    if (result == favorites::AddFavResult::Added) parts_.refresh.ForceRebuild();
    return result;
}

void FavoriteCommands::RemoveFavorites() {
    if (!parts_.favorites.AnySelected()) {
        parts_.messages.Tell("Please select one or more favorites to remove!");
        return;
    }
    // Those that the question is about, whatever is selected when it is answered.
    const std::vector<favorites::Favorite> chosen = parts_.favorites.SelectedFavorites();
    if (!parts_.messages.AskBeforeLoss("Remove selected items from favorites?") || !parts_.window.exists()) return;
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    parts_.favorites.Remove(chosen);
    parts_.refresh.UpdateStatusLine();
    ProfilesChanged();
}

}  // namespace app
