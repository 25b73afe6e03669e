#include "favorites/FavoritesList.h"

#include <algorithm>

#include "controls/Resources.h"
#include "favorites/ProfileFile.h"
#include "favorites/Profiles.h"
#include "platform/Files.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace favorites {

namespace {

// Keeps the list from painting while rows change, and shows the result in one paint.
class LockedList {
public:
    explicit LockedList(controls::UcList1& list) : list_(list), wasLocked_(list.Locked()) { list_.SetLocked(true); }
    ~LockedList() { list_.SetLocked(wasLocked_); }
    LockedList(const LockedList&) = delete;
    LockedList& operator=(const LockedList&) = delete;

private:
    controls::UcList1& list_;
    bool wasLocked_;
};

}  // namespace

std::string DuplicateText(const std::string& path) {
    return "The file " + std::string(text::FileNameOf(path)) +
           " at the selected path\r\nis already in your favorites list!";
}

FavoritesList::FavoritesList(controls::UcList1& list, std::string baseFolder, BalloonCall balloon)
    : list_(list),
      baseFolder_(std::move(baseFolder)),
      balloon_(std::move(balloon)),
      icons_(baseFolder_, storage::kCacheFolder, controls::kDefaultIcon),
      favName_(ProfileName(1)) {
    list_.DrawIcon = [this](platform::Canvas& canvas, platform::Point at, int row) { DrawIcon(canvas, at, row); };
}

FavoritesList::~FavoritesList() {
    list_.DrawIcon = nullptr;
}

void FavoritesList::LoadFavorites() {
    const LockedList locked(list_);
    const std::string path = ProfilePath(baseFolder_, favName_);
    const bool again = path == shownFile_;
    if (again) {
        SavePending();
        if (unsaved_) return;  // the file is behind the list
    } else if (unsaved_ && !unread_) {
        waiting_[shownFile_] = Rows();
    }
    LoadedProfile loaded;
    const auto waits = waiting_.extract(path);
    if (waits.empty()) {
        loaded = LoadProfile(path);
    } else {
        loaded.rows = waits.mapped();
    }
    if (again && loaded.unreadable) return;
    shownFile_ = path;
    unread_ = loaded.unreadable;
    unsaved_ = !waits.empty();
    list_.Clear();
    icons_.Release();
    for (const Favorite& favorite : loaded.rows) AddRow(favorite);
    if (loaded.missing > 0 || unsaved_) Save();
    if (loaded.missing > 0) TellMissing(loaded);
}

void FavoritesList::SavePending() {
    if (unsaved_) Save();
    std::erase_if(waiting_, [](const auto& profile) { return SaveProfile(profile.first, profile.second); });
}

void FavoritesList::Reload() {
    const LockedList locked(list_);
    const bool again = ProfilePath(baseFolder_, favName_) == shownFile_;
    const std::set<std::string> selected = SelectedIdentities();
    const int top = list_.TopIndex();
    LoadFavorites();
    SortFavs();
    if (!again) return;
    SelectIdentities(selected);
    list_.SetTopIndex(top);
}

bool FavoritesList::ReadUnread() {
    if (!unread_) return false;
    Reload();
    return !unread_;
}

void FavoritesList::TellMissing(const LoadedProfile& loaded) {
    balloon_(MissingText(loaded.missing, loaded.missingNames), "Kestrum 2", platform::BalloonIcon::Info);
    CleanUpIcons();
}

AddFavResult FavoritesList::AddFav(const std::string& path, const std::string& affinityText) {
    if (!text::IsProgramFile(path)) return AddFavResult::BadExtension;
    if (!platform::fileExists(path)) return AddFavResult::Missing;
    const std::string identity = IdentityOf(path);
    for (int row = 0; row < Count(); ++row) {
        if (IdentityOf(list_.CellText(row, kColPath)) == identity) return AddFavResult::Duplicate;
    }
    icons_.Make(path);
    const LockedList locked(list_);
    AddRow({text::FavoriteDisplayName(text::FileNameOf(path)), affinityText, kDefaultPriority, path, ""});
    SortFavs();
    Save();
    return AddFavResult::Added;
}

bool FavoritesList::Save() {
    const std::string path = ProfilePath(baseFolder_, favName_);
    LoadedProfile joined;
    if (path != shownFile_ || unread_) {
        joined = LoadProfile(path);
        unsaved_ = joined.unreadable;
        // The user's favourites are still in that file: nothing may take them away.
        if (unsaved_) return false;
        Join(joined);
        shownFile_ = path;
        unread_ = false;
    }
    unsaved_ = !SaveProfile(path, Rows());
    if (joined.missing > 0) TellMissing(joined);
    return !unsaved_;
}

// Of a favourite that is in both, what the user has edited holds, otherwise what was stored.
void FavoritesList::Join(const LoadedProfile& loaded) {
    std::map<std::string, int> shown;
    for (int row = 0; row < Count(); ++row) shown[IdentityOf(list_.CellText(row, kColPath))] = row;
    for (const Favorite& favorite : loaded.rows) {
        const auto found = shown.find(IdentityOf(favorite.path));
        if (found == shown.end()) {
            AddRow(favorite);
        } else if (Row(found->second).priority == kDefaultPriority && Row(found->second).param.empty()) {
            PutRow(found->second, favorite);
        }
    }
    SortFavs();
}

int FavoritesList::RemoveRows(const std::vector<int>& rows) {
    const LockedList locked(list_);
    const int top = list_.TopIndex();
    int removed = 0;
    int first = 0;
    for (const int row : std::set<int, std::greater<>>(rows.begin(), rows.end())) {
        if (row < 0 || row >= Count()) continue;
        list_.RemoveItem(row);
        first = row;
        ++removed;
    }
    if (removed == 0) return 0;
    const std::set<std::string> stillSelected = SelectedIdentities();
    // When the file could not be written, loading it would bring the rows back: the list stays as the user wants
    // it, and the next save tries again.
    if (Save()) {
        CleanUpIcons();
        LoadFavorites();
        SortFavs();
    }
    SelectIdentities(stillSelected);
    // The user stays where they were, on the row that moved up.
    if (!AnySelected()) list_.SelectItem(std::min(first, Count() - 1), true);
    list_.SetTopIndex(top);
    return removed;
}

int FavoritesList::Remove(const std::vector<Favorite>& favorites) {
    std::set<std::string> paths;
    for (const Favorite& favorite : favorites) paths.insert(IdentityOf(favorite.path));
    std::vector<int> rows;
    for (int row = 0; row < Count(); ++row) {
        if (paths.contains(IdentityOf(list_.CellText(row, kColPath)))) rows.push_back(row);
    }
    return RemoveRows(rows);
}

bool FavoritesList::ReplaceRows(const std::map<int, Favorite>& favorites, Select select) {
    const LockedList locked(list_);
    const std::set<std::string> selected = SelectedIdentities();
    std::set<std::string> paths;
    bool changed = false;
    for (const auto& [row, favorite] : favorites) {
        if (row < 0 || row >= Count()) continue;
        paths.insert(IdentityOf(favorite.path));
        if (Row(row) == favorite) continue;
        PutRow(row, favorite);
        changed = true;
    }
    if (!changed) return false;
    // The favourites keep their place on the screen, wherever the sort puts them now.
    const int place = favorites.begin()->first - list_.TopIndex();
    // What could not be written stays in the list, and the next save tries again.
    if (Save()) LoadFavorites();
    SortFavs();
    SelectIdentities(select == Select::Replaced ? paths : selected);
    if (select == Select::Replaced) list_.SetSelectedTopPosition(place);
    return true;
}

void FavoritesList::SortFavs() {
    const LockedList locked(list_);
    list_.SortCol(sortColumn_, sortAscending_);
}

void FavoritesList::SetSort(int column, bool ascending) {
    sortColumn_ = std::clamp(column, 0, kSavedColumns - 1);
    sortAscending_ = ascending;
}

bool FavoritesList::AnySelected() const {
    for (int row = 0; row < Count(); ++row) {
        if (list_.Selected(row)) return true;
    }
    return false;
}

Favorite FavoritesList::Row(int row) const {
    return {list_.CellText(row, kColName), list_.CellText(row, kColAffinity), list_.CellText(row, kColPriority),
            list_.CellText(row, kColPath), list_.CellText(row, kColParam)};
}

std::vector<Favorite> FavoritesList::Rows() const {
    std::vector<Favorite> rows;
    rows.reserve(static_cast<std::size_t>(Count()));
    for (int row = 0; row < Count(); ++row) rows.push_back(Row(row));
    return rows;
}

std::vector<Favorite> FavoritesList::SelectedFavorites() const {
    std::vector<Favorite> selected;
    for (const int row : SelectedRows()) selected.push_back(Row(row));
    return selected;
}

std::set<std::string> FavoritesList::SelectedIdentities() const {
    std::set<std::string> paths;
    for (const int row : SelectedRows()) paths.insert(IdentityOf(list_.CellText(row, kColPath)));
    return paths;
}

void FavoritesList::SelectIdentities(const std::set<std::string>& identities) {
    for (int row = 0; row < Count(); ++row) {
        list_.SelectItem(row, identities.contains(IdentityOf(list_.CellText(row, kColPath))));
    }
}

// The row keeps its icon.
void FavoritesList::PutRow(int row, const Favorite& favorite) {
    list_.SetList(row, kColName, favorite.name);
    list_.SetList(row, kColAffinity, favorite.affinity);
    list_.SetList(row, kColPriority, favorite.priority);
    list_.SetList(row, kColPath, favorite.path);
    list_.SetList(row, kColParam, favorite.param);
}

void FavoritesList::AddRow(const Favorite& favorite) {
    list_.AddItem(favorite.name + '\t' + favorite.affinity + '\t' + favorite.priority + '\t' + favorite.path +
                  '\t' + favorite.param + '\t' + text::Decimal(icons_.Add(favorite.name, favorite.path)));
}

// Deletes the icons that no profile needs any more.
void FavoritesList::CleanUpIcons() const {
    std::set<std::string, std::less<>> keys;
    // What an unreadable profile needs is unknown: everything stays until it can be read again.
    if (!IconKeysInProfiles(baseFolder_, keys)) return;
    icons_.CleanUp([&keys](const std::string& key) { return keys.contains(key); });
}

void FavoritesList::DrawIcon(platform::Canvas& canvas, platform::Point at, int row) {
    const int index = text::ToInt32(list_.CellText(row, kColIcon));
    const platform::PictureHandle& icon = icons_.At(index);
    if (icon) canvas.picture(at, icon, {0, 0, storage::IconCache::kIconSize, storage::IconCache::kIconSize});
}

}  // namespace favorites
