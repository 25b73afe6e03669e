// Where the program keeps its files. Every folder ends in "\".
#pragma once

#include <string>

namespace storage {

// The folder of this program. programPath.
std::string BaseFolder();
// Below it: favourites' icons, and those of filtered programs.
inline constexpr char kCacheFolder[] = "Cache\\";
inline constexpr char kFilterFolder[] = "Cache\\Filters\\";
// Makes the cache and filter folders. createFolders; errors are ignored.
void CreateFolders(const std::string& baseFolder);

}  // namespace storage
