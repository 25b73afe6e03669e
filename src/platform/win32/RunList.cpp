#include "platform/RunList.h"

#include "platform/win32/RegistryKey.h"

namespace platform {

namespace {

constexpr char kRunList[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

}  // namespace

bool runEntryExists(const std::string& name) {
    const KeyHandle list = openKey(HKEY_CURRENT_USER, kRunList, KEY_READ);
    if (!list || holdsNul(name)) return false;
    return RegQueryValueExA(keyOf(list), name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

bool writeRunEntry(const std::string& name, const std::string& command) {
    HKEY created = nullptr;
    if (holdsNul(name) || RegCreateKeyExA(HKEY_CURRENT_USER, kRunList, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                          KEY_WRITE, nullptr, &created, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const KeyHandle owner(reinterpret_cast<std::uintptr_t>(created));
    return RegSetValueExA(created, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(command.c_str()),
                          static_cast<DWORD>(command.size() + 1)) == ERROR_SUCCESS;
}

bool deleteRunEntry(const std::string& name) {
    if (holdsNul(name)) return true;  // which no entry's name does
    const KeyHandle list = openKey(HKEY_CURRENT_USER, kRunList, KEY_SET_VALUE);
    if (list) {
        const LONG result = RegDeleteValueA(keyOf(list), name.c_str());
        return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
    }
    return !runEntryExists(name);
}

}  // namespace platform
