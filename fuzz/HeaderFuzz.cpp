// The persisted columns of a list: header properties and column widths. Whatever is read, what is written back
// reads the same again.
#include <algorithm>
#include <string>

#include "Fuzz.h"
#include "controls/UcListModel.h"

namespace {

using controls::UcListModel;

UcListModel Read(int columns, int shown, std::string_view properties) {
    UcListModel model;
    model.SetColumnMaxSeen(shown);
    model.SetColumnCount(columns);
    model.BuildDefaultHeaders();
    model.ReadHeaderProperties(properties);
    return model;
}

void RequireSaneWidths(UcListModel& model, std::string_view text) {
    model.SetColumnWidths(text);
    for (int column = 0; column < model.ColumnCount(); ++column) {
        const int width = model.ShownWidth(column);
        fuzz::Require(width >= 0 && width <= UcListModel::kMaxColumnWidth);
    }
    const std::string written = model.ColumnWidthsText();
    model.SetColumnWidths(written);
    fuzz::Require(model.ColumnWidthsText() == written);
    fuzz::Require(std::count(written.begin(), written.end(), ',') == model.DrawnColumns());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const int columns = data[0] % 80;
    const int shown = data[1] % 80;
    const std::string_view text = fuzz::Text(data + 2, size - 2);
    UcListModel model = Read(columns, shown, text);
    const std::string written = model.HeaderProperties();
    fuzz::Require(Read(columns, shown, written).HeaderProperties() == written);
    RequireSaneWidths(model, text);
    return 0;
}
