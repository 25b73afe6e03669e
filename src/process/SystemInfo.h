// Memory and processor of the machine, as the main window's gauges and their tips show them.
#pragma once

#include <cstdint>
#include <string>

namespace process {

// Physical memory in ten-thousandths of a KB: 1 gives all of it, 0 what is available; 0 for any other argument
// and when the system refuses. GlobalMemoryStatusEx.
std::int64_t Memory(int which);
// Available memory as percent of all memory less 100 KB, to the nearest whole one; within 16 bits. 0 when the
// system refuses, and for a machine of 100 KB or less.
std::int16_t MemoryPercent();

// What a tip says; lines of the text end in CR LF.
struct TipText {
    std::string title;
    std::string text;
};
// Available and all memory in KB.
TipText MemoryTip();
// Name, identifier and clock of the first processor; what cannot be read is left empty, the clock 0.
// RegOpenKeyExA, RegQueryValueExA.
TipText ProcessorTip();

}  // namespace process
