#include "filter/DlgHides.h"

#include <algorithm>

#include "controls/DialogPlace.h"
#include "controls/Resources.h"
#include "platform/Shell.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

namespace filter {

using platform::Rect;
using platform::Size;

namespace {

constexpr char kCaption[] = "File Filter";

// The second column, which is not shown, holds the index of the entry: sorting the list does not sort the filter.
constexpr int kNameColumn = 0;
constexpr int kIndexColumn = 1;
constexpr char kListHeader[] = "File Names,0,False,0,2,False,0,0|,0,False,0,0,False,0,0";

constexpr int kMargin = 10;
constexpr int kGap = 7;
// Enough for sixteen rows, and for names of usual length beside the scroll bar.
constexpr Size kListSize{260, 292};
constexpr int kButtonWidth = 128;  // at least

constexpr std::uint16_t kInsert = 0x2D;  // a virtual key code, as those in platform::key

}  // namespace

// ---- making it ----

void DlgHides::ShowModal(platform::Window& owner) {
    if (!Create(owner)) return;
    ReLoad();
    ucFilter_.focus();
    platform::runModal(*this);
    parts_.filter.Icons().Release();
}

bool DlgHides::Create(platform::Window& owner) {
    if (!create(controls::DialogSpec(kCaption, owner))) return false;
    // In the order of the Tab key.
    const bool made =
        CreateList(Rect::fromSize({kMargin, kMargin}, kListSize)) &&
        CreateButton(cmdBrowse_, {"CmdBrowse", "Browse For Files", "Add a file name to filter."}) &&
        CreateButton(cmdRemove_, {"CmdRemove", "Remove a Filter", "Remove selected file names from filter."}) &&
        CreateButton(cmdClose_, {"CmdClose", "Close File Filter", "Exit File Filter."}) &&
        lblFilterCount_.Create(*this, "LblFilterCount", {});
    if (!made) {
        destroy();
        return false;
    }
    cmdBrowse_.Click = [this] { Browse(); };
    cmdRemove_.Click = [this] { Remove(); };
    cmdClose_.Click = [this] { Close(); };
    Arrange(controls::AreaOfOwner(owner));
    return true;
}

bool DlgHides::CreateList(const Rect& bounds) {
    Attach(ucFilter_);
    if (!ucFilter_.Create(*this, "UcFilter", bounds)) return false;
    controls::UcListProperties properties;
    properties.headerProperties = kListHeader;
    properties.columnCount = 2;
    properties.columnMaxSeen = 1;
    ucFilter_.ReadProperties(properties);
    ucFilter_.SetKeyColumn(kNameColumn);
    ucFilter_.DrawIcon = [this](platform::Canvas& canvas, platform::Point at, int row) {
        const auto& icon = parts_.filter.Icons().At(text::ToInt32(ucFilter_.CellText(row, kIndexColumn)) + 1);
        constexpr int kSize = storage::IconCache::kIconSize;
        if (icon) canvas.picture(at, icon, {0, 0, kSize, kSize});
    };
    ucFilter_.Click = [this](int) { SelectionChanged(); };
    ucFilter_.HeaderClick = [this](int) { descending_ = !ucFilter_.HeaderSortDir(); };
    ucFilter_.ColumnResized = [this] { columnResized_ = true; };
    ucFilter_.FilesDropped = [this](const std::vector<std::string>& paths) { Add(paths); };
    ucFilter_.acceptFiles(true);
    return true;
}

bool DlgHides::CreateButton(Button& button, const ButtonWords& words) {
    Attach(button);
    button.Hover = [this, &button, words] { parts_.tips.Show(words.tip, button, words.caption, false); };
    button.Left = [this] { parts_.tips.Remove(); };
    if (!button.Create(*this, words.name, {})) return false;
    button.SetCaption(words.caption);
    return true;
}

// The list on the left with the count below it; the buttons on the right, the one that closes apart from the
// others.
void DlgHides::Arrange(const Rect& over) {
    const Rect list = Rect::fromSize({kMargin, kMargin}, kListSize);
    Size button{kButtonWidth, 0};
    for (const Button* each : {&cmdBrowse_, &cmdRemove_, &cmdClose_}) {
        const Size wanted = each->PreferredSize();
        button = {std::max(button.width, wanted.width), std::max(button.height, wanted.height)};
    }
    const int x = list.right + kMargin;
    cmdBrowse_.setBounds(Rect::fromSize({x, list.top}, button));
    cmdRemove_.setBounds(Rect::fromSize({x, list.top + button.height + kGap}, button));
    cmdClose_.setBounds(Rect::fromSize({x, list.bottom - button.height}, button));
    const int textHeight = platform::textSize(kCaption, platform::Font::Normal).height;
    const Rect label = Rect::fromSize({kMargin, list.bottom + kGap}, {list.width(), textHeight});
    lblFilterCount_.setBounds(label);

    const Size frame = controls::FrameOf(*this);
    setBounds(controls::PlacedOver(
        over, {x + button.width + kMargin + frame.width, label.bottom + kMargin + frame.height}));
}

template <class Control>
void DlgHides::Attach(controls::InDialog<Control>& control) {
    control.KeyFirst = [this](const platform::KeyEvent& event) { return Key(event); };
    control.GotFocus = [this, &control] { focus_ = &control; };
}

void DlgHides::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, platform::systemColor(platform::SysColor::ButtonFace));
    canvas.frame(ucFilter_.bounds().inset(-1, -1), platform::systemColor(platform::SysColor::ButtonShadow));
}

// ---- keyboard ----

// The frame got the focus (the user comes back from another window): it belongs to a control.
void DlgHides::onFocus(bool gained) {
    if (gained) focus_->focus();
}

// Keys count when they go down: one that ended a message box is let go over this dialog.
bool DlgHides::Key(const platform::KeyEvent& event) {
    if (!event.down || event.modifiers.ctrl || event.modifiers.alt || event.modifiers.shift) return false;
    if (event.code == platform::key::kEscape) {
        Close();
    } else if (event.code == kInsert) {
        Browse();
    } else if (event.code == platform::key::kDelete && ucFilter_.focused()) {
        Remove();
    } else {
        return false;
    }
    return true;
}

// ---- what is shown ----

void DlgHides::ReLoad() {
    const int top = ucFilter_.TopIndex();
    ucFilter_.SetLocked(true);
    ucFilter_.Clear();
    storage::IconCache& icons = parts_.filter.Icons();
    icons.Release();
    for (int index = 0; index < parts_.filter.Count(); ++index) {
        const std::string& name = parts_.filter.Name(index);
        icons.Add(name);
        // A tab, which a file written by hand may hold, would end the cell.
        ucFilter_.AddItem(text::ReplaceAll(name, "\t", " ") + '\t' + text::Decimal(index));
    }
    if (descending_) ucFilter_.SortCol(kNameColumn, false);
    // As wide as the scroll bar leaves it.
    if (!columnResized_) ucFilter_.SetHeaderWidth(kNameColumn, ucFilter_.Layout().itemArea.width());
    ucFilter_.SetTopIndex(top);
    ucFilter_.SetLocked(false);
    lblFilterCount_.SetCaption("Filters:" + text::Decimal(parts_.filter.Count()));
    SelectionChanged();
}

// Scrolls to the row of a file name if it is out of sight.
void DlgHides::ShowRowOf(std::string_view fileName) {
    const std::string key = text::Lower(fileName);
    for (int row = 0; row < ucFilter_.ListCount(); ++row) {
        if (text::Lower(ucFilter_.CellText(row, kNameColumn)) != key) continue;
        const int top = ucFilter_.TopIndex();
        const int rows = std::max(1, ucFilter_.VisibleRows());
        if (row < top || row >= top + rows) ucFilter_.SetTopIndex(row - rows / 2);
        return;
    }
}

bool DlgHides::AnySelected() const {
    for (int row = 0; row < ucFilter_.ListCount(); ++row) {
        if (ucFilter_.Selected(row)) return true;
    }
    return false;
}

// There is something to remove, or there is not.
void DlgHides::SelectionChanged() {
    const bool any = AnySelected();
    // A button that is greyed would keep the focus and swallow the keys.
    if (!any && cmdRemove_.focused()) ucFilter_.focus();
    cmdRemove_.SetEnabled(any);
}

// ---- what the user does ----

void DlgHides::Browse() {
    parts_.tips.Remove();
    // "Src" is how this list of types has always read.
    const auto path = platform::chooseFile(*this, "Add Files to Filter", {{"*.Exe, *.Src", "*.exe;*.scr"}});
    if (path && exists()) Add({*path});
}

void DlgHides::Add(const std::vector<std::string>& paths) {
    FileFilter::Added added;
    {
        const platform::BusyPointer pointer;
        added = parts_.filter.AddAll(paths);
        if (!added.last.empty()) {
            ReLoad();
            ShowRowOf(text::FileNameOf(added.last));
        }
    }
    if (parts_.Changed) parts_.Changed();
    // Each message comes once, however many files were dropped together.
    if (added.badExtension) Tell(kBadExtensionText);
    if (added.duplicate && exists()) Tell(kDuplicateText);
}

void DlgHides::Remove() {
    std::vector<int> indices;
    for (int row = 0; row < ucFilter_.ListCount(); ++row) {
        if (ucFilter_.Selected(row)) indices.push_back(text::ToInt32(ucFilter_.CellText(row, kIndexColumn)));
    }
    if (indices.empty()) return;
    parts_.filter.Remove(indices);
    ReLoad();
    if (parts_.Changed) parts_.Changed();
}

void DlgHides::Tell(const std::string& text) {
    parts_.tips.Remove();
    parts_.msgBoxes.Show(text, controls::MsgStyle::Information, controls::kInfoTitle, *this, parts_.messageBeep);
}

void DlgHides::Close() {
    parts_.tips.Remove();
    destroy();
}

}  // namespace filter
