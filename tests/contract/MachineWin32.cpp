#include <cstdlib>
#include <utility>

#include "contract/Machine.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/Window.h"
#include "platform/win32/Win32.h"

namespace contract {

namespace {

std::string sectionKey() {
    return "Software\\" + kSection;
}

std::string ownFolder() {
    const std::string program = platform::programPath();
    return program.substr(0, program.find_last_of('\\') + 1);
}

HANDLE& sealingHandle() {
    static HANDLE handle = INVALID_HANDLE_VALUE;
    return handle;
}

// Removes all that is in a folder (with trailing "\\").
void emptyFolder(const std::string& folder) {
    WIN32_FIND_DATAA found = {};
    const HANDLE search = FindFirstFileA((folder + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::string name = found.cFileName;
        if (name == "." || name == "..") continue;
        SetFileAttributesA((folder + name).c_str(), FILE_ATTRIBUTE_NORMAL);
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            emptyFolder(folder + name + "\\");
            RemoveDirectoryA((folder + name).c_str());
        } else {
            DeleteFileA((folder + name).c_str());
        }
    } while (FindNextFileA(search, &found) != 0);
    FindClose(search);
}

}  // namespace

void freshMachine() {
    if (sealingHandle() != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(sealingHandle(), INVALID_HANDLE_VALUE));
    RegDeleteKeyA(HKEY_CURRENT_USER, sectionKey().c_str());
    const std::string folder = scratchFolder();
    CreateDirectoryA(folder.c_str(), nullptr);
    emptyFolder(folder);
}

void putStored(const std::string& key, StoredAs kind, const std::string& bytes) {
    HKEY section = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, sectionKey().c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &section,
                        nullptr) != ERROR_SUCCESS) {
        std::abort();
    }
    const DWORD type = kind == StoredAs::Text ? REG_SZ : kind == StoredAs::Binary ? REG_BINARY : REG_EXPAND_SZ;
    RegSetValueExA(section, key.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
    RegCloseKey(section);
}

std::optional<std::string> storedRunEntry(const std::string& name) {
    HKEY list = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\Microsoft\\Windows\\CurrentVersion\\Run", 0, KEY_READ, &list) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    DWORD type = REG_NONE;
    std::string bytes(4096, '\0');
    DWORD length = static_cast<DWORD>(bytes.size());
    const LONG result =
        RegQueryValueExA(list, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &length);
    RegCloseKey(list);
    if (result != ERROR_SUCCESS || type != REG_SZ || length == 0 || bytes[length - 1] != '\0') return std::nullopt;
    return bytes.substr(0, length - 1);
}

std::string scratchFolder() {
    char folder[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, folder);
    return std::string(folder) + "KestrumContract\\";
}

std::string sealedFile() {
    const std::string path = scratchFolder() + "sealed.txt";
    platform::writeFile(path, "old");
    // Held as a program that only reads holds it: others may read, too. A read-only attribute would not do, as it
    // is no obstacle to an administrator everywhere.
    sealingHandle() = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    return path;
}

Victim::Victim(Load load) : path_(ownFolder() + "Victim.exe") {
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    std::string commandLine = "\"" + path_ + "\"" + (load == Load::Busy ? " busy" : "");
    if (CreateProcessA(path_.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        std::abort();
    }
    CloseHandle(process.hThread);
    id_ = process.dwProcessId;
    native_ = reinterpret_cast<std::uintptr_t>(process.hProcess);
}

Victim::~Victim() {
    end();
}

void Victim::end() {
    if (native_ == 0) return;
    const HANDLE process = reinterpret_cast<HANDLE>(native_);
    TerminateProcess(process, 1);
    WaitForSingleObject(process, 10000);
    CloseHandle(process);
    native_ = 0;
}

bool waitFor(const std::function<bool()>& condition, std::uint32_t milliseconds) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        platform::pumpMessages();
    }
    return true;
}

}  // namespace contract
