// The favourites of the current profile: the rows of the favourites list, mirrored in the profile's file.
// Messages, paused timers and busy pointers belong to the form that calls.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "controls/UcList1.h"
#include "favorites/Favorite.h"
#include "platform/Tray.h"
#include "storage/IconCache.h"
#include "text/ProgramFile.h"

namespace favorites {

struct LoadedProfile;

enum class AddFavResult {
    Added,
    BadExtension,  // neither ".exe" nor ".scr": tell the user kBadExtensionText
    Missing,       // empty path or no such file: say nothing
    Duplicate,     // in the list already: tell the user DuplicateText(path)
};

using text::kBadExtensionText;
std::string DuplicateText(const std::string& path);

// Layout of the favourites list: six columns, of which five are shown.
inline constexpr char kFavoritesHeader[] =
    "Favorites,0,True,0,2,False,0,134|Affinity,2,False,0,2,False,0,82|Priority,2,False,0,2,False,0,70|"
    "Path,0,False,0,2,False,0,50|Param,0,False,0,2,False,0,50|,2,False,0,2,False,16777215,0";
inline constexpr int kFavoritesColumnCount = 6;
inline constexpr int kFavoritesColumnMaxSeen = 5;

class FavoritesList {
public:
    using BalloonCall =
        std::function<void(const std::string& text, const std::string& title, platform::BalloonIcon)>;

    // Draws the icons of `list`, which must outlive this object and is to be laid out with kFavoritesHeader.
    // `baseFolder` ends in "\".
    FavoritesList(controls::UcList1& list, std::string baseFolder, BalloonCall balloon);
    ~FavoritesList();
    FavoritesList(const FavoritesList&) = delete;
    FavoritesList& operator=(const FavoritesList&) = delete;

    // The current profile, "My Favs 1" at first. Setting it loads nothing.
    void SetFavName(const std::string& name) { favName_ = name; }
    const std::string& FavName() const { return favName_; }
    const std::string& BaseFolder() const { return baseFolder_; }

    // Fills the list from the profile's file, in the file's order. Favourites whose program is missing leave
    // the profile, reported by a balloon. The rows of this profile stay as they are while its file cannot be read,
    // or could not be written.
    void LoadFavorites();
    // Loads and sorts. What is selected and the place on the screen stay, unless it is another profile.
    void Reload();
    // Reloads if the profile could not be read so far. True when it is read now.
    bool ReadUnread();
    // Adds a program with the affinity given and priority "Default", sorts and saves.
    AddFavResult AddFav(const std::string& path, const std::string& affinityText);
    // Writes the list to the profile's file. When that could not be read so far, its favourites come into the list
    // first. False on failure, when the file is what it was.
    bool Save();
    // Tries once more what could not be written, of this profile and of those shown before.
    void SavePending();
    // Removes rows, saves, and drops the icons nobody needs any more; how many rows went. Other selected ones stay
    // selected.
    int RemoveRows(const std::vector<int>& rows);
    // The same for favourites, which are known by their paths.
    int Remove(const std::vector<Favorite>& favorites);
    // What is selected when rows have been replaced: the favourites of these rows, or what was selected before.
    enum class Select { Replaced, AsBefore };
    // Puts other favourites in the place of rows. When that changes any: saves, loads again, sorts, and selects
    // favourites, which are known by their paths. False when nothing changed.
    bool ReplaceRows(const std::map<int, Favorite>& favorites, Select select = Select::Replaced);

    // Sorts by the column (0..4) and direction last given.
    void SortFavs();
    void SetSort(int column, bool ascending);
    int SortColumn() const { return sortColumn_; }
    bool SortAscending() const { return sortAscending_; }

    int Count() const { return list_.ListCount(); }
    bool AnySelected() const;
    std::vector<int> SelectedRows() const { return list_.SelectedRows(); }  // ascending
    std::vector<Favorite> SelectedFavorites() const;                        // in that order
    Favorite Row(int row) const;                                            // empty when there is no such row
    std::vector<Favorite> Rows() const;

private:
    void Join(const LoadedProfile& loaded);
    void TellMissing(const LoadedProfile& loaded);
    void AddRow(const Favorite& favorite);
    void PutRow(int row, const Favorite& favorite);
    std::set<std::string> SelectedIdentities() const;
    void SelectIdentities(const std::set<std::string>& identities);
    void CleanUpIcons() const;
    void DrawIcon(platform::Canvas& canvas, platform::Point at, int row);

    controls::UcList1& list_;
    std::string baseFolder_;
    BalloonCall balloon_;
    storage::IconCache icons_;
    std::string favName_;
    std::string shownFile_;  // what the rows belong to
    bool unread_ = false;    // that file is there, but could not be read
    bool unsaved_ = false;
    std::map<std::string, std::vector<Favorite>> waiting_;  // unsaved rows of other profiles, by their files
    int sortColumn_ = 0;
    bool sortAscending_ = true;
};

}  // namespace favorites
