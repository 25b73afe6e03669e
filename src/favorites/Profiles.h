// The five profiles: their names, and where their files lie.
#pragma once

#include <set>
#include <string>

#include "storage/Folders.h"

namespace favorites {

using storage::BaseFolder;
using storage::CreateFolders;

inline constexpr int kProfileCount = 5;

// "My Favs " + number; `number` is held within 1..5, so that a damaged setting still names a profile.
std::string ProfileName(int number);
// The same from the zero-based index in the settings.
std::string ProfileNameFromIndex(int index);

// True for the names of the five, letter for letter.
bool IsProfileName(const std::string& name);

std::string ProfilePath(const std::string& baseFolder, const std::string& name);
bool ProfileExists(const std::string& baseFolder, const std::string& name);
// The name, followed by " (Empty)" when the profile has no file.
std::string ProfileCaption(const std::string& baseFolder, int number);

// Deletes what an end of the program in the middle of a save has left beside the profiles.
void CleanUpProfiles(const std::string& baseFolder);

// Collects the keys under which the icons of all favourites in all five profiles are kept. False when a profile is
// there but cannot be read: what it holds is unknown then.
bool IconKeysInProfiles(const std::string& baseFolder, std::set<std::string, std::less<>>& keys);

}  // namespace favorites
