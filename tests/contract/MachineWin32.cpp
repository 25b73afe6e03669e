#include <algorithm>
#include <cstdlib>
#include <utility>

#include "contract/Machine.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/RunList.h"
#include "platform/Window.h"
#include "platform/win32/RegistryKey.h"
#include "platform/win32/SystemLibrary.h"

#include <sddl.h>
#include <shellapi.h>

namespace contract {

namespace {

const std::string kSectionKey = "Software\\" + kSection;

std::string victimProgram() {
    std::string path = platform::programPath();
    path.replace(path.rfind('\\') + 1, path.npos, "Victim.exe");
    return path;
}

HANDLE& sealingHandle() {
    static HANDLE handle = INVALID_HANDLE_VALUE;
    return handle;
}

HANDLE& closedMutex() {
    static HANDLE handle = nullptr;
    return handle;
}

}  // namespace

void freshMachine() {
    if (closedMutex() != nullptr) CloseHandle(std::exchange(closedMutex(), nullptr));
    if (sealingHandle() != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(sealingHandle(), INVALID_HANDLE_VALUE));
    RegDeleteKeyA(HKEY_CURRENT_USER, kSectionKey.c_str());
    platform::deleteRunEntry(kRunEntry);
    const std::string scratch = scratchFolder();
    const std::string listed = scratch.substr(0, scratch.size() - 1) + '\0';  // a list of one name
    SHFILEOPSTRUCTA remove{};
    remove.wFunc = FO_DELETE;
    remove.pFrom = listed.c_str();
    remove.fFlags = FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    SHFileOperationA(&remove);
    CreateDirectoryA(scratch.c_str(), nullptr);
}

void putStored(const std::string& key, StoredAs kind, const std::string& bytes) {
    HKEY section = nullptr;
    if (RegCreateKeyA(HKEY_CURRENT_USER, kSectionKey.c_str(), &section) != ERROR_SUCCESS) std::abort();
    const DWORD type = kind == StoredAs::Text ? REG_SZ : kind == StoredAs::Binary ? REG_BINARY : REG_EXPAND_SZ;
    RegSetValueExA(section, key.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
    RegCloseKey(section);
}

std::optional<std::string> storedRunEntry(const std::string& name) {
    constexpr char kList[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    const platform::KeyHandle list = platform::openKey(HKEY_CURRENT_USER, kList, KEY_READ);
    std::optional<std::string> bytes = platform::valueBytes(list, name, REG_SZ);
    if (!bytes || !bytes->ends_with('\0')) return std::nullopt;
    bytes->pop_back();
    return bytes;
}

std::string scratchFolder() {
    char folder[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, folder);
    return std::string(folder) + "KestrumContract\\";
}

std::string sealedFile() {
    const std::string path = scratchFolder() + "sealed.txt";
    platform::writeNewFile(path, "old");
    // Held as a program that only reads holds it: others may read, too. A read-only attribute would not do, as it
    // is no obstacle to an administrator everywhere.
    sealingHandle() = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    return path;
}

void holdClosedMutex(const std::string& name) {
    SECURITY_ATTRIBUTES nobody{sizeof nobody, nullptr, FALSE};
    ConvertStringSecurityDescriptorToSecurityDescriptorA("D:", SDDL_REVISION_1, &nobody.lpSecurityDescriptor,
                                                         nullptr);
    closedMutex() = CreateMutexA(&nobody, TRUE, name.c_str());
    LocalFree(nobody.lpSecurityDescriptor);
}

// Wine makes no links of its own; there a program of the system underneath does.
void makeLink(const std::string& path, const std::string& target) {
    const auto unixName =
        platform::systemFunction<char*(CDECL*)(LPCWSTR)>("kernel32.dll", "wine_get_unix_file_name");
    if (unixName == nullptr) {
        using Make = BOOLEAN(WINAPI*)(LPCSTR, LPCSTR, DWORD);
        const auto make = platform::systemFunction<Make>("kernel32.dll", "CreateSymbolicLinkA");
        if (make == nullptr || !make(path.c_str(), target.c_str(), platform::fileExists(target) ? 0 : 1))
            std::abort();
        return;
    }
    wchar_t folder[MAX_PATH] = {};
    MultiByteToWideChar(CP_ACP, 0, scratchFolder().c_str(), -1, folder, MAX_PATH);
    const std::string below(unixName(folder));
    const auto asUnix = [&](const std::string& name) {
        std::string result = below + name.substr(scratchFolder().size());
        std::replace(result.begin(), result.end(), '\\', '/');
        return result;
    };
    std::string commandLine = "ln -s \"" + asUnix(target) + "\" \"" + asUnix(path) + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (CreateProcessA("Z:\\bin\\ln", commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == 0 ||
        !waitFor([&path] { return !platform::fileMissing(path); })) {
        std::abort();
    }
}

Victim::Victim(Load load) : path_(victimProgram()) {
    start(load);
}

Victim::Victim(const std::string& path) : path_(path) {
    if (CopyFileA(victimProgram().c_str(), path.c_str(), FALSE) == 0) std::abort();
    start(Load::Idle);
}

void Victim::start(Load load) {
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
