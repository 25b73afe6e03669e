// A list in a window of the simulated desktop, with the columns of the process list, and what it raised.
#pragma once

#include <string>
#include <utility>

#include "ControlFixture.h"
#include "controls/UcList1.h"

namespace test {

inline const char* const kProcessColumns =
    "File,0,True,0,2,False,0,134|Affinity,2,False,0,2,False,0,82|Priority,2,False,0,2,False,0,60|"
    "PID,2,False,0,2,False,0,40|CPU %,2,False,0,2,False,0,60|Mem(KB),1,False,0,2,False,0,70|"
    ",2,False,0,2,False,16777215,0";

inline controls::UcListProperties ProcessProperties() {
    controls::UcListProperties properties;
    properties.columnCount = 7;
    properties.columnMaxSeen = 6;
    properties.headerProperties = kProcessColumns;
    return properties;
}

// "Name07 <tab> 03 <tab> Normal <tab> 28 <tab> 05 <tab> 1,007 <tab> 900"
inline std::string ProcessRow(int number, const std::string& cpu = "05") {
    char text[96];
    std::snprintf(text, sizeof text, "Name%02d\t03\tNormal\t%d\t%s\t1,%03d\t900", number, number * 4, cpu.c_str(),
                  number);
    return text;
}

struct ListFixture : ControlFixture<controls::UcList1> {
    // 470 wide so that no horizontal bar is needed; ten rows fit under a header of 20 pixels.
    ListFixture() : ControlFixture(platform::Rect::fromSize({5, 5}, {470, 20 + 1 + 10 * 17})) {
        list.ReadProperties(ProcessProperties());
        list.Click = [this](int button) { Note("Click", button); };
        list.DblClick = [this](int button) { Note("DblClick", button); };
        list.HeaderClick = [this](int column) { Note("HeaderClick", column); };
        list.KeyClick = [this](std::uint16_t code) { Note("KeyClick", code); };
        list.MouseTip = [this](int row) { Note("MouseTip", row); };
        list.ColumnResized = [this] { Note("ColumnResized", 0); };
    }

    void Fill(int rows) {
        list.SetLocked(true);
        for (int i = 0; i < rows; ++i) list.AddItem(ProcessRow(i));
        list.SetLocked(false);
        platform::sim::run(0);
    }
    platform::Point Cell(int row, int column) const {
        const platform::Rect cell = list.Layout().CellRect(row - list.Layout().topIndex, column);
        return {cell.left + 6, cell.top + 8};
    }
    platform::Point Part(controls::UcListBar controls::UcListLayout::*bar, int part) const {
        const platform::Rect area = (list.Layout().*bar).part[static_cast<std::size_t>(part)];
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }
    std::string SelectedRows() const {
        std::string rows;
        for (const int row : list.SelectedRows()) rows += std::to_string(row) + ' ';
        return rows;
    }
    std::string Events() { return std::exchange(events, {}); }
    void Note(const char* name, int argument) {
        events += std::string(name) + '(' + std::to_string(argument) + ") ";
    }

    controls::UcList1& list = control;
    std::string events;
};

inline constexpr platform::Modifiers kWithShift{true, false, false};
inline constexpr platform::Modifiers kWithCtrl{false, true, false};

}  // namespace test
