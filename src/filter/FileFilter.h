// The file filter: names of program files whose processes the user does not want to see, mirrored in a file.
// Messages belong to the windows that call.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "filter/cList.h"
#include "storage/IconCache.h"
#include "text/ProgramFile.h"

namespace filter {

enum class AddFilterResult {
    Added,
    BadExtension,  // neither ".exe" nor ".scr": tell the user kBadExtensionText
    Missing,       // no such file: say nothing
    Duplicate,     // in the filter already: tell the user kDuplicateText, once for all files given together
};

using text::kBadExtensionText;
inline constexpr char kDuplicateText[] =
    "One or more files were not added because they are already in your filter list.";

// An entry is a file name; the folder plays no part, nor does letter case.
class FileFilter {
public:
    // `baseFolder` ends in "\". Empty until loaded.
    explicit FileFilter(std::string baseFolder);

    // Reads the filter file, at the start of the program: what an end in the middle of a save has left beside it
    // is deleted. False when the filter is empty then: there is no file, it holds no names, or it
    // cannot be read.
    bool Load();
    // Reads the file if that could not be done so far; what was added meanwhile stays. True when it is read now.
    bool ReadUnread();
    bool Empty() const { return Count() == 0; }
    int Count() const { return names_.ListCount(); }
    const std::string& Name(int index) const { return names_.List(index); }  // in sorted order, 0..Count() - 1
    bool Contains(std::string_view fileName) const { return names_.FindItem(fileName) >= 0; }

    // Adds the file name of a program, keeps its icon and saves.
    AddFilterResult AddFilter(const std::string& path);
    // The same for several files, which are saved once.
    struct Added {
        bool duplicate = false;  // of at least one; each is to be told once
        bool badExtension = false;
        std::string last;  // path of the last one added, empty when none was
    };
    Added AddAll(const std::vector<std::string>& paths);
    // Removes entries by their index, saves, and drops the icons nobody needs any more.
    void Remove(const std::vector<int>& indices);
    // Writes the filter file; an empty filter has none. When the file could not be read so far, its names come in
    // first. False on failure, when the file is what it was.
    bool Save();
    // Tries once more what the last save could not write.
    void SavePending() {
        if (unsaved_) Save();
    }

    // The icons kept for the entries.
    storage::IconCache& Icons() { return icons_; }

private:
    AddFilterResult Insert(const std::string& path);

    std::string path_;
    cList names_;
    storage::IconCache icons_;
    bool unread_ = false;  // the file is there, but could not be read: never written over
    bool unsaved_ = false;
};

}  // namespace filter
