// The keyboard as it is now, whichever program has the focus.
#pragma once

#include <cstdint>

namespace platform {

// True while the key is down; `code` is a virtual key code as in Event.h. GetAsyncKeyState.
bool keyDown(std::uint16_t code);

}  // namespace platform
