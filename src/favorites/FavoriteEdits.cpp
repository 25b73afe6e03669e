#include "favorites/FavoriteEdits.h"

#include <algorithm>

#include "favorites/FavoritesList.h"
#include "favorites/ProfileTransfer.h"

namespace favorites {

namespace {

std::string WithoutSeparators(std::string param) {
    std::replace_if(
        param.begin(), param.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return param;
}

}  // namespace

bool SetParam(FavoritesList& list, int row, const std::string& param) {
    Favorite favorite = list.Row(row);
    favorite.param = WithoutSeparators(param);
    return list.ReplaceRows({{row, favorite}});
}

bool SetSettings(FavoritesList& list, const std::vector<int>& rows, const std::optional<std::string>& affinity,
                 const std::optional<std::string>& priority) {
    std::map<int, Favorite> changed;
    for (const int row : rows) {
        Favorite favorite = list.Row(row);
        if (affinity) favorite.affinity = *affinity;
        if (priority) favorite.priority = *priority;
        changed[row] = favorite;
    }
    return list.ReplaceRows(changed);
}

bool CopySelectedTo(FavoritesList& list, const std::string& profileName) {
    if (profileName == list.FavName()) return false;
    return CopyToProfile(list.SelectedFavorites(), list.BaseFolder(), profileName);
}

int MoveSelectedTo(FavoritesList& list, const std::string& profileName) {
    // The current profile holds all of them: moving them there would remove them all.
    if (profileName == list.FavName()) return 0;
    CopySelectedTo(list, profileName);
    // The file decides, not what was meant to be written.
    const std::vector<bool> held = HeldByProfile(list.SelectedFavorites(), list.BaseFolder(), profileName);
    const std::vector<int> selected = list.SelectedRows();
    std::vector<int> rows;
    for (std::size_t i = 0; i < selected.size(); ++i) {
        if (held[i]) rows.push_back(selected[i]);
    }
    return list.RemoveRows(rows);
}

}  // namespace favorites
