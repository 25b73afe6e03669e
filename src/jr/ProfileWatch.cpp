#include "jr/ProfileWatch.h"

#include "favorites/ProfileFile.h"
#include "storage/SafeFile.h"

namespace jr {

void ProfileWatch::Follow(const std::string& path) {
    path_ = path;
    rows_.clear();
    read_ = false;
}

bool ProfileWatch::Refresh() {
    // The stamp comes first: what is written while the file is being read leads to another one next time.
    const std::optional<platform::FileStamp> stamp = platform::fileStamp(path_);
    if (read_ && stamp == stamp_) return false;
    std::string content;
    // Locked by another program, most likely, and only for a moment: tried again until it can be read.
    read_ = storage::ReadWhole(path_, content) != storage::ReadResult::Failed;
    if (!read_) return false;
    stamp_ = stamp;
    rows_ = favorites::ParseProfile(content);
    return true;
}

}  // namespace jr
