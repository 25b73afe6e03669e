// Libraries of Windows, by their full path in its own folder: what lies beside the program is never asked.
#pragma once

#include "platform/win32/Win32.h"

namespace platform {

// Loaded for the rest of the program's life. Null when this Windows does not have it. LoadLibraryExA.
HMODULE systemLibrary(const char* name);
// For its resources only: none of its code runs.
HMODULE systemLibraryResources(const char* name);

// A function of such a library, which is loaded for it; null when this Windows does not have it. For what came
// after XP or is not documented, for what few need, and for libraries that the loader would look for beside the
// program.
template <class Function>
Function systemFunction(const char* library, const char* name) {
    const HMODULE module = systemLibrary(library);
    const FARPROC address = module == nullptr ? nullptr : GetProcAddress(module, name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace platform
