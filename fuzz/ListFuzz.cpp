// Rows of any text, sorted by any column: the order is one of all rows, ascending as the column compares, and the
// selection stays with its items.
#include <string>

#include "Fuzz.h"
#include "controls/UcListModel.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

namespace {

using controls::UcListModel;

constexpr int kColumns = 3;
constexpr int kMostRows = 300;

void Fill(UcListModel& model, std::string_view text) {
    model.SetColumnCount(kColumns);
    for (const std::string_view line : text::Split(text, '\n')) {
        if (model.ListCount() == kMostRows) break;
        model.AddItem(line);
    }
}

bool Numeric(const UcListModel& model, int column) {
    for (int row = 0; row < model.ListCount(); ++row) {
        const std::string& cell = model.CellText(row, column);
        if (cell.empty() || cell.front() == '0' || !text::IsNumeric(cell)) return false;
    }
    return true;
}

void RequireAscending(const UcListModel& model, int column) {
    const bool numeric = Numeric(model, column);
    for (int row = 1; row < model.ListCount(); ++row) {
        const std::string& above = model.CellText(row - 1, column);
        const std::string& below = model.CellText(row, column);
        fuzz::Require(numeric ? text::ToInt32(above) <= text::ToInt32(below)
                              : text::Lower(above) <= text::Lower(below));
    }
}

void RequireEveryItemOnce(const UcListModel& model) {
    for (int item = 0; item < model.ListCount(); ++item) fuzz::Require(model.RowOf(item) >= 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    UcListModel model;
    Fill(model, fuzz::Text(data + 1, size - 1));
    const int chosen = data[0] % model.ListCount();
    model.SelectOnly(chosen);
    for (int column = 0; column < kColumns; ++column) {
        model.SortCol(column, true);
        RequireAscending(model, column);
        model.SortCol(column, false);
        RequireEveryItemOnce(model);
        fuzz::Require(model.IsOnlySelected(model.RowOf(chosen)));
    }
    fuzz::Require(model.RemoveItem(chosen));
    RequireEveryItemOnce(model);
    return 0;
}
