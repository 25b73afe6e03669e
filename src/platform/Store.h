// The per-user settings store: text values addressed by section and key.
#pragma once

#include <optional>
#include <string>

namespace platform {

// `section` is "Application\Section"; it lives under HKEY_CURRENT_USER\Software.
// nullopt when the value is missing or not text. Text ends at its first NUL. RegQueryValueExA.
std::optional<std::string> storeRead(const std::string& section, const std::string& key);
// Creates the section as needed. RegCreateKeyExA, RegSetValueExA (REG_SZ).
bool storeWrite(const std::string& section, const std::string& key, const std::string& value);
// Removes one value; false when it is not there or cannot go. RegDeleteValueA.
bool storeDeleteValue(const std::string& section, const std::string& key);
// Removes every value of the section. RegDeleteKeyA.
bool storeDelete(const std::string& section);

}  // namespace platform
