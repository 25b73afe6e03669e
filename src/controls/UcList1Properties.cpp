// The list's look and its columns, property by property: each setter stores, names the key it changed, and redraws.
#include <algorithm>

#include "controls/UcList1.h"

namespace controls {

using platform::Color;

namespace {

constexpr std::string_view kHeaderKey = "m_sHeaderProperties";

int Align(int align) {
    return align == kAlignRight || align == kAlignCenter ? align : kAlignLeft;
}

}  // namespace

// ---- look ----

void UcList1::SetBackColor(Color color) {
    properties_.backColor = color;
    Changed("lstBackColor");
    ReDraw();
}

void UcList1::SetHighlightColor(Color color) {
    properties_.highlightColor = color;
    Changed("lstHighlightColor");
    ReDraw();
}

void UcList1::SetHighlightTextColor(Color color) {
    properties_.highlightTextColor = color;
    Changed("lstHighlightTextColor");
    ReDraw();
}

void UcList1::SetHeaderBackColor(Color color) {
    properties_.headerBackColor = color;
    Changed("m_lHeaderBackColor");
    ReDraw();
}

void UcList1::SetScrollBarColor(Color color) {
    properties_.scrollbarColor = color;
    Changed("m_lScrollbarColor");
    ReDraw();
}

void UcList1::SetHeaderDrawStyle(int style) {
    properties_.headerDrawStyle = std::clamp(style, 0, 7);
    Changed("HeaderDrawStyle");
    ReDraw();
}

void UcList1::SetScrollbarDrawStyle(int style) {
    properties_.scrollbarDrawStyle = std::clamp(style, 0, 7);
    Changed("m_lScrollbarDrawStyle");
    ReDraw();
}

void UcList1::SetHeaderHeight(int pixels) {
    properties_.headerHeight = std::clamp(pixels, 0, 200);
    Changed("m_lHeaderHeight");
    ReDraw();
}

// ---- columns ----

void UcList1::SetColumnCount(int count) {
    model_.SetColumnCount(count);
    model_.SetColumnMaxSeen(model_.ColumnCount());
    topIndex_ = 0;
    Changed("lstColumnCount");
    ReDraw();
}

void UcList1::SetColumnMaxSeen(int column) {
    model_.SetColumnMaxSeen(column);
    columnIndex_ = column;
    Changed("ColumnMaxSeen");
    ReDraw();
}

const UcListColumn& UcList1::Addressed() const {
    static const UcListColumn kNone;
    return columnIndex_ >= 0 && columnIndex_ < ColumnCount() ? model_.Column(columnIndex_) : kNone;
}

UcListColumn* UcList1::AddressedForChange() {
    return columnIndex_ >= 0 && columnIndex_ < ColumnCount() ? &model_.Column(columnIndex_) : nullptr;
}

void UcList1::HeaderChanged() {
    Changed(kHeaderKey);
    ReDraw();
}

template <class Value>
void UcList1::ChangeColumn(Value UcListColumn::*member, const Value& value) {
    UcListColumn* column = AddressedForChange();
    if (column == nullptr) return;
    column->*member = value;
    HeaderChanged();
}

void UcList1::SetHeaderCaption(const std::string& caption) {
    ChangeColumn(&UcListColumn::caption, caption);
}
void UcList1::SetListTextAlign(int align) {
    ChangeColumn(&UcListColumn::listTextAlign, Align(align));
}
void UcList1::SetListTextBold(bool bold) {
    ChangeColumn(&UcListColumn::listTextBold, bold);
}
void UcList1::SetListTextColor(Color color) {
    ChangeColumn(&UcListColumn::listTextColor, color);
}
void UcList1::SetHeaderTextAlign(int align) {
    ChangeColumn(&UcListColumn::headerTextAlign, Align(align));
}
void UcList1::SetHeaderTextBold(bool bold) {
    ChangeColumn(&UcListColumn::headerTextBold, bold);
}
void UcList1::SetHeaderTextColor(Color color) {
    ChangeColumn(&UcListColumn::headerTextColor, color);
}

int UcList1::HeaderWidth(int column) const {
    return column >= 0 && column < ColumnCount() ? model_.ShownWidth(column) : 0;
}

void UcList1::SetHeaderWidth(int column, int width) {
    if (column < 0 || column >= ColumnCount()) return;
    model_.Column(column).headerWidth = std::min(width, UcListModel::kMaxColumnWidth);
    HeaderChanged();
}

void UcList1::SetColumnWidths(std::string_view text) {
    model_.SetColumnWidths(text);
    HeaderChanged();
}

}  // namespace controls
