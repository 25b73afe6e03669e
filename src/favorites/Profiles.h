// The five profiles: their names, and where their files lie.
#pragma once

#include <string>

namespace favorites {

inline constexpr int kProfileCount = 5;

// "My Favs " + number; `number` is held within 1..5, so that a damaged setting still names a profile.
std::string ProfileName(int number);
// The same from the zero-based index in the settings.
std::string ProfileNameFromIndex(int index);

// The folder of this program with a trailing "\". programPath.
std::string BaseFolder();
std::string CacheFolder(const std::string& baseFolder);   // favourites' icons: base folder + "Cache\"
std::string FilterFolder(const std::string& baseFolder);  // filtered programs' icons, inside the cache folder
// Makes the cache and filter folders. createFolders; errors are ignored.
void CreateFolders(const std::string& baseFolder);

std::string ProfilePath(const std::string& baseFolder, const std::string& name);
bool ProfileExists(const std::string& baseFolder, const std::string& name);
// The name, followed by " (Empty)" when the profile has no file.
std::string ProfileCaption(const std::string& baseFolder, int number);
// The name behind such a caption: every " (Empty)" is taken out.
std::string NameFromCaption(std::string caption);

}  // namespace favorites
