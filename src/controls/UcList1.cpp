#include "controls/UcList1.h"

#include <algorithm>

#include "controls/UcListPaint.h"

namespace controls {

using platform::Color;
using platform::SysColor;

namespace {

constexpr int kMaxHeaderHeight = 200;  // pixels
constexpr int kMaxDrawStyle = 7;
constexpr int kRepaintTimer = 12;
constexpr std::uint32_t kRepaintDelay = 10;  // ms

// A colour left as a new control has it stands for the desktop's colour of that part, so that the list looks at
// home whatever the user's theme; any other value is the host's choice and is drawn as it is.
Color OwnOr(Color own, Color asNew, SysColor desktop) {
    return own == asNew ? platform::systemColor(desktop) : own;
}

}  // namespace

bool UcList1::Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds) {
    if (!createChild(parent, "UcList1", instanceName, bounds, platform::TabStop::Yes)) return false;
    if (model_.ColumnCount() == 0) ReadProperties(UcListProperties());
    Clear();
    return true;
}

// All that was going on with the window is over; the rows stay to be read.
void UcList1::onDestroyed() {
    shown_.Forget();
    locked_ = repaintPending_ = refilling_ = focused_ = sizingPointer_ = tipRaised_ = false;
    keysDown_.reset();
    drag_ = Drag::None;
    ignoredButton_ = platform::MouseButton::None;
    selectedBefore_.clear();
    repeatZone_ = 0;
    currentRow_ = anchorRow_ = hoverRow_ = dragColumn_ = -1;
}

void UcList1::Changed(std::string_view key) {
    if (PropertyChanged) PropertyChanged(key);
}

// ---- persistence ----

void UcList1::ReadProperties(const UcListProperties& properties) {
    properties_ = properties;
    properties_.headerProperties.clear();
    properties_.headerHeight = std::clamp(properties.headerHeight, 0, kMaxHeaderHeight);
    properties_.headerDrawStyle = std::clamp(properties.headerDrawStyle, 0, kMaxDrawStyle);
    properties_.scrollbarDrawStyle = std::clamp(properties.scrollbarDrawStyle, 0, kMaxDrawStyle);
    model_.SetColumnMaxSeen(properties.columnMaxSeen);
    columnIndex_ = properties.columnMaxSeen;
    model_.SetColumnCount(properties.columnCount);
    model_.BuildDefaultHeaders();
    topIndex_ = 0;
    currentRow_ = anchorRow_ = -1;
    model_.ReadHeaderProperties(properties.headerProperties);
    hoverRow_ = -1;
    ReDraw();
}

UcListProperties UcList1::WriteProperties() const {
    UcListProperties properties = properties_;
    properties.headerProperties = model_.HeaderProperties();
    properties.columnCount = model_.ColumnCount();
    properties.columnMaxSeen = model_.ColumnMaxSeen();
    return properties;
}

// ---- rows ----

void UcList1::AddItem(std::string_view text) {
    model_.AddItem(text);
    ReDraw();
}

void UcList1::RemoveItem(int row) {
    if (!model_.RemoveItem(row)) return;
    if (row < currentRow_) --currentRow_;
    if (row < anchorRow_) --anchorRow_;
    ReDraw();
}

void UcList1::Clear() {
    if (!refilling_) followSelection_ = model_.Selected(CurrentRow());
    refilling_ = true;
    model_.Clear();
    topIndex_ = 0;
    ReDraw();
}

std::string UcList1::List(int row, int column) const {
    return model_.List(row, column);
}

void UcList1::SetList(int row, int column, std::string_view text) {
    if (model_.SetList(row, column, text)) ReDraw();
}

// Current row and anchor stay with their items when the display order changes. While the list is being filled anew
// they are places on the screen, and their item numbers mean nothing.
template <class Reorder>
void UcList1::KeepCurrentItem(Reorder reorder) {
    const auto itemAt = [&](int row) { return row >= 0 && row < ListCount() ? model_.ItemAt(row) : -1; };
    const int current = itemAt(currentRow_);
    const int anchor = itemAt(anchorRow_);
    reorder();
    if (refilling_) return;
    currentRow_ = model_.RowOf(current);
    anchorRow_ = model_.RowOf(anchor);
}

void UcList1::SortCol(int column, bool ascending) {
    KeepCurrentItem([&] { model_.SortCol(column, ascending); });
}

void UcList1::SortByHeader(int column) {
    const platform::BusyPointer busy;
    KeepCurrentItem([&] { model_.ToggleSort(column); });
    headerSortDir_ = model_.Column(column).ascending;
}

int UcList1::CurrentRow() const {
    if (currentRow_ < 0) return model_.FirstSelected();
    return std::min(currentRow_, ListCount() - 1);
}

// After a refill the current row goes where the selection went, if it was selected before.
void UcList1::SettleCurrentRow() {
    if (!refilling_ || ListCount() == 0) return;
    refilling_ = false;
    if (!followSelection_) return;
    const int selected = model_.SelectedNearest(CurrentRow());
    if (selected < 0) return;
    currentRow_ = selected;
    if (!model_.Selected(anchorRow_)) anchorRow_ = selected;
}

// ---- showing ----

const UcListLayout& UcList1::Layout() const {
    UcListMetrics metrics;
    widths_.resize(static_cast<std::size_t>(model_.ColumnCount()));
    for (int i = 0; i < model_.ColumnCount(); ++i) widths_[static_cast<std::size_t>(i)] = model_.ShownWidth(i);
    if (exists()) metrics.client = clientSize();
    metrics.headerHeight = properties_.headerHeight;
    metrics.widths = widths_.data();
    metrics.columnCount = model_.ColumnCount();
    metrics.drawnColumns = model_.DrawnColumns();
    metrics.listCount = model_.ListCount();
    metrics.topIndex = topIndex_;
    metrics.offset = offset_;
    pvListInit(metrics, layout_);
    return layout_;
}

UcListLook UcList1::Look() const {
    static const UcListProperties kNew;
    UcListLook look;
    look.desktopText = properties_.backColor == kNew.backColor;
    look.back = OwnOr(properties_.backColor, kNew.backColor, SysColor::Window);
    look.text = platform::systemColor(SysColor::WindowText);
    look.highlight = OwnOr(properties_.highlightColor, kNew.highlightColor, SysColor::Highlight);
    look.highlightText = OwnOr(properties_.highlightTextColor, kNew.highlightTextColor, SysColor::HighlightText);
    look.desktopHeaderText = properties_.headerBackColor == kNew.headerBackColor;
    look.headerBack = OwnOr(properties_.headerBackColor, kNew.headerBackColor, SysColor::ButtonFace);
    look.headerText = platform::systemColor(SysColor::ButtonText);
    look.bar = OwnOr(properties_.scrollbarColor, kNew.scrollbarColor, SysColor::ButtonFace);
    look.headerDrawStyle = properties_.headerDrawStyle;
    look.scrollbarDrawStyle = properties_.scrollbarDrawStyle;
    look.icons = static_cast<bool>(DrawIcon);
    look.focused = focused_;
    if (!focused_) {
        look.selection = platform::highContrast() ? UcListSelection::Framed : UcListSelection::Pale;
    }
    look.focusRow = CurrentRow();
    look.pressedColumn = drag_ == Drag::HeaderCell ? dragColumn_ : -1;
    look.pressedZone = drag_ == Drag::Bar ? dragZone_ : 0;
    return look;
}

void UcList1::ReDraw() {
    if (locked_ || !exists()) return;
    SettleCurrentRow();
    const UcListLayout& layout = Layout();
    topIndex_ = layout.topIndex;
    offset_ = layout.offset;
    shown_.Update({model_, layout, Look()}, [this](const platform::Rect& area) { invalidate(area); });
    RecheckHover();
}

void UcList1::onPaint(platform::Canvas& canvas, const platform::Rect& dirty) {
    const UcListLook look = Look();
    const UcListView view{model_, Layout(), look};
    shown_.Painted(view, dirty);
    UcListPaint paint(canvas, view, DrawIcon);
    paint.pvHeaderDraw();
    paint.pvListDraw();
    paint.pvScrollbarDraw();
}

// TopIndex stays, as far as the rows that fit now allow.
void UcList1::onSize(platform::Size, platform::WindowState state) {
    if (state != platform::WindowState::Minimized) ReDraw();
}

void UcList1::SetLocked(bool locked) {
    locked_ = locked;
    Changed("Locked");
    ReDraw();
}

void UcList1::SetTopIndex(int row) {
    const int top = std::clamp(row, 0, Layout().maxTopIndex);
    if (top == topIndex_) return;
    topIndex_ = top;
    if (locked_ || repaintPending_ || !exists()) return;
    repaintPending_ = true;
    startTimer(kRepaintTimer, kRepaintDelay);
}

int UcList1::SelectedTopPosition() const {
    const int selected = model_.FirstSelected();
    return selected < 0 ? 0 : selected - topIndex_;
}

void UcList1::SetSelectedTopPosition(int rows) {
    const int selected = model_.FirstSelected();
    if (selected >= 0) SetTopIndex(selected - rows);
}

platform::Rect UcList1::CellRect(int row, int column) const {
    const UcListLayout& layout = Layout();
    const bool exists = row >= layout.topIndex && row < ListCount() && column >= 0 &&
                        static_cast<std::size_t>(column) < layout.columns.size();
    return exists ? layout.CellRect(row - layout.topIndex, column).intersect(layout.itemArea) : platform::Rect{};
}

int UcList1::VisibleRows() const {
    return Layout().visibleRows;
}

void UcList1::onSystemColors() {
    shown_.Forget();  // edges have colours that are not the list's own
    SetHighlightColor(platform::systemColor(SysColor::Highlight));
    SetHighlightTextColor(platform::systemColor(SysColor::HighlightText));
}

}  // namespace controls
