#include "platform/Keys.h"

#include "platform/win32/Win32.h"

namespace platform {

// The low bit tells of presses in the past, of other programs too.
bool keyDown(std::uint16_t code) {
    return GetAsyncKeyState(code) < 0;
}

}  // namespace platform
