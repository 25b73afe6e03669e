// The columns of the process list; RefreshCycle writes the rows in this order.
#pragma once

namespace app {

enum ProcessColumn : int {
    kFileColumn,
    kAffinityColumn,
    kPriorityColumn,
    kPidColumn,
    kCpuColumn,
    kMemoryColumn,
    kIconColumn,  // the row's icon handle in decimal; never shown
    kProcessColumns
};

// What a new list begins with. Each cell: caption, alignment, bold and colour of its items; then alignment, bold
// and colour of the header; width in pixels.
inline constexpr char kProcessHeader[] =
    "File,0,True,0,2,False,0,134|Affinity,2,False,0,2,False,0,82|Priority,2,False,0,2,False,0,60|"
    "PID,2,False,0,2,False,0,40|CPU %,2,False,0,2,False,0,60|Mem(KB),1,False,0,2,False,0,70|"
    ",2,False,0,2,False,16777215,0";
// The widths of the shown ones again, as "Column Widths" stores them.
inline constexpr char kProcessWidths[] = "134,82,60,40,60,70,";

}  // namespace app
