// The format of the filter file. Text in the process's code page, one file name a line, lines ended by CR LF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "filter/cList.h"

namespace filter {

// The names in a filter file's content, in its order, trimmed of blanks; empty ones are left out. Commas separate
// names as line ends do, so a name with a comma, which is written as it is, comes back as two. A name that stands
// in double quotes on one line loses them and keeps its commas. They point into `content`.
std::vector<std::string_view> ParseFilter(std::string_view content);
// The content of a filter file with these names.
std::string FormatFilter(const cList& names);

}  // namespace filter
