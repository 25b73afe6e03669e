#include "platform/Files.h"

#include "platform/Handle.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WineProcesses.h"

#include <shlobj.h>

#include <algorithm>

namespace platform {

namespace {

struct FileTag {
    static void close(std::uintptr_t raw) noexcept { CloseHandle(reinterpret_cast<HANDLE>(raw)); }
};
using FileHandle = Handle<FileTag>;

struct FindTag {
    static void close(std::uintptr_t raw) noexcept { FindClose(reinterpret_cast<HANDLE>(raw)); }
};
using FindHandle = Handle<FindTag>;

// Bytes handed to one ReadFile or WriteFile: network drives refuse much larger ones.
constexpr std::size_t kBlock = std::size_t{16} << 20;

// The system's functions would take the part before the NUL for the path.
bool namesNothing(const std::string& path) {
    return path.empty() || path.find('\0') != std::string::npos;
}

template <class Owner>
Owner ownerOf(HANDLE handle) {
    return handle == INVALID_HANDLE_VALUE ? Owner() : Owner(reinterpret_cast<std::uintptr_t>(handle));
}

HANDLE handleOf(const FileHandle& file) {
    return reinterpret_cast<HANDLE>(file.raw());
}

bool endsWith(const std::string& name, const std::string& ending) {
    return name.size() >= ending.size() &&
           lstrcmpiA(name.c_str() + (name.size() - ending.size()), ending.c_str()) == 0;
}

// The path of a file or folder with all links followed; empty when it cannot be told.
std::string finalPath(const std::string& path) {
    using Read = DWORD(WINAPI*)(HANDLE, LPSTR, DWORD, DWORD);
    static const auto read = systemFunction<Read>("kernel32.dll", "GetFinalPathNameByHandleA");
    const auto opened =
        ownerOf<FileHandle>(CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    char found[1024];
    const DWORD length = read == nullptr || !opened ? 0 : read(handleOf(opened), found, sizeof found, 0);
    return length < sizeof found ? std::string(found, length) : std::string();
}

// Wine takes a symbolic link to a file for the file: it does not tell that there is a link, and deletes what the
// link leads to.
bool followedByWine(const std::string& path) {
    if (!wine::present() || path.back() == '\\') return false;
    const std::size_t name = path.rfind('\\') + 1;
    const std::string found = finalPath(path);
    const std::string expected = finalPath(path.substr(0, name)) + "\\" + path.substr(name);
    return !found.empty() && lstrcmpiA(found.c_str(), expected.c_str()) != 0;
}

}  // namespace

std::optional<std::string> readFile(const std::string& path, std::size_t maxBytes) {
    if (namesNothing(path)) return std::nullopt;
    // Sharing everything: whoever writes or replaces the file meanwhile is not to be hindered.
    const auto file = ownerOf<FileHandle>(CreateFileA(path.c_str(), GENERIC_READ,
                                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    // Devices such as "CON" open like files but have no content of a given size.
    if (!file || GetFileType(handleOf(file)) != FILE_TYPE_DISK) return std::nullopt;
    LARGE_INTEGER size = {};
    if (GetFileSizeEx(handleOf(file), &size) == 0) return std::nullopt;
    if (static_cast<std::uint64_t>(size.QuadPart) > maxBytes) return std::nullopt;

    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t done = 0;
    while (done < content.size()) {
        const DWORD wanted = static_cast<DWORD>(std::min(content.size() - done, kBlock));
        DWORD got = 0;
        if (ReadFile(handleOf(file), content.data() + done, wanted, &got, nullptr) == 0) return std::nullopt;
        if (got == 0) break;  // it became shorter meanwhile
        done += got;
    }
    content.resize(done);
    return content;
}

bool writeNewFile(const std::string& path, std::string_view content) {
    if (namesNothing(path)) return false;
    const auto file = ownerOf<FileHandle>(
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    // A device such as "LPT1" has its name in every folder.
    if (!file || GetFileType(handleOf(file)) != FILE_TYPE_DISK) return false;
    std::size_t done = 0;
    while (done < content.size()) {
        const DWORD wanted = static_cast<DWORD>(std::min(content.size() - done, kBlock));
        DWORD written = 0;
        if (WriteFile(handleOf(file), content.data() + done, wanted, &written, nullptr) == 0) return false;
        if (written == 0) return false;  // full disk
        done += written;
    }
    return FlushFileBuffers(handleOf(file)) != 0;
}

bool moveFileOver(const std::string& from, const std::string& to) {
    if (namesNothing(from) || namesNothing(to)) return false;
    return MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool deleteFile(const std::string& path) {
    return !namesNothing(path) && !followedByWine(path) && DeleteFileA(path.c_str()) != 0;
}

bool isLink(const std::string& path) {
    if (namesNothing(path)) return false;
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return false;
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 || followedByWine(path);
}

bool fileExists(const std::string& path) {
    if (namesNothing(path)) return false;
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool fileMissing(const std::string& path) {
    if (namesNothing(path)) return true;
    if (GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) return false;
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

std::vector<std::string> listFiles(const std::string& folder, const std::string& pattern) {
    std::vector<std::string> names;
    const std::string searched = folder + pattern;
    if (namesNothing(searched)) return names;
    WIN32_FIND_DATAA found = {};
    const auto search = ownerOf<FindHandle>(FindFirstFileA(searched.c_str(), &found));
    if (!search) return names;
    // "*.bmp" is compared with the short name, too, and so finds "a.bmpx" ("A~1.BMP"): that is nobody's intent.
    const bool byEnding = pattern.size() > 2 && pattern.compare(0, 2, "*.") == 0 &&
                          pattern.find_first_of("*?", 1) == std::string::npos;
    do {
        std::string name = found.cFileName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
        if (byEnding && !endsWith(name, pattern.substr(1))) continue;
        names.push_back(std::move(name));
    } while (FindNextFileA(reinterpret_cast<HANDLE>(search.raw()), &found) != 0);
    return names;
}

bool createFolders(const std::string& path) {
    if (namesNothing(path)) return false;
    // Its results tell apart what does not matter here: what counts is the folder.
    SHCreateDirectoryExA(nullptr, path.c_str(), nullptr);
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<std::string> longPathName(const std::string& path) {
    if (namesNothing(path)) return std::nullopt;
    constexpr DWORD kRoom = 1024;
    const std::wstring wide = wideText(path);
    if (wide.size() >= kRoom) return std::nullopt;  // on which Wine would crash
    wchar_t longPath[kRoom];
    const DWORD length = GetLongPathNameW(wide.c_str(), longPath, kRoom);
    if (length == 0 || length >= kRoom) return std::nullopt;
    return narrowText({longPath, length});
}

std::optional<FileStamp> fileStamp(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (namesNothing(path) || !GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &found))
        return std::nullopt;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    const auto whole = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    return FileStamp{whole(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime),
                     whole(found.nFileSizeHigh, found.nFileSizeLow)};
}

}  // namespace platform
