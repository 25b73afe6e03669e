#include "controls/UcListModel.h"

#include <algorithm>

#include "text/Case.h"
#include "text/Numbers.h"

namespace controls {
namespace {

const std::string kNothing;

// Cuts the first tab-separated field off `rest`.
std::string_view NextField(std::string_view& rest) {
    const std::size_t end = rest.find('\t');
    const std::string_view field = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return field;
}

// The first eight bytes as a number that compares as they do.
std::uint64_t Prefix(const std::string& text) {
    std::uint64_t prefix = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        prefix = prefix << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    }
    return prefix;
}

// Gap-halving exchange sort. Not stable: the order in which it leaves equal keys is part of the list's behaviour,
// so it is kept step by step, the early end of a gap whose last exchange was at position 0 included.
template <class Entry, class Greater>
void ExchangeSort(std::vector<Entry>& entries, Greater greater) {
    const std::ptrdiff_t last = std::ssize(entries) - 1;
    std::ptrdiff_t gap = last / 2 != 0 ? last / 2 : last;
    for (; gap > 0; gap /= 2) {
        std::ptrdiff_t limit = last - gap;
        std::ptrdiff_t lastExchange = 0;
        do {
            lastExchange = 0;
            Entry* entry = entries.data();
            for (std::ptrdiff_t i = 0; i <= limit; ++i) {
                if (greater(entry[i], entry[i + gap])) {
                    std::swap(entry[i], entry[i + gap]);
                    lastExchange = i;
                }
            }
            limit = lastExchange - gap;
        } while (lastExchange != 0);
    }
}

}  // namespace

// ---- rows ----

void UcListModel::SetColumnCount(int count) {
    const auto size = static_cast<std::size_t>(std::clamp(count, 0, kMaxColumns));
    Clear();
    columns_.resize(size);
    cells_.resize(size);
}

void UcListModel::Clear() {
    ClearSortMarks();
    count_ = 0;
    order_.clear();
    selected_.clear();
}

void UcListModel::PutCells(std::size_t item, std::string_view text) {
    for (auto& column : cells_) column[item].assign(NextField(text));
}

void UcListModel::AddItem(std::string_view text) {
    const auto item = static_cast<std::size_t>(count_);
    for (auto& column : cells_) {
        if (column.size() <= item) column.resize(std::max<std::size_t>(64, item * 2));
    }
    PutCells(item, text);
    order_.push_back(count_);
    selected_.push_back(0);
    ++count_;
}

bool UcListModel::RemoveItem(int row) {
    if (!InRange(row)) return false;
    const std::int32_t item = ItemAt(row);
    // The removed cell moves behind the last item, where its memory waits for the next one.
    for (auto& column : cells_) {
        std::rotate(column.begin() + item, column.begin() + item + 1, column.begin() + count_);
    }
    order_.erase(order_.begin() + row);
    for (std::int32_t& other : order_) {
        if (other > item) --other;
    }
    selected_.erase(selected_.begin() + item);
    --count_;
    return true;
}

const std::string& UcListModel::CellText(int row, int column) const {
    if (!InRange(row) || column < 0 || column >= ColumnCount()) return kNothing;
    return cells_[static_cast<std::size_t>(column)][static_cast<std::size_t>(ItemAt(row))];
}

std::string UcListModel::List(int row, int column) const {
    if (column >= 0) return CellText(row, column);
    std::string all;
    for (int i = 0; i < ColumnCount(); ++i) {
        if (i > 0 && InRange(row)) all += '\t';
        all += CellText(row, i);
    }
    return all;
}

bool UcListModel::SetList(int row, int column, std::string_view text) {
    if (!InRange(row) || column >= ColumnCount()) return false;
    const auto item = static_cast<std::size_t>(ItemAt(row));
    if (column < 0) {
        PutCells(item, text);
    } else {
        cells_[static_cast<std::size_t>(column)][item].assign(text);
    }
    return true;
}

// ---- selection ----

bool UcListModel::Selected(int row) const {
    return InRange(row) && selected_[static_cast<std::size_t>(ItemAt(row))] != 0;
}

void UcListModel::SelectItem(int row, bool state) {
    if (InRange(row)) selected_[static_cast<std::size_t>(ItemAt(row))] = state ? 1 : 0;
}

void UcListModel::SelectAll(bool state) {
    std::fill(selected_.begin(), selected_.end(), state ? 1 : 0);
}

void UcListModel::SelectOnly(int row) {
    SelectAll(false);
    SelectItem(row, true);
}

void UcListModel::SelectRange(int from, int to) {
    const int last = std::min(std::max(from, to), count_ - 1);
    for (int row = std::max(std::min(from, to), 0); row <= last; ++row) SelectItem(row, true);
}

void UcListModel::InvertSelection() {
    for (std::uint8_t& flag : selected_) flag ^= 1U;
}

std::vector<int> UcListModel::SelectedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < ListCount(); ++row) {
        if (Selected(row)) rows.push_back(row);
    }
    return rows;
}

int UcListModel::FirstSelected() const {
    return SelectedNearest(0);
}

int UcListModel::SelectedNearest(int row) const {
    const int reach = std::max(row, count_ - row);
    for (int distance = 0; distance <= reach; ++distance) {
        if (Selected(row - distance)) return row - distance;
        if (Selected(row + distance)) return row + distance;
    }
    return -1;
}

bool UcListModel::IsOnlySelected(int row) const {
    return Selected(row) && std::count(selected_.begin(), selected_.end(), 1) == 1;
}

int UcListModel::RowOf(int item) const {
    const auto found = std::find(order_.begin(), order_.end(), item);
    return found == order_.end() ? -1 : static_cast<int>(found - order_.begin());
}

// ---- sorting ----

void UcListModel::ClearSortMarks() {
    for (UcListColumn& column : columns_) column.sorted = column.ascending = false;
}

// A leading zero keeps a column of bit strings or of padded numbers from being compared by value, on purpose.
bool UcListModel::SortsAsNumbers(const std::vector<std::string>& cells) const {
    const auto isNumber = [](const std::string& cell) {
        return !cell.empty() && cell.front() != '0' && text::IsNumeric(cell);
    };
    return std::all_of(cells.begin(), cells.begin() + count_, isNumber);
}

void UcListModel::MakeNumberKeys(const std::vector<std::string>& cells) {
    for (std::int32_t item = 0; item < count_; ++item) {
        // Moved up by 2^31 so that unsigned keys compare as the signed numbers do.
        const std::int64_t number = text::ToInt32(cells[static_cast<std::size_t>(item)]);
        keys_.push_back({static_cast<std::uint64_t>(number + 0x80000000LL), item});
    }
}

void UcListModel::MakeTextKeys(const std::vector<std::string>& cells) {
    if (lowered_.size() < cells.size()) lowered_.resize(cells.size());
    for (std::int32_t item = 0; item < count_; ++item) {
        std::string& lowered = lowered_[static_cast<std::size_t>(item)];
        lowered = text::Lower(cells[static_cast<std::size_t>(item)]);
        keys_.push_back({Prefix(lowered), item});
    }
}

void UcListModel::SortCol(int column, bool ascending) {
    if (column < 0 || column >= ColumnCount()) return;
    ClearSortMarks();
    const std::vector<std::string>& cells = cells_[static_cast<std::size_t>(column)];
    keys_.clear();
    if (SortsAsNumbers(cells)) {
        MakeNumberKeys(cells);
        ExchangeSort(keys_, [](const SortKey& a, const SortKey& b) { return a.order > b.order; });
    } else {
        MakeTextKeys(cells);
        ExchangeSort(keys_, [this](const SortKey& a, const SortKey& b) {
            if (a.order != b.order) return a.order > b.order;
            return lowered_[static_cast<std::size_t>(a.item)] > lowered_[static_cast<std::size_t>(b.item)];
        });
    }
    std::transform(keys_.begin(), keys_.end(), order_.begin(), [](const SortKey& key) { return key.item; });
    Column(column).sorted = true;
    Column(column).ascending = ascending;
    if (!ascending) std::reverse(order_.begin(), order_.end());
}

void UcListModel::ToggleSort(int column) {
    if (column < 0 || column >= ColumnCount()) return;
    if (!Column(column).sorted) {
        SortCol(column, true);
        return;
    }
    std::reverse(order_.begin(), order_.end());
    Column(column).ascending = !Column(column).ascending;
}

int UcListModel::SortedColumn() const {
    const auto found = std::find_if(columns_.begin(), columns_.end(), [](const auto& c) { return c.sorted; });
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

}  // namespace controls
