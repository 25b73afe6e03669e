// The data behind UcList1: columns, rows, display order, selection and sorting. Knows no window and draws nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Canvas.h"

namespace controls {

// The persisted layout and look of a list, as a control newly placed on a form has it.
struct UcListProperties {
    platform::Color backColor = 16777215;
    int columnCount = 3;
    platform::Color highlightColor = 8388608;
    platform::Color highlightTextColor = 16777215;
    std::string headerProperties;
    int headerHeight = 20;  // pixels
    platform::Color headerBackColor = 13160660;
    int headerDrawStyle = 0;
    platform::Color scrollbarColor = 13160660;
    int scrollbarDrawStyle = 4;
    int columnMaxSeen = 3;  // columns left of this one are shown
};

// Alignment of text in a cell, as the header properties string numbers it.
enum UcListAlign : int { kAlignLeft = 0, kAlignRight = 1, kAlignCenter = 2 };

// One column: its header cell and how its items are drawn. The two sort flags are never persisted.
struct UcListColumn {
    std::string caption;
    int listTextAlign = kAlignLeft;
    bool listTextBold = false;
    platform::Color listTextColor = 0;
    int headerTextAlign = kAlignLeft;
    bool headerTextBold = false;
    platform::Color headerTextColor = 0;
    int headerWidth = 0;  // pixels as stored; shown through UcListModel::ShownWidth
    bool sorted = false;
    bool ascending = false;
};

// Rows are addressed by display row (0 = first row of the whole list). Items keep the number in which they were
// added; sorting permutes only the display order, so a selection follows its item.
class UcListModel {
public:
    static constexpr int kMinColumnWidth = 11;
    static constexpr int kMaxColumnWidth = 2000;
    static constexpr int kMaxColumns = 64;

    // ---- columns ----
    // Sizes header table and cells to `count` columns (0..64); existing header records stay, items are dropped.
    void SetColumnCount(int count);
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    // Stores the number of columns shown; the column behind the next one loses caption and width.
    void SetColumnMaxSeen(int column);
    int ColumnMaxSeen() const { return columnMaxSeen_; }
    // Number of columns that are really drawn: those left of ColumnMaxSeen.
    int DrawnColumns() const;
    // `column` must be 0..ColumnCount()-1.
    UcListColumn& Column(int column) { return columns_[static_cast<std::size_t>(column)]; }
    const UcListColumn& Column(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    // Pixels the column takes: at least 11, but for the ColumnMaxSeen column, which may vanish.
    int ShownWidth(int column) const;
    // Captions and widths for the columns that have no caption yet, as far as they are shown.
    void BuildDefaultHeaders();
    // "caption,align,bold,color,align,bold,color,width" of every column, joined by "|". Captions are not escaped.
    std::string HeaderProperties() const;
    // Reads that text; at the first damaged field reading stops, what came before it is kept.
    void ReadHeaderProperties(std::string_view text);
    // "134,82,60," : the width of each column shown, each followed by a comma.
    std::string ColumnWidthsText() const;
    // Takes such a text; a damaged or missing entry leaves its column, widths are kept within 11..2000.
    void SetColumnWidths(std::string_view text);

    // ---- rows ----
    int ListCount() const { return count_; }
    // Appends a row of tab-separated cells, cut or padded to the number of columns. It is shown last.
    void AddItem(std::string_view text);
    // Drops the item shown at `row`; false when there is no such row.
    bool RemoveItem(int row);
    // Drops rows, selection and sort marks. The memory of the cells is kept for the next rows.
    void Clear();
    // Text of one cell, empty when out of range. Valid until the row changes.
    const std::string& CellText(int row, int column) const;
    // As CellText; a negative column gives all cells joined by tabs.
    std::string List(int row, int column) const;
    // Replaces one cell, or with a negative column all cells of the row; false when out of range.
    bool SetList(int row, int column, std::string_view text);

    // ---- selection ----
    bool Selected(int row) const;  // false when out of range
    void SelectItem(int row, bool state);
    void SelectAll(bool state);
    void SelectOnly(int row);
    void SelectRange(int from, int to);  // both ends included, in either direction; other rows stay as they are
    void InvertSelection();
    std::vector<int> SelectedRows() const;  // display rows, ascending
    int FirstSelected() const;              // display row, -1 for none
    int SelectedNearest(int row) const;     // the selected row closest to `row`, -1 for none
    bool IsOnlySelected(int row) const;     // `row` is selected and nothing else is
    int ItemAt(int row) const { return order_[static_cast<std::size_t>(row)]; }  // row must be in range
    int RowOf(int item) const;  // display row of an item number, -1 for none

    // ---- sorting ----
    // Sorts the display order by a column and marks it. Numbers when every cell is numeric and none begins with
    // "0", lower-cased text otherwise. Does nothing when there is no such column.
    void SortCol(int column, bool ascending);
    // A click on the header: reverses a column that carries the sort mark, sorts any other ascending.
    void ToggleSort(int column);
    int SortedColumn() const;  // the column with the sort mark, -1 for none

private:
    struct SortKey {
        std::uint64_t order;  // the number, or the first eight bytes of the text: compares like the whole cell
        std::int32_t item;
    };
    bool InRange(int row) const { return row >= 0 && row < count_; }
    void PutCells(std::size_t item, std::string_view text);
    bool SortsAsNumbers(const std::vector<std::string>& cells) const;
    void MakeNumberKeys(const std::vector<std::string>& cells);
    void MakeTextKeys(const std::vector<std::string>& cells);
    void ClearSortMarks();

    std::vector<UcListColumn> columns_;
    int columnMaxSeen_ = 0;
    int count_ = 0;
    // By column, then by item number. Never shrinks, so that refilling a list allocates nothing.
    std::vector<std::vector<std::string>> cells_;
    std::vector<std::int32_t> order_;
    std::vector<std::uint8_t> selected_;  // by item number
    std::vector<SortKey> keys_;           // scratch of SortCol, kept for its memory
    std::vector<std::string> lowered_;
};

}  // namespace controls
