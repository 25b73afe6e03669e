// The one place where windows.h comes in, and what the files of this folder share beyond it.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

namespace platform {

// A function of a library that every process has loaded; null when this Windows does not have it. For what came
// after XP or is not documented: linked directly it would keep the program from starting there.
template <class Function>
Function systemFunction(const char* library, const char* name) {
    const HMODULE module = GetModuleHandleA(library);
    const FARPROC address = module == nullptr ? nullptr : GetProcAddress(module, name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace platform
