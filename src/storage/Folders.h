// Where the program keeps its files. Every folder ends in "\".
#pragma once

#include <string>

namespace storage {

// The folder of this program. programPath.
std::string BaseFolder();
std::string CacheFolder(const std::string& baseFolder);   // favourites' icons: base folder + "Cache\"
std::string FilterFolder(const std::string& baseFolder);  // filtered programs' icons, inside the cache folder
// Makes the cache and filter folders. createFolders; errors are ignored.
void CreateFolders(const std::string& baseFolder);

}  // namespace storage
