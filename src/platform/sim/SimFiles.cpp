// The disk, as tests set it up and look at it.
#include "platform/Files.h"
#include "platform/sim/SimMachine.h"

namespace platform::sim {

void putFile(const std::string& path, std::string content) {
    putEntry(machine(), path, std::move(content), false);
}

std::optional<std::string> file(const std::string& path) {
    return readFile(path, std::string::npos);
}
void putFolder(const std::string& path) {
    putEntry(machine(), path, {}, true);
}

std::vector<std::string> allFiles() {
    std::vector<std::string> paths;
    for (const auto& [key, entry] : machine().disk.entries) {
        if (!entry.folder) paths.push_back(entry.path);
    }
    return paths;
}

void setUnreadable(const std::string& path, bool unreadable) {
    machine().disk.entries.at(pathKey(path)).unreadable = unreadable;
}

void holdFile(const std::string& path) {
    machine().disk.entries.at(pathKey(path)).held = true;
}

void setLink(const std::string& path) {
    machine().disk.entries.at(pathKey(path)).link = true;
}

void setReadOnlyFolder(const std::string& folder, bool readOnly) {
    putFolder(folder);
    machine().disk.entries[pathKey(folder)].readOnly = readOnly;
}

void setDiskSpace(std::optional<std::size_t> bytes) {
    machine().disk.space = bytes;
}

void stopFilesAfter(std::optional<int> count) {
    machine().disk.operationsLeft = count;
    machine().disk.stopped = false;
}

}  // namespace platform::sim
