// Files and folders. Paths are text in the process's code page, separated by "\"; a path that holds a NUL
// names nothing. No function here reports more than success.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The whole content; nullopt when the file is missing, a folder, unreadable or larger than `maxBytes`.
std::optional<std::string> readFile(const std::string& path, std::size_t maxBytes = std::size_t{256} << 20);
// Creates a file, writes `content` and flushes it to the disk. Refuses what has that name already, a link included,
// whatever it leads to. On other failures (full disk, denied) the file may be left behind incomplete. CreateFileA
// (create new), WriteFile, FlushFileBuffers.
bool writeNewFile(const std::string& path, std::string_view content);
// Renames a file over another one in one step. MoveFileExA (replace existing, write through).
bool moveFileOver(const std::string& from, const std::string& to);
// Of a link the link goes, never what it leads to (under Wine it stays). DeleteFileA.
bool deleteFile(const std::string& path);
// True when a file or folder stands for another one elsewhere: a symbolic link or a junction; not for a hard link.
// GetFileAttributesA (reparse point).
bool isLink(const std::string& path);
// True for an existing file, false for a folder, nothing, or any error. GetFileAttributesA.
bool fileExists(const std::string& path);
// True when it is certain that nothing has this path; false when something has, or it cannot be told (denied,
// network away). GetFileAttributesA.
bool fileMissing(const std::string& path);
// Names (no folder part) of the files in `folder` (with trailing "\") that match `pattern` such as "*.bmp".
// FindFirstFileA.
std::vector<std::string> listFiles(const std::string& folder, const std::string& pattern);
// Creates a folder with its missing parents; true when it exists afterwards. SHCreateDirectoryExA.
bool createFolders(const std::string& path);
// The path with its long names in their true case; nullopt when it does not resolve, or does to
// 1024 UTF-16 units or more. GetLongPathNameW.
std::optional<std::string> longPathName(const std::string& path);

// What tells one state of a file from another.
struct FileStamp {
    std::uint64_t lastWrite = 0;  // 100-ns units since 1601 (UTC)
    std::uint64_t size = 0;       // bytes
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};
// nullopt when there is no such file, or it is a folder. GetFileAttributesExA.
std::optional<FileStamp> fileStamp(const std::string& path);

}  // namespace platform
