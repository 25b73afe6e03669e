#include "favorites/IconCache.h"

#include <set>

#include "controls/Resources.h"
#include "favorites/Profiles.h"
#include "platform/Files.h"
#include "storage/SafeFile.h"
#include "text/Case.h"

namespace favorites {

namespace {

constexpr char kBitmap[] = ".bmp";
constexpr std::size_t kMostPictures = 256;  // of a system-wide limited kind of object

bool Usable(const platform::PictureHandle& picture) {
    return platform::pictureSize(picture) == platform::Size{IconCache::kIconSize, IconCache::kIconSize};
}

// Adds the lower-cased first columns of a profile's lines, except the header, which has no tab. False when the
// profile is there but cannot be read.
bool CollectNames(const std::string& profilePath, std::set<std::string, std::less<>>& names) {
    std::string content;
    if (storage::ReadWhole(profilePath, content) == storage::ReadResult::Failed) return false;
    for (const std::string_view line : storage::SplitLines(content)) {
        const std::size_t tab = line.find('\t');
        if (tab != std::string_view::npos) names.insert(text::Lower(line.substr(0, tab)));
    }
    return true;
}

}  // namespace

IconCache::IconCache(std::string baseFolder) : baseFolder_(std::move(baseFolder)) {}

void IconCache::Release() {
    strip_.clear();
    loaded_.clear();
}

int IconCache::Add(const std::string& fileName) {
    strip_.push_back(text::Lower(fileName));
    return static_cast<int>(strip_.size());
}

const platform::PictureHandle& IconCache::At(int index) {
    if (!default_) {
        const platform::IconHandle icon = platform::loadIconResource(controls::kDefaultIcon, kIconSize);
        if (icon) default_ = platform::pictureFromIcon(icon.raw(), kIconSize);
    }
    if (index < 1 || static_cast<std::size_t>(index) > strip_.size()) return default_;
    // Pictures are read when they are first drawn: a long profile starts as fast as a short one, and never
    // holds more pictures than a few screens of rows need.
    const std::string& key = strip_[static_cast<std::size_t>(index) - 1];
    auto entry = loaded_.find(key);
    if (entry == loaded_.end()) {
        if (loaded_.size() >= kMostPictures) loaded_.clear();
        entry = loaded_.emplace(key, platform::loadPictureFile(FileOf(key))).first;
    }
    return Usable(entry->second) ? entry->second : default_;
}

void IconCache::Make(const std::string& programPath) {
    const std::string key = text::Lower(text::FileNameOf(programPath));
    const std::string file = FileOf(key);
    // A bitmap that is damaged, or not one of ours, counts as none.
    if (Usable(platform::loadPictureFile(file))) return;
    const platform::IconHandle icon = platform::extractIcon(programPath, kIconSize);
    if (!icon) return;
    if (platform::savePictureFile(file, platform::pictureFromIcon(icon.raw(), kIconSize))) loaded_.erase(key);
}

void IconCache::CleanUp() const {
    std::set<std::string, std::less<>> names;
    for (int number = 1; number <= kProfileCount; ++number) {
        // What an unreadable profile needs is unknown: everything stays until it can be read again.
        if (!CollectNames(ProfilePath(baseFolder_, ProfileName(number)), names)) return;
    }
    const std::string folder = CacheFolder(baseFolder_);
    for (const std::string& file : platform::listFiles(folder, "*.bmp")) {
        const std::string lower = text::Lower(file);
        // The pattern also finds files by their short names, whose extension may be a longer one.
        if (!lower.ends_with(kBitmap)) continue;
        if (!names.contains(lower.substr(0, lower.size() - 4))) platform::deleteFile(folder + file);
    }
}

std::string IconCache::FileOf(const std::string& key) const {
    return CacheFolder(baseFolder_) + key + kBitmap;
}

}  // namespace favorites
