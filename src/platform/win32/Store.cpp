#include "platform/Store.h"

#include <algorithm>

#include "platform/Handle.h"
#include "platform/win32/Win32.h"

namespace platform {

namespace {

struct KeyTag {
    static void close(std::uintptr_t raw) noexcept { RegCloseKey(reinterpret_cast<HKEY>(raw)); }
};
using KeyHandle = Handle<KeyTag>;

// Larger values are none of ours; a read must end.
constexpr std::size_t kLargestValue = std::size_t{16} << 20;

HKEY keyOf(const KeyHandle& key) {
    return reinterpret_cast<HKEY>(key.raw());
}

std::string pathOf(const std::string& section) {
    return "Software\\" + section;
}

bool holdsNul(const std::string& name) {
    return name.find('\0') != std::string::npos;
}

KeyHandle openSection(const std::string& section, REGSAM access) {
    HKEY key = nullptr;
    if (section.empty() || holdsNul(section)) return KeyHandle();
    if (RegOpenKeyExA(HKEY_CURRENT_USER, pathOf(section).c_str(), 0, access, &key) != ERROR_SUCCESS) {
        return KeyHandle();
    }
    return KeyHandle(reinterpret_cast<std::uintptr_t>(key));
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
    const KeyHandle opened = openSection(section, KEY_QUERY_VALUE);
    if (!opened || holdsNul(key)) return std::nullopt;
    std::string data(256, '\0');
    for (;;) {
        DWORD type = REG_NONE;
        DWORD bytes = static_cast<DWORD>(data.size());
        const LONG result = RegQueryValueExA(keyOf(opened), key.c_str(), nullptr, &type,
                                             reinterpret_cast<BYTE*>(data.data()), &bytes);
        if (result == ERROR_SUCCESS) {
            if (type != REG_SZ) return std::nullopt;
            // The system stores what it is given: with, without or with several NULs at the end.
            data.resize(std::min<std::size_t>(bytes, data.size()));
            data.resize(std::min(data.find('\0'), data.size()));
            return data;
        }
        if (result != ERROR_MORE_DATA || data.size() >= kLargestValue) return std::nullopt;
        data.resize(std::max<std::size_t>(bytes, data.size() * 2));
    }
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

bool storeDelete(const std::string& section) {
    if (section.empty() || holdsNul(section)) return false;
    const LONG result = RegDeleteKeyA(HKEY_CURRENT_USER, pathOf(section).c_str());
    return result == ERROR_SUCCESS || (result != ERROR_FILE_NOT_FOUND && deleteValues(section));
}

}  // namespace platform
