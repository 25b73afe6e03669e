#include "favorites/FavoriteEdits.h"

#include <algorithm>

#include "favorites/ProfileTransfer.h"

namespace favorites {

namespace {

std::string WithoutSeparators(std::string param) {
    std::replace_if(
        param.begin(), param.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return param;
}

// The affinity text of processors below `cpuCount`, with what is chosen for them.
std::string Restricted(const std::string& affinity, int cpuCount, const std::map<int, bool>& chosen) {
    std::string restricted;
    for (int cpu = 0; cpu < cpuCount; ++cpu) {
        const char digit = static_cast<char>('0' + cpu);
        const auto choice = chosen.find(cpu);
        const bool used = choice != chosen.end() ? choice->second : affinity.find(digit) != std::string::npos;
        if (used) restricted += digit;
    }
    return restricted;
}

}  // namespace

bool SetParam(FavoritesList& list, int row, const std::string& param) {
    Favorite favorite = list.Row(row);
    favorite.param = WithoutSeparators(param);
    return list.ReplaceRows({{row, favorite}});
}

SettingsEdit SetSettings(FavoritesList& list, const std::vector<int>& rows, const SettingsChoice& choice,
                         FavoritesList::Select select) {
    SettingsEdit edit;
    std::map<int, Favorite> changed;
    for (const int row : rows) {
        Favorite favorite = list.Row(row);
        const std::string before = Restricted(favorite.affinity, choice.cpuCount, {});
        const std::string after = Restricted(favorite.affinity, choice.cpuCount, choice.cpus);
        if (after != before && after.empty()) {
            edit.noCpu = true;
        } else if (after != before) {
            favorite.affinity = after;
        }
        if (choice.priority) favorite.priority = *choice.priority;
        changed[row] = favorite;
    }
    edit.changed = list.ReplaceRows(changed, select);
    return edit;
}

bool CopySelectedTo(FavoritesList& list, const std::string& profileName) {
    if (profileName == list.FavName()) return false;
    list.SavePending();  // the copies come to what the other profile is to hold
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
