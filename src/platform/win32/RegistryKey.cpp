#include "platform/win32/RegistryKey.h"

#include <algorithm>

namespace platform {

namespace {

// Larger values are none of ours; a read must end.
constexpr std::size_t kLargestValue = std::size_t{16} << 20;

}  // namespace

bool holdsNul(const std::string& name) {
    return name.find('\0') != std::string::npos;
}

KeyHandle openKey(HKEY root, const std::string& path, REGSAM access) {
    HKEY key = nullptr;
    if (holdsNul(path)) return KeyHandle();
    if (RegOpenKeyExA(root, path.c_str(), 0, access, &key) != ERROR_SUCCESS) return KeyHandle();
    return KeyHandle(reinterpret_cast<std::uintptr_t>(key));
}

std::optional<std::string> valueBytes(const KeyHandle& key, const std::string& name, DWORD type) {
    if (!key || holdsNul(name)) return std::nullopt;
    std::string data(256, '\0');
    for (;;) {
        DWORD found = REG_NONE;
        DWORD bytes = static_cast<DWORD>(data.size());
        const LONG result = RegQueryValueExA(keyOf(key), name.c_str(), nullptr, &found,
                                             reinterpret_cast<BYTE*>(data.data()), &bytes);
        if (result == ERROR_SUCCESS) {
            if (found != type) return std::nullopt;
            data.resize(std::min<std::size_t>(bytes, data.size()));
            return data;
        }
        // It may grow between two questions, so the answer is only a hint.
        if (result != ERROR_MORE_DATA || data.size() >= kLargestValue) return std::nullopt;
        data.resize(std::max<std::size_t>(bytes, data.size() * 2));
    }
}

std::optional<std::string> textValue(const KeyHandle& key, const std::string& name) {
    std::optional<std::string> text = valueBytes(key, name, REG_SZ);
    // The system stores what it is given: with, without or with several NULs at the end.
    if (text) text->resize(std::min(text->find('\0'), text->size()));
    return text;
}

}  // namespace platform
