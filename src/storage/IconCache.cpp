#include "storage/IconCache.h"

#include <optional>

#include "platform/Files.h"
#include "storage/BitmapFile.h"
#include "storage/SafeFile.h"
#include "text/Case.h"

namespace storage {

namespace {

constexpr char kBitmap[] = ".bmp";
constexpr platform::Size kSize{IconCache::kIconSize, IconCache::kIconSize};
constexpr std::size_t kMostPictures = 256;  // of a system-wide limited kind of object

std::optional<Bitmap> ReadBitmap(const std::string& path) {
    const std::optional<std::string> content = platform::readFile(path, kMostBitmapBytes);
    return content ? DecodeBitmap(*content) : std::nullopt;
}

// Empty when the file is missing, or no such picture.
platform::PictureHandle LoadPicture(const std::string& path) {
    const std::optional<Bitmap> bitmap = ReadBitmap(path);
    return bitmap ? platform::pictureFromPixels(bitmap->size, bitmap->pixels) : platform::PictureHandle();
}

// As icons are kept here, and few other pictures.
bool IsKeptIcon(const std::string& path) {
    const std::optional<Bitmap> bitmap = ReadBitmap(path);
    return bitmap && bitmap->size == kSize && bitmap->bitsPerPixel == 32;
}

void SavePicture(const std::string& path, const platform::PictureHandle& picture) {
    const std::vector<std::uint32_t> pixels = platform::picturePixels(picture);
    if (!pixels.empty()) WriteInPlaceOf(path, EncodeBitmap(platform::pictureSize(picture), pixels));
}

bool Usable(const platform::PictureHandle& picture) {
    return platform::pictureSize(picture) == kSize;
}

}  // namespace

IconCache::IconCache(std::string baseFolder, std::string folder, int defaultIcon)
    : baseFolder_(std::move(baseFolder)), folder_(std::move(folder)), defaultIcon_(defaultIcon) {}

std::string IconCache::KeyOf(std::string_view fileName) {
    return text::Lower(fileName.substr(fileName.find_last_of("\\/:") + 1));
}

void IconCache::Release() {
    strip_.clear();
    loaded_.clear();
}

int IconCache::Add(std::string_view fileName, std::string programPath) {
    strip_.push_back({KeyOf(fileName), std::move(programPath)});
    return static_cast<int>(strip_.size());
}

const platform::PictureHandle& IconCache::At(int index) {
    if (!default_) {
        const platform::IconHandle icon = platform::loadIconResource(defaultIcon_, kIconSize);
        if (icon) default_ = platform::pictureFromIcon(icon.raw(), kIconSize);
    }
    if (index < 1 || static_cast<std::size_t>(index) > strip_.size()) return default_;
    // Pictures are read when they are first drawn: a long list starts as fast as a short one, and never
    // holds more pictures than a few screens of rows need.
    const Entry& entry = strip_[static_cast<std::size_t>(index) - 1];
    auto found = loaded_.find(entry.key);
    if (found == loaded_.end()) {
        if (loaded_.size() >= kMostPictures) loaded_.clear();
        found = loaded_.emplace(entry.key, Load(entry)).first;
    }
    return Usable(found->second) ? found->second : default_;
}

platform::PictureHandle IconCache::Load(const Entry& entry) {
    const std::string file = FileOf(entry.key);
    platform::PictureHandle kept = LoadPicture(file);
    // A file that is there, but no icon, may be somebody else's: it is written over only for the user.
    if (kept || entry.programPath.empty() || iconless_.contains(entry.key) || !platform::fileMissing(file)) {
        return kept;
    }
    platform::PictureHandle made = Extract(entry);
    if (!made) iconless_.insert(entry.key);
    return made;
}

// Shown even where it cannot be kept.
platform::PictureHandle IconCache::Extract(const Entry& entry) const {
    const platform::IconHandle icon = platform::extractIcon(entry.programPath, kIconSize);
    if (!icon) return {};
    platform::PictureHandle picture = platform::pictureFromIcon(icon.raw(), kIconSize);
    SavePicture(FileOf(entry.key), picture);
    return picture;
}

void IconCache::Make(const std::string& programPath) {
    const Entry entry{KeyOf(programPath), programPath};
    // A bitmap that is damaged, or not one of ours, counts as none.
    if (!Usable(LoadPicture(FileOf(entry.key))) && Extract(entry)) loaded_.erase(entry.key);
}

void IconCache::CleanUp(const std::function<bool(const std::string&)>& needed) const {
    if (ReachedByLink()) return;
    const std::string folder = baseFolder_ + folder_;
    for (const std::string& file : platform::listFiles(folder, "*.bmp")) {
        const std::string lower = text::Lower(file);
        // The pattern also finds files by their short names, whose extension may be a longer one.
        if (!lower.ends_with(kBitmap) || needed(lower.substr(0, lower.size() - 4))) continue;
        if (IsKeptIcon(folder + file)) platform::deleteFile(folder + file);
    }
}

// Of the folders between the program and the icons.
bool IconCache::ReachedByLink() const {
    for (std::size_t end = folder_.find('\\'); end != std::string::npos; end = folder_.find('\\', end + 1)) {
        if (platform::isLink(baseFolder_ + folder_.substr(0, end))) return true;
    }
    return false;
}

std::string IconCache::FileOf(const std::string& key) const {
    return baseFolder_ + folder_ + key + kBitmap;
}

}  // namespace storage
