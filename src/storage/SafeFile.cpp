#include "storage/SafeFile.h"

#include "platform/Files.h"

namespace storage {

namespace {

// A sibling, so that the move stays on one volume and is a single step.
std::string TemporaryOf(const std::string& path) {
    return path + ".new";
}

}  // namespace

ReadResult ReadWhole(const std::string& path, std::string& content) {
    std::optional<std::string> whole = platform::readFile(path, kMostBytes);
    content.clear();
    if (!whole) return platform::fileMissing(path) ? ReadResult::Missing : ReadResult::Failed;
    content = std::move(*whole);
    return ReadResult::Read;
}

bool WriteWhole(const std::string& path, std::string_view content) {
    if (content.size() > kMostBytes) return false;
    // One left behind by an earlier end of the program is simply written over.
    const std::string temporary = TemporaryOf(path);
    if (platform::writeFile(temporary, content) && platform::moveFileOver(temporary, path)) return true;
    platform::deleteFile(temporary);
    return false;
}

void CleanUpAfter(const std::string& path) {
    platform::deleteFile(TemporaryOf(path));
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
