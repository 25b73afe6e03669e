#include "filter/FileFilter.h"

#include "controls/Resources.h"
#include "filter/FilterFile.h"
#include "platform/Files.h"
#include "storage/Folders.h"
#include "storage/SafeFile.h"
#include "text/Case.h"

namespace filter {

FileFilter::FileFilter(std::string baseFolder)
    : path_(baseFolder + "FileFilter"), icons_(baseFolder, storage::kFilterFolder, controls::kDefaultIcon) {}

bool FileFilter::Load() {
    storage::CleanUpAfter(path_);
    names_.Clear();
    unsaved_ = false;
    unread_ = true;
    ReadUnread();
    return !Empty();
}

// The user's names are still in a file that cannot be read: nothing may take them away. Names added meanwhile stay.
bool FileFilter::ReadUnread() {
    std::string content;
    if (!unread_ || storage::ReadWhole(path_, content) == storage::ReadResult::Failed) return false;
    unread_ = false;
    cList before = names_;
    for (const std::string_view name : ParseFilter(content)) {
        if (before.FindItem(name) < 0) names_.AddItem(name);
    }
    names_.Sort();
    return true;
}

AddFilterResult FileFilter::AddFilter(const std::string& path) {
    const AddFilterResult result = Insert(path);
    if (result == AddFilterResult::Added) Save();
    return result;
}

FileFilter::Added FileFilter::AddAll(const std::vector<std::string>& paths) {
    Added added;
    for (const std::string& path : paths) {
        const AddFilterResult result = Insert(path);
        added.duplicate = added.duplicate || result == AddFilterResult::Duplicate;
        added.badExtension = added.badExtension || result == AddFilterResult::BadExtension;
        if (result == AddFilterResult::Added) added.last = path;
    }
    if (!added.last.empty()) Save();
    return added;
}

AddFilterResult FileFilter::Insert(const std::string& path) {
    if (!text::IsProgramFile(path)) return AddFilterResult::BadExtension;
    if (!platform::fileExists(path)) return AddFilterResult::Missing;
    icons_.Make(path);
    const std::string_view fileName = text::FileNameOf(path);
    if (Contains(fileName)) return AddFilterResult::Duplicate;
    names_.AddItem(text::FavoriteDisplayName(fileName));
    names_.Sort();
    return AddFilterResult::Added;
}

void FileFilter::Remove(const std::vector<int>& indices) {
    std::vector<bool> goes(static_cast<std::size_t>(Count()), false);
    for (const int index : indices) {
        if (index >= 0 && index < Count()) goes[static_cast<std::size_t>(index)] = true;
    }
    cList kept;
    for (int index = 0; index < Count(); ++index) {
        if (!goes[static_cast<std::size_t>(index)]) kept.AddItem(names_.List(index));
    }
    if (kept.ListCount() == Count()) return;
    names_ = std::move(kept);
    // While the file still has the names that went, their icons stay, too.
    if (Save()) icons_.CleanUp([this](const std::string& key) { return Contains(key); });
}

bool FileFilter::Save() {
    ReadUnread();
    if (unread_) {
        unsaved_ = true;
        return false;
    }
    const bool saved = Empty() ? platform::deleteFile(path_) || platform::fileMissing(path_)
                               : storage::WriteWhole(path_, FormatFilter(names_));
    unsaved_ = !saved;
    return saved;
}

}  // namespace filter
