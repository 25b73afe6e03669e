// Where the libraries of this program come from.
#pragma once

namespace platform {

// From now on libraries are looked for in the folder of Windows only, not beside the program, where a download may
// have put one, nor in the current folder. Before Windows 7 with its updates, the current folder alone is left out.
// SetDefaultDllDirectories, SetDllDirectoryA.
void searchLibrariesInSystemFolderOnly();

}  // namespace platform
