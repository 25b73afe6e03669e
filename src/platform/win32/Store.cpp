#include "platform/Store.h"

#include "platform/win32/RegistryKey.h"

namespace platform {

namespace {

std::string pathOf(const std::string& section) {
    return "Software\\" + section;
}

KeyHandle openSection(const std::string& section, REGSAM access) {
    return section.empty() ? KeyHandle() : openKey(HKEY_CURRENT_USER, pathOf(section), access);
}

// For a section with other sections below it, whose key cannot go.
bool deleteValues(const std::string& section) {
    const KeyHandle key = openSection(section, KEY_QUERY_VALUE | KEY_SET_VALUE);
    char name[16384];  // the longest name of a value and its NUL
    for (;;) {
        DWORD length = sizeof name;
        const LONG result = RegEnumValueA(keyOf(key), 0, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_NO_MORE_ITEMS) return true;
        if (result != ERROR_SUCCESS || RegDeleteValueA(keyOf(key), name) != ERROR_SUCCESS) return false;
    }
}

}  // namespace

std::optional<std::string> storeRead(const std::string& section, const std::string& key) {
    return textValue(openSection(section, KEY_QUERY_VALUE), key);
}

bool storeWrite(const std::string& section, const std::string& key, const std::string& value) {
    if (section.empty() || holdsNul(section) || holdsNul(key)) return false;
    HKEY created = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, pathOf(section).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_SET_VALUE, nullptr, &created, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const KeyHandle owner(reinterpret_cast<std::uintptr_t>(created));
    const std::string text(value.c_str());  // up to the first NUL, as it will be read
    return RegSetValueExA(created, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(text.size() + 1)) == ERROR_SUCCESS;
}

bool storeDeleteValue(const std::string& section, const std::string& key) {
    if (holdsNul(section) || holdsNul(key)) return false;
    const KeyHandle owner = openSection(section, KEY_SET_VALUE);
    return owner && RegDeleteValueA(keyOf(owner), key.c_str()) == ERROR_SUCCESS;
}

bool storeDelete(const std::string& section) {
    if (section.empty() || holdsNul(section)) return false;
    const LONG result = RegDeleteKeyA(HKEY_CURRENT_USER, pathOf(section).c_str());
    return result == ERROR_SUCCESS || (result != ERROR_FILE_NOT_FOUND && deleteValues(section));
}

}  // namespace platform
