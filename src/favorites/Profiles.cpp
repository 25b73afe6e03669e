#include "favorites/Profiles.h"

#include <algorithm>

#include "platform/Files.h"
#include "platform/Machine.h"

namespace favorites {

namespace {

constexpr char kEmptyMark[] = " (Empty)";

}  // namespace

std::string ProfileName(int number) {
    return "My Favs " + std::to_string(std::clamp(number, 1, kProfileCount));
}

std::string ProfileNameFromIndex(int index) {
    return ProfileName(std::clamp(index, 0, kProfileCount - 1) + 1);
}

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

std::string ProfilePath(const std::string& baseFolder, const std::string& name) {
    return baseFolder + name;
}

bool ProfileExists(const std::string& baseFolder, const std::string& name) {
    return platform::fileExists(ProfilePath(baseFolder, name));
}

std::string ProfileCaption(const std::string& baseFolder, int number) {
    const std::string name = ProfileName(number);
    return ProfileExists(baseFolder, name) ? name : name + kEmptyMark;
}

std::string NameFromCaption(std::string caption) {
    const std::string_view mark = kEmptyMark;
    for (std::size_t at = caption.find(mark); at != std::string::npos; at = caption.find(mark, at)) {
        caption.erase(at, mark.size());
    }
    return caption;
}

}  // namespace favorites
