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

void CreateFolders(const std::string& baseFolder) {
    platform::createFolders(baseFolder + kCacheFolder);
    platform::createFolders(baseFolder + kFilterFolder);
}

}  // namespace storage
