// The columns of a list model: widths, default captions, and their persisted text form.
#include <algorithm>
#include <charconv>
#include <optional>

#include "controls/UcListModel.h"
#include "text/Numbers.h"

namespace controls {
namespace {

constexpr int kHeaderFields = 8;

std::string_view NextPiece(std::string_view& rest, char separator) {
    const std::size_t end = rest.find(separator);
    const std::string_view piece = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return piece;
}

const char* BooleanWord(bool value) {
    return value ? "True" : "False";
}

bool ReadNumber(std::string_view text, std::int32_t& number) {
    if (!text::IsNumeric(text)) return false;
    number = text::ToInt32(text);
    return true;
}

bool ReadBoolean(std::string_view text, bool& value) {
    const std::optional<bool> read = text::ToBool(text);
    if (read) value = *read;
    return read.has_value();
}

bool ReadAlign(std::string_view text, int& align) {
    std::int32_t number = 0;
    if (!ReadNumber(text, number)) return false;
    align = number == kAlignRight || number == kAlignCenter ? number : kAlignLeft;
    return true;
}

bool ReadColor(std::string_view text, platform::Color& color) {
    std::int32_t number = 0;
    if (!ReadNumber(text, number)) return false;
    color = static_cast<platform::Color>(number) & 0xFFFFFFU;
    return true;
}

bool ReadField(int field, std::string_view text, UcListColumn& column) {
    switch (field) {
        case 0:
            column.caption = text;
            return true;
        case 1:
            return ReadAlign(text, column.listTextAlign);
        case 2:
            return ReadBoolean(text, column.listTextBold);
        case 3:
            return ReadColor(text, column.listTextColor);
        case 4:
            return ReadAlign(text, column.headerTextAlign);
        case 5:
            return ReadBoolean(text, column.headerTextBold);
        case 6:
            return ReadColor(text, column.headerTextColor);
        default: {
            std::int32_t width = 0;
            if (!ReadNumber(text, width)) return false;
            column.headerWidth = std::min<std::int32_t>(width, UcListModel::kMaxColumnWidth);
            return true;
        }
    }
}

}  // namespace

void UcListModel::SetColumnMaxSeen(int column) {
    columnMaxSeen_ = std::clamp(column, 0, kMaxColumns);
    const int behind = columnMaxSeen_ + 1;
    if (behind < ColumnCount()) {
        Column(behind).caption.clear();
        Column(behind).headerWidth = 0;
    }
}

int UcListModel::DrawnColumns() const {
    return std::min(columnMaxSeen_, ColumnCount());
}

int UcListModel::ShownWidth(int column) const {
    const int least = column == columnMaxSeen_ ? 0 : kMinColumnWidth;
    return std::clamp(Column(column).headerWidth, least, kMaxColumnWidth);
}

void UcListModel::BuildDefaultHeaders() {
    for (int i = 0; i < DrawnColumns(); ++i) {
        UcListColumn& column = Column(i);
        if (!column.caption.empty()) continue;
        column.caption = "Header " + std::to_string(i + 1);
        column.listTextAlign = kAlignCenter;
        column.headerTextAlign = kAlignCenter;
        column.headerWidth = (4 - i) * 50;
    }
}

std::string UcListModel::HeaderProperties() const {
    std::string text;
    for (const UcListColumn& column : columns_) {
        if (!text.empty()) text += '|';
        text += column.caption;
        text += ',' + std::to_string(column.listTextAlign);
        text += std::string(",") + BooleanWord(column.listTextBold);
        text += ',' + std::to_string(column.listTextColor);
        text += ',' + std::to_string(column.headerTextAlign);
        text += std::string(",") + BooleanWord(column.headerTextBold);
        text += ',' + std::to_string(column.headerTextColor);
        text += ',' + std::to_string(column.headerWidth);
    }
    return text;
}

void UcListModel::ReadHeaderProperties(std::string_view text) {
    for (UcListColumn& column : columns_) {
        std::string_view piece = NextPiece(text, '|');
        for (int field = 0; field < kHeaderFields; ++field) {
            // An empty field can only be the caption of a piece that goes on.
            if (piece.empty()) return;
            if (!ReadField(field, NextPiece(piece, ','), column)) return;
        }
    }
}

std::string UcListModel::ColumnWidthsText() const {
    std::string text;
    for (int i = 0; i < DrawnColumns(); ++i) text += std::to_string(ShownWidth(i)) + ',';
    return text;
}

void UcListModel::SetColumnWidths(std::string_view text) {
    for (int i = 0; i < DrawnColumns() && !text.empty(); ++i) {
        const std::string_view piece = NextPiece(text, ',');
        int width = 0;
        const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), width);
        if (error != std::errc() || end != piece.data() + piece.size()) continue;
        Column(i).headerWidth = std::clamp(width, kMinColumnWidth, kMaxColumnWidth);
    }
}

}  // namespace controls
