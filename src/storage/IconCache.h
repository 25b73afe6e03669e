// A folder of icons, one bitmap a program, kept because extracting an icon from a program is slow; and a strip of
// them for a list to show.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Picture.h"

namespace storage {

class IconCache {
public:
    static constexpr int kIconSize = 16;  // pixels

    // `folder` ends in "\". `defaultIcon`: the icon resource shown for programs whose icon is not kept.
    IconCache(std::string folder, int defaultIcon);

    // Empties the strip, and forgets the pictures read so far.
    void Release();
    // Appends the icon kept for a file name (letter case is ignored) to the strip; its index there, from 1 on.
    int Add(std::string_view fileName);
    // The 16 x 16 icon at an index of the strip; the default icon when none is kept for it or there is no such
    // index. Empty only when the program has lost its own resources. Valid until the next call.
    const platform::PictureHandle& At(int index);

    // Keeps the first icon of a program file, unless there is one for its file name already. extractIcon.
    void Make(const std::string& programPath);
    // Deletes the bitmaps of the file names (in lower case) that are not `needed`. listFiles, deleteFile.
    void CleanUp(const std::function<bool(const std::string& lowerFileName)>& needed) const;

private:
    std::string FileOf(const std::string& key) const;

    std::string folder_;
    int defaultIcon_;
    std::vector<std::string> strip_;                         // keys; index 0 is strip index 1
    std::map<std::string, platform::PictureHandle> loaded_;  // an empty one: nothing kept for this key
    platform::PictureHandle default_;
};

}  // namespace storage
