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

// The message by which the notification area talks to the window that owns an icon.
inline constexpr UINT kTrayMessage = WM_APP + 1;

}  // namespace platform
