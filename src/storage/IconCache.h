// A folder of icons, one bitmap a program, kept because extracting an icon from a program is slow; and a strip of
// them for a list to show.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Picture.h"

namespace storage {

class IconCache {
public:
    static constexpr int kIconSize = 16;  // pixels

    // The icons are kept in `folder`, below `baseFolder`; both end in "\". `defaultIcon`: the icon resource shown
    // for programs whose icon is not kept.
    IconCache(std::string baseFolder, std::string folder, int defaultIcon);

    // What a file name's icon is kept under: the name in lower case, from behind the last "\", "/" or ":" on. A
    // name that is read from a file may hold anything, and could lead to files in other folders.
    static std::string KeyOf(std::string_view fileName);

    // Empties the strip, and forgets the pictures read so far.
    void Release();
    // Appends the icon kept for a file name to the strip; its index there, from 1 on. If none is kept, it is made
    // from `programPath`, unless that is empty, when it is first asked for.
    int Add(std::string_view fileName, std::string programPath = {});
    // The 16 x 16 icon at an index of the strip; the default icon when none is kept for it or there is no such
    // index. Empty only when the program has lost its own resources. Valid until the next call.
    const platform::PictureHandle& At(int index);

    // Keeps the first icon of a program file, unless there is one for its file name already. extractIcon.
    void Make(const std::string& programPath);
    // Deletes the icons whose keys are not `needed`. Anybody's picture may have come into the folder: what does not
    // look like an icon of ours stays, and so does all that is reached by a link. listFiles, readFile, deleteFile.
    void CleanUp(const std::function<bool(const std::string& key)>& needed) const;

private:
    struct Entry {
        std::string key;
        std::string programPath;
    };
    std::string FileOf(const std::string& key) const;
    platform::PictureHandle Load(const Entry& entry);
    platform::PictureHandle Extract(const Entry& entry) const;
    bool ReachedByLink() const;

    std::string baseFolder_;
    std::string folder_;  // below it
    int defaultIcon_;
    std::vector<Entry> strip_;                               // index 0 is strip index 1
    std::map<std::string, platform::PictureHandle> loaded_;  // an empty one: nothing kept for this key
    std::set<std::string> iconless_;                         // keys whose program gave no icon: asked once
    platform::PictureHandle default_;
};

}  // namespace storage
