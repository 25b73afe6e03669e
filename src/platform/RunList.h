// The programs that start when the user logs on.
#pragma once

#include <string>

namespace platform {

// True when the user's list has an entry of that name. RegOpenKeyExA (KEY_READ), RegQueryValueExA.
bool runEntryExists(const std::string& name);
// Writes the entry; `command` is stored with every byte it has, NULs included, and the NUL that ends every text
// there. False when the registry refuses. RegCreateKeyExA (KEY_WRITE), RegSetValueExA (REG_SZ).
bool writeRunEntry(const std::string& name, const std::string& command);
// True when there is no such entry afterwards. RegDeleteValueA.
bool deleteRunEntry(const std::string& name);

}  // namespace platform
