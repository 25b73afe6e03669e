// Keys of the registry and their values, whatever these hold.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Handle.h"
#include "platform/win32/Win32.h"

namespace platform {

struct KeyTag {
    static void close(std::uintptr_t raw) noexcept { RegCloseKey(reinterpret_cast<HKEY>(raw)); }
};
using KeyHandle = Handle<KeyTag>;

inline HKEY keyOf(const KeyHandle& key) {
    return reinterpret_cast<HKEY>(key.raw());
}

// Names end at a NUL for Windows: one that holds a NUL would be taken for another.
bool holdsNul(const std::string& name);
// An existing key; empty when it is missing or denied. RegOpenKeyExA.
KeyHandle openKey(HKEY root, const std::string& path, REGSAM access);
// The bytes of a value as they are stored; nullopt when it is missing, of another type or larger than 16 MB.
// RegQueryValueExA.
std::optional<std::string> valueBytes(const KeyHandle& key, const std::string& name, DWORD type);
// The text of a value (REG_SZ) up to its first NUL.
std::optional<std::string> textValue(const KeyHandle& key, const std::string& name);

}  // namespace platform
