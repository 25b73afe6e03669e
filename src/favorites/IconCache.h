// The favourites' icons: bitmaps in the cache folder, kept because extracting an icon from a program is slow,
// and the strip of icons that the favourites list shows.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Picture.h"

namespace favorites {

class IconCache {
public:
    static constexpr int kIconSize = 16;  // pixels

    explicit IconCache(std::string baseFolder);

    // Empties the strip.
    void Release();
    // Appends the icon kept for a file name (letter case is ignored) to the strip; its index there, from 1 on.
    int Add(const std::string& fileName);
    // The 16 x 16 icon at an index of the strip; the default program icon when none is kept for it or there is
    // no such index. Empty only when the program has lost its own resources. Valid until the next call.
    const platform::PictureHandle& At(int index);

    // Keeps the first icon of a program file, unless there is one for its file name already. extractIcon.
    void Make(const std::string& programPath);
    // Deletes the bitmaps of programs that none of the five profiles holds. listFiles, deleteFile.
    void CleanUp() const;

private:
    std::string FileOf(const std::string& key) const;

    std::string baseFolder_;
    std::vector<std::string> strip_;                         // keys; index 0 is strip index 1
    std::map<std::string, platform::PictureHandle> loaded_;  // an empty one: nothing kept for this key
    platform::PictureHandle default_;
};

}  // namespace favorites
