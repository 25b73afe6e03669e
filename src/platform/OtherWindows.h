// What can be learned of any window of the desktop, whoever's it is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Process.h"

namespace platform {

struct WindowFacts {
    std::uintptr_t parent = 0;  // GetParent
    std::uintptr_t owner = 0;   // GetWindowLongA (GWLP_HWNDPARENT)
    bool visible = false;       // IsWindowVisible
    std::uint32_t style = 0;    // GetWindowLongA (GWL_STYLE)
    std::string caption;        // at most 1023 characters. GetWindowTextA
    std::string className;      // GetClassNameA
    ProcessId process = 0;      // GetWindowThreadProcessId
};
// nullopt when the window is gone. topLevelWindowNumbers (Instance.h) gives the numbers to ask for.
std::optional<WindowFacts> windowFacts(std::uintptr_t window);

// The uppermost top-level window of that class with exactly that caption, letters in either case; 0 when there is
// none. FindWindowA.
std::uintptr_t findWindow(const std::string& className, const std::string& caption);

// Asks a window to close, without waiting. PostMessageA, WM_CLOSE.
void postClose(std::uintptr_t window);

}  // namespace platform
