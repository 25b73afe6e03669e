// One favourite: a program file and the affinity and priority it is to run with.
#pragma once

#include <string>
#include <string_view>

namespace favorites {

// The columns of the favourites list, and of a line in a profile file up to kSavedColumns.
enum FavoriteColumn : int {
    kColName = 0,
    kColAffinity = 1,
    kColPriority = 2,
    kColPath = 3,
    kColParam = 4,
    kSavedColumns = 5,
    kColIcon = 5,  // index of the row's icon; never saved
};

// The priority that leaves a process's priority alone.
inline constexpr char kDefaultPriority[] = "Default";

struct Favorite {
    std::string name;      // file name as shown, e.g. "Notepad.exe"
    std::string affinity;  // ascending CPU digits, e.g. "013"
    std::string priority;  // "Real", "High", "Above", "Normal", "Below", "Low" or "Default"
    std::string path;      // full path: what the favourite is known by
    std::string param;     // command line when it is launched; may be empty
    friend bool operator==(const Favorite&, const Favorite&) = default;
};

// What tells favourites apart: the path without the blanks at both ends, in lower case. No two favourites of a
// profile have the same.
std::string IdentityOf(std::string_view path);

}  // namespace favorites
