// Copying favourites into the file of another profile, and telling which of them it holds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "favorites/Favorite.h"

namespace favorites {

// A profile as menus offer it.
struct ProfileEntry {
    std::string caption;  // "My Favs 3", or "My Favs 3 (Empty)"
    bool empty = false;   // it has no file
};
// The five, in order.
std::vector<ProfileEntry> ProfileEntries(const std::string& baseFolder);

// Appends those of the favourites that the profile does not hold; a new file starts with the header. Held is a path
// that stands in any line, the header included, whatever the letter case: a plain search on purpose, so one that
// begins a longer one there counts as held. The file is replaced whole, so a full disk or an end of the program
// leaves it as it was. True when it was written; false when there was nothing to add, or the name is none of the
// five, or the file cannot be read or written.
bool CopyToProfile(const std::vector<Favorite>& favorites, const std::string& baseFolder,
                   const std::string& profileName);

// For each favourite whether the profile's file, read now, holds its path. What cannot be read holds nothing.
std::vector<bool> HeldByProfile(const std::vector<Favorite>& favorites, const std::string& baseFolder,
                                const std::string& profileName);

}  // namespace favorites
