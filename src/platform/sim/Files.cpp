// Files of the simulated machine: one tree, compared without regard to case, on drives that always exist.
#include "platform/Files.h"

#include <algorithm>

#include "platform/CodePage.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::FileEntry;
using sim::machine;
using sim::pathKey;

namespace {

constexpr std::size_t kLongestPath = 259;  // and a NUL

bool isDrive(std::string_view key) {
    return key.size() == 2;
}
std::string parentKey(const std::string& key) {
    return key.substr(0, key.rfind('\\'));
}

FileEntry* findEntry(const std::string& key) {
    const auto found = machine().disk.entries.find(key);
    return found == machine().disk.entries.end() ? nullptr : &found->second;
}

bool isFolder(const std::string& key) {
    if (isDrive(key)) return true;
    const FileEntry* entry = findEntry(key);
    return entry != nullptr && entry->folder;
}

bool inReadOnlyFolder(std::string key) {
    while (!isDrive(key)) {
        key = parentKey(key);
        const FileEntry* folder = findEntry(key);
        if (folder != nullptr && folder->readOnly) return true;
    }
    return false;
}

// Its name is taken in every folder.
bool isDevice(std::string_view key) {
    return key.substr(key.rfind('\\') + 1) == "nul";
}

// Whether a file can come to stand at this place.
bool canPlaceFile(const std::string& key) {
    return !key.empty() && !isFolder(key) && isFolder(parentKey(key)) && !inReadOnlyFolder(key);
}

bool isHeld(const std::string& key) {
    const FileEntry* entry = findEntry(key);
    return entry != nullptr && entry->held;
}

// Counts one changing operation; false when the program was stopped before it, with `dying` set for the very
// operation that it was stopped in.
bool mayChange(bool& dying) {
    auto& disk = machine().disk;
    dying = false;
    if (!disk.operationsLeft) return true;
    if (*disk.operationsLeft > 0) {
        --*disk.operationsLeft;
        return true;
    }
    dying = !disk.stopped;
    disk.stopped = true;
    return false;
}

bool matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == '*') {
        for (std::size_t skipped = 0; skipped <= name.size(); ++skipped) {
            if (matches(name.substr(skipped), pattern.substr(1))) return true;
        }
        return false;
    }
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           matches(name.substr(1), pattern.substr(1));
}

std::string lastName(const std::string& path) {
    return path.substr(path.rfind('\\') + 1);
}

// "C:\a\" gives "C:\a"; the path is known to name something.
std::string plainPath(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    for (std::size_t at = path.find("\\\\"); at != std::string::npos; at = path.find("\\\\")) path.erase(at, 1);
    if (path.size() > 2 && path.back() == '\\') path.pop_back();
    return path;
}

// The path of something new in a folder that is there: the folder's name keeps its case.
std::string newPath(const std::string& key, const std::string& path) {
    const FileEntry* parent = findEntry(parentKey(key));
    const std::string plain = plainPath(path);
    return (parent == nullptr ? plain.substr(0, 2) : parent->path) + "\\" + lastName(plain);
}

}  // namespace

std::optional<std::string> readFile(const std::string& path, std::size_t maxBytes) {
    const FileEntry* entry = findEntry(pathKey(path));
    if (entry == nullptr || entry->folder || entry->unreadable || entry->content.size() > maxBytes) {
        return std::nullopt;
    }
    return entry->content;
}

bool writeNewFile(const std::string& path, std::string_view content) {
    sim::note("writeNewFile", path);
    bool dying = false;
    const bool may = mayChange(dying);
    const std::string key = pathKey(path);
    if (!canPlaceFile(key) || findEntry(key) != nullptr || isDevice(key) || (!may && !dying)) return false;

    auto& disk = machine().disk;
    FileEntry& entry = disk.entries.emplace(key, FileEntry{newPath(key, path), {}}).first->second;
    std::size_t room = disk.space.value_or(content.size());
    if (dying) room = std::min(room, content.size() / 2);
    entry.content = content.substr(0, room);
    entry.lastWrite = sim::nextWrite(machine());
    if (disk.space) *disk.space -= entry.content.size();
    return may && room >= content.size();
}

bool moveFileOver(const std::string& from, const std::string& to) {
    sim::note("moveFileOver", from + " -> " + to);
    bool dying = false;
    const std::string source = pathKey(from);
    const std::string target = pathKey(to);
    if (!mayChange(dying) || !canPlaceFile(source) || !canPlaceFile(target)) return false;
    auto& disk = machine().disk;
    const auto moved = disk.entries.find(source);
    if (moved == disk.entries.end() || moved->second.held || isHeld(target)) return false;

    FileEntry entry = std::move(moved->second);
    disk.entries.erase(moved);
    entry.path = newPath(target, to);
    const FileEntry* replaced = findEntry(target);
    if (replaced != nullptr && disk.space) *disk.space += replaced->content.size();
    disk.entries[target] = std::move(entry);
    return true;
}

bool deleteFile(const std::string& path) {
    sim::note("deleteFile", path);
    bool dying = false;
    const std::string key = pathKey(path);
    if (!mayChange(dying) || !canPlaceFile(key)) return false;
    auto& disk = machine().disk;
    const auto found = disk.entries.find(key);
    if (found == disk.entries.end() || found->second.held) return false;
    if (disk.space) *disk.space += found->second.content.size();
    disk.entries.erase(found);
    return true;
}

bool isLink(const std::string& path) {
    const FileEntry* entry = findEntry(pathKey(path));
    return entry != nullptr && entry->link;
}

bool fileExists(const std::string& path) {
    const FileEntry* entry = findEntry(pathKey(path));
    return entry != nullptr && !entry->folder;
}

bool fileMissing(const std::string& path) {
    return findEntry(pathKey(path)) == nullptr;
}

std::vector<std::string> listFiles(const std::string& folder, const std::string& pattern) {
    std::vector<std::string> names;
    const std::string key = pathKey(folder);
    if (key.empty() || !isFolder(key)) return names;
    const std::string wanted = pattern == "*.*" ? "*" : lowerCase(pattern);
    const std::string prefix = key + "\\";
    const auto& entries = machine().disk.entries;
    for (auto at = entries.lower_bound(prefix); at != entries.end() && at->first.starts_with(prefix); ++at) {
        const std::string_view name = std::string_view(at->first).substr(prefix.size());
        if (at->second.folder || name.find('\\') != std::string_view::npos) continue;
        if (matches(name, wanted)) names.push_back(lastName(at->second.path));
    }
    return names;
}

bool createFolders(const std::string& path) {
    const std::string key = pathKey(path);
    if (key.empty()) return false;
    if (isFolder(key)) return true;
    const std::string plain = plainPath(path);
    if (findEntry(key) != nullptr || !createFolders(plain.substr(0, plain.rfind('\\') + 1))) return false;
    if (inReadOnlyFolder(key)) return false;
    sim::note("createFolder", plain);
    FileEntry& folder = machine().disk.entries[key];
    folder.path = newPath(key, plain);
    folder.folder = true;
    return true;
}

std::optional<std::string> longPathName(const std::string& path) {
    const std::string key = pathKey(path);
    if (key.empty()) return std::nullopt;
    if (isDrive(key)) return path.substr(0, 2) + "\\";
    const FileEntry* entry = findEntry(key);
    if (entry == nullptr) return std::nullopt;
    return path.substr(0, 2) + entry->path.substr(2);  // the drive's letter stays as asked
}

std::optional<FileStamp> fileStamp(const std::string& path) {
    const FileEntry* entry = findEntry(pathKey(path));
    if (entry == nullptr || entry->folder) return std::nullopt;
    return FileStamp{entry->lastWrite, entry->content.size()};
}

namespace sim {

std::uint64_t nextWrite(Machine& state) {
    return state.disk.lastWrite = std::max(fileTime(state.now), state.disk.lastWrite + 1);
}

std::string pathKey(std::string_view path) {
    if (path.size() < 3 || path[1] != ':') return {};
    if (firstUnits(path, kLongestPath).size() < path.size()) return {};
    if (path[2] != '\\' && path[2] != '/') return {};
    for (std::size_t at = 0; at < path.size(); ++at) {
        const auto letter = static_cast<unsigned char>(path[at]);
        const bool special = letter == '<' || letter == '>' || letter == '"' || letter == '|' || letter == '?' ||
                             letter == '*' || (letter == ':' && at != 1);
        if (letter < 0x20 || special) return {};
    }
    return lowerCase(plainPath(std::string(path)));
}

void putEntry(Machine& state, const std::string& path, std::string content, bool folder) {
    const std::string key = pathKey(path);
    if (key.empty()) fail("putFile, putFolder: not an absolute path");
    const std::string plain = plainPath(path);
    // Each part as it is stored, if it is; the names above may be written in another case.
    std::string stored = plain.substr(0, 2);
    for (std::size_t at = 2; at < key.size();) {
        const std::size_t end = std::min(key.find('\\', at + 1), key.size());
        const bool last = end == key.size();
        FileEntry fresh{stored + plain.substr(at, end - at), {}};
        fresh.folder = folder || !last;
        FileEntry& entry = state.disk.entries.try_emplace(key.substr(0, end), std::move(fresh)).first->second;
        if (last && !folder) {
            entry.content = std::move(content);
            entry.lastWrite = nextWrite(state);
        }
        stored = entry.path;
        at = end;
    }
}

}  // namespace sim

}  // namespace platform
