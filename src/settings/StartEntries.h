// Programs of this folder that start when the user logs on.
#pragma once

#include <string>

namespace settings {

inline constexpr char kJrStartEntry[] = "Kestrum_Jr";  // of Kestrum Jr.

// The name of this program's own entry: that of its executable file, without the extension.
std::string OwnStartEntry();
// The executable file that belongs to an entry; `folder` may end in "\" or not.
std::string StartProgram(const std::string& folder, const std::string& name);

// True when there is an entry of that name. runEntryExists.
bool IsStartEntry(const std::string& name);
// Writes the entry (StartProgram, followed by `arguments`, which bring their own blanks) or removes it. One that
// cannot be written or removed stays as it is. writeRunEntry, deleteRunEntry.
void SetStartEntry(const std::string& name, const std::string& folder, bool add, const std::string& arguments);

}  // namespace settings
