// Keyboard and focus of the list.
#include <algorithm>

#include "controls/UcList1.h"

namespace controls {

namespace key = platform::key;

void UcList1::onKey(const platform::KeyEvent& event) {
    const std::size_t number = event.code % keysDown_.size();
    if (event.down) {
        if (!event.repeat) keysDown_.set(number);
        if (ListCount() > 0) KeyDown(event);
        return;
    }
    // What went down in a text box or menu that it ended is not meant for the list.
    const bool ours = keysDown_.test(number);
    keysDown_.reset(number);
    const bool isModifier = event.code == key::kShift || event.code == key::kCtrl;
    const bool held = event.modifiers.shift || event.modifiers.ctrl;
    if (ours && !held && !isModifier && KeyClick) KeyClick(event.code);
}

void UcList1::onFocus(bool gained) {
    focused_ = gained;
    keysDown_.reset();
    ReDraw();
}

void UcList1::KeyDown(const platform::KeyEvent& event) {
    const auto [shift, ctrl, alt] = event.modifiers;
    if (alt) return;
    int target = 0;
    if (ctrl && SelectionCommand(event.code)) {
        ReDraw();
        if (Click) Click(1);
    } else if (NavigationTarget(event.code, target)) {
        MoveCurrentRow(target, shift, ctrl);
    } else if (event.code == key::kSpace) {
        ToggleCurrentRow(ctrl);
    } else if (event.code == key::kLeft || event.code == key::kRight) {
        ScrollColumns(event.code == key::kLeft ? 10 : -10);
    }
}

// The commands that work on all rows; false for any other key.
bool UcList1::SelectionCommand(std::uint16_t code) {
    switch (code) {
        case 'A':
            model_.SelectAll(true);
            return true;
        case 'I':
            model_.InvertSelection();
            return true;
        case 'U':
            model_.SelectAll(false);
            return true;
        default:
            return false;
    }
}

// The row a navigation key leads to from the current one; false for any other key.
bool UcList1::NavigationTarget(std::uint16_t code, int& target) const {
    const int page = std::max(1, VisibleRows() - 1);
    const int current = CurrentRow();
    switch (code) {
        case key::kUp:
            target = current - 1;
            break;
        case key::kDown:
            target = current + 1;
            break;
        case key::kPageUp:
            target = current - page;
            break;
        case key::kPageDown:
            target = current + page;
            break;
        case key::kHome:
            target = 0;
            break;
        case key::kEnd:
            target = ListCount() - 1;
            break;
        default:
            return false;
    }
    target = std::clamp(target, 0, ListCount() - 1);
    return true;
}

// As lists on the desktop do: a plain key selects the row, Shift extends from the anchor, Ctrl moves the focus
// rectangle alone, both together extend and keep what is selected elsewhere.
void UcList1::MoveCurrentRow(int target, bool extend, bool keepSelection) {
    const int current = CurrentRow();
    bool selects = extend || !keepSelection;
    if (extend) {
        if (anchorRow_ < 0 || anchorRow_ >= ListCount()) anchorRow_ = std::max(0, current);
        selects = target != current;
        if (selects && !keepSelection) model_.SelectAll(false);
        if (selects) model_.SelectRange(anchorRow_, target);
    } else if (selects) {
        selects = target != current || !model_.IsOnlySelected(target);
        model_.SelectOnly(target);
        anchorRow_ = target;
    }
    currentRow_ = target;
    ShowRow(target);
    ReDraw();
    if (selects && Click) Click(1);
}

void UcList1::ToggleCurrentRow(bool keepOthers) {
    currentRow_ = anchorRow_ = std::max(0, CurrentRow());
    if (keepOthers) {
        model_.SelectItem(currentRow_, !model_.Selected(currentRow_));
    } else {
        model_.SelectOnly(currentRow_);
    }
    ShowRow(currentRow_);
    ReDraw();
    if (Click) Click(1);
}

void UcList1::ShowRow(int row) {
    const int last = topIndex_ + std::max(1, VisibleRows()) - 1;
    if (row < topIndex_) SetTopIndex(row);
    if (row > last) SetTopIndex(topIndex_ + row - last);
}

}  // namespace controls
