#include "storage/Folders.h"

#include "platform/Files.h"
#include "platform/Machine.h"

namespace storage {

std::string BaseFolder() {
    std::string folder = platform::programPath();
    folder.resize(folder.rfind('\\') + 1);  // nothing before a "\": an empty path, made "\" below
    if (!folder.ends_with('\\')) folder += '\\';
    return folder;
}

std::string CacheFolder(const std::string& baseFolder) {
    return baseFolder + "Cache\\";
}

std::string FilterFolder(const std::string& baseFolder) {
    return CacheFolder(baseFolder) + "Filters\\";
}

void CreateFolders(const std::string& baseFolder) {
    platform::createFolders(CacheFolder(baseFolder));
    platform::createFolders(FilterFolder(baseFolder));
}

}  // namespace storage
