// Which files count as programs.
#pragma once

#include <string_view>

namespace text {

// What the user is told about a file that is none.
inline constexpr char kBadExtensionText[] = "Files must have an extension of \".Exe\" or \".Scr\"";

// True when the path ends in ".exe" or ".scr", in any letter case. Whether there is such a file is not asked.
bool IsProgramFile(std::string_view path);

}  // namespace text
