#include "storage/SafeFile.h"

#include "platform/Files.h"

namespace storage {

namespace {

// Of siblings, so that the move stays on one volume and is a single step. The first one serves, unless there is
// something in its place that cannot be deleted: a folder, or a file that another program holds.
constexpr const char* kTemporaryEndings[] = {".new", ".new2", ".new3"};

}  // namespace

ReadResult ReadWhole(const std::string& path, std::string& content) {
    std::optional<std::string> whole = platform::readFile(path, kMostBytes);
    content.clear();
    if (!whole) return platform::fileMissing(path) ? ReadResult::Missing : ReadResult::Failed;
    content = std::move(*whole);
    return ReadResult::Read;
}

bool WriteInPlaceOf(const std::string& path, std::string_view content) {
    platform::deleteFile(path);
    if (platform::writeNewFile(path, content)) return true;
    platform::deleteFile(path);  // half of it, on a full disk
    return false;
}

bool WriteWhole(const std::string& path, std::string_view content) {
    if (content.size() > kMostBytes) return false;
    for (const char* ending : kTemporaryEndings) {
        const std::string temporary = path + ending;
        if (!WriteInPlaceOf(temporary, content)) continue;
        if (platform::moveFileOver(temporary, path)) return true;
        platform::deleteFile(temporary);
        return false;
    }
    return false;
}

void CleanUpAfter(const std::string& path) {
    for (const char* ending : kTemporaryEndings) platform::deleteFile(path + ending);
}

std::vector<std::string_view> SplitLines(std::string_view content) {
    std::vector<std::string_view> lines;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        std::string_view line = content.substr(0, end);
        // A CR belongs to the line end only where a LF follows it.
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos) break;
        content.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace storage
