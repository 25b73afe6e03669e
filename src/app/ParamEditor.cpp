#include "app/ParamEditor.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "favorites/FavoriteEdits.h"

namespace app {

using platform::Rect;

namespace {

constexpr int kLeastWidth = 160;  // pixels: a parameter is longer than its column usually is

// Over the cell, and to its left or right where that is too narrow to write in.
Rect PlaceOver(const Rect& cell, int listWidth) {
    const int width = std::min(std::max(cell.width(), kLeastWidth), listWidth);
    const int left = std::clamp(cell.left, 0, std::max(0, listWidth - width));
    return {left, cell.top - 1, left + width, cell.bottom + 2};
}

}  // namespace

bool ParamEditor::Create() {
    if (!txtParam_.createBox(list_, {0, 0, 1, 1})) return false;
    txtParam_.Accepted = [this] { Accept(); };
    txtParam_.Cancelled = [this] { Close(); };
    // What was typed is not to be lost because the user went on with something else.
    txtParam_.FocusLost = [this] { Accept(); };
    return true;
}

void ParamEditor::Edit() {
    const std::vector<int> selected = favorites_.SelectedRows();
    if (selected.size() != 1) {
        messages_.Tell("Please select one file to change file parameter.", "File Parameter");
        return;
    }
    const int row = selected.front();
    if (list_.CellRect(row, favorites::kColName).empty()) list_.SetTopIndex(row);
    const favorites::Favorite favorite = favorites_.Row(row);
    path_ = favorite.path;
    txtParam_.setText(favorite.param);
    Rect cell = list_.CellRect(row, favorites::kColParam);
    // Scrolled out to the side: at the right edge of the row.
    if (cell.empty()) {
        const Rect name = list_.CellRect(row, favorites::kColName);
        cell = {list_.clientSize().width, name.top, list_.clientSize().width, name.bottom};
    }
    txtParam_.setBounds(PlaceOver(cell, list_.clientSize().width));
    txtParam_.show(platform::ShowCommand::Show);
    txtParam_.selectAll();
    open_ = true;
    txtParam_.focus();
    tips_.Show("Enter File Parameter to launch file with", txtParam_, "", false);
}

void ParamEditor::Accept() {
    if (!open_) return;
    const std::string param = txtParam_.text();
    Close();
    const PausedSlot pause(slots_, Slot::Process, kRefreshMilliseconds);
    for (int row = 0; row < favorites_.Count(); ++row) {
        if (favorites_.Row(row).path != path_) continue;
        favorites::SetParam(favorites_, row, param);
        refresh_.UpdateStatusLine();  // favourites whose program has gone went when they were loaded again
        return;
    }
}

void ParamEditor::Close() {
    if (!std::exchange(open_, false)) return;
    const bool hadFocus = txtParam_.focused();
    tips_.Remove();
    txtParam_.show(platform::ShowCommand::Hide);
    if (hadFocus) list_.focus();
}

}  // namespace app
