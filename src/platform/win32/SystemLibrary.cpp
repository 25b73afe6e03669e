#include "platform/win32/SystemLibrary.h"

#include <string>

#include "platform/Libraries.h"

namespace platform {

namespace {

HMODULE load(const char* name, DWORD flags) {
    char folder[MAX_PATH];
    const UINT length = GetSystemDirectoryA(folder, sizeof folder);
    if (length == 0 || length >= sizeof folder) return nullptr;
    return LoadLibraryExA((std::string(folder, length) + "\\" + name).c_str(), nullptr, flags);
}

}  // namespace

HMODULE systemLibrary(const char* name) {
    // What it needs in turn is then looked for in its own folder first.
    return load(name, LOAD_WITH_ALTERED_SEARCH_PATH);
}

HMODULE systemLibraryResources(const char* name) {
    return load(name, LOAD_LIBRARY_AS_DATAFILE);
}

void searchLibrariesInSystemFolderOnly() {
    constexpr DWORD kSystemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32, newer than these headers are told to be
    using SetDefaultDirectories = BOOL(WINAPI*)(DWORD);
    using SetDirectory = BOOL(WINAPI*)(const char*);
    if (const auto set = systemFunction<SetDefaultDirectories>("kernel32.dll", "SetDefaultDllDirectories")) {
        set(kSystemFolder);
    }
    if (const auto set = systemFunction<SetDirectory>("kernel32.dll", "SetDllDirectoryA")) set("");
}

}  // namespace platform
