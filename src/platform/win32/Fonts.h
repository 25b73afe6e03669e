// The two fonts of the program, made once.
#pragma once

#include "platform/Canvas.h"
#include "platform/win32/Win32.h"

namespace platform {

// The user's message font at the fixed height the program's layout is made for. Not the caller's to delete.
HFONT fontHandle(Font font);

}  // namespace platform
