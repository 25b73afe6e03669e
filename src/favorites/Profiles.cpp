#include "favorites/Profiles.h"

#include <algorithm>

#include "platform/Files.h"
#include "storage/IconCache.h"
#include "storage/SafeFile.h"

namespace favorites {

namespace {

constexpr char kEmptyMark[] = " (Empty)";

// The first columns of a profile's lines, except the header, which has no tab.
bool CollectKeys(const std::string& profilePath, std::set<std::string, std::less<>>& keys) {
    std::string content;
    if (storage::ReadWhole(profilePath, content) == storage::ReadResult::Failed) return false;
    for (const std::string_view line : storage::SplitLines(content)) {
        const std::size_t tab = line.find('\t');
        if (tab != std::string_view::npos) keys.insert(storage::IconCache::KeyOf(line.substr(0, tab)));
    }
    return true;
}

}  // namespace

std::string ProfileName(int number) {
    return "My Favs " + std::to_string(std::clamp(number, 1, kProfileCount));
}

std::string ProfileNameFromIndex(int index) {
    return ProfileName(std::clamp(index, 0, kProfileCount - 1) + 1);
}

bool IsProfileName(const std::string& name) {
    for (int number = 1; number <= kProfileCount; ++number) {
        if (name == ProfileName(number)) return true;
    }
    return false;
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

void CleanUpProfiles(const std::string& baseFolder) {
    for (int number = 1; number <= kProfileCount; ++number) {
        storage::CleanUpAfter(ProfilePath(baseFolder, ProfileName(number)));
    }
}

bool IconKeysInProfiles(const std::string& baseFolder, std::set<std::string, std::less<>>& keys) {
    for (int number = 1; number <= kProfileCount; ++number) {
        if (!CollectKeys(ProfilePath(baseFolder, ProfileName(number)), keys)) return false;
    }
    return true;
}

}  // namespace favorites
