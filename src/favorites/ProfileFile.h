// The format of a profile file, and reading and writing one. Text in the process's code page, lines ended by
// CR LF: a header, then one favourite a line, its five columns separated by a tab.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "favorites/Favorite.h"

namespace favorites {

inline constexpr char kProfileHeader[] = "[Kestrum 2 - Morvell Software 2010]";

// The favourites in a profile's content, bytes as they are except for blanks around a path. The first line, lines
// of 7 characters or less and columns behind the fifth are left out, and so is a line whose path an earlier one
// has: set twice, a process would go to and fro. A column that is missing is empty.
std::vector<Favorite> ParseProfile(std::string_view content);
// The line of a favourite, with its CR LF.
std::string FormatLine(const Favorite& favorite);
// The content of a profile file with these favourites, header first.
std::string FormatProfile(const std::vector<Favorite>& favorites);

struct LoadedProfile {
    std::vector<Favorite> rows;  // in file order, without the missing ones
    int missing = 0;             // favourites whose program file does not exist
    std::string missingNames;    // their file names joined by ", "; cut with "..." to what a balloon can show
    bool unreadable = false;     // the file exists but could not be read: it must not be written over
};

// Reads a profile; a missing file gives no rows. fileExists is asked for each path.
LoadedProfile LoadProfile(const std::string& path);
// Writes the profile whole, old or new at any moment; no favourites delete the file. False on failure, when the
// file is what it was.
bool SaveProfile(const std::string& path, const std::vector<Favorite>& favorites);

// The text of the balloon that reports `missing` favourites by name.
std::string MissingText(int missing, const std::string& names);

}  // namespace favorites
