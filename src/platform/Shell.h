// The desktop shell: its file chooser.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

class Window;

struct FileType {
    std::string label;    // "Programs (*.exe;*.scr)"
    std::string pattern;  // "*.exe;*.scr"
};

// Lets the user pick one existing file; nullopt when cancelled. Modal: timers go on. GetOpenFileNameA.
std::optional<std::string> chooseFile(Window& owner, const std::string& title, const std::vector<FileType>& types);

}  // namespace platform
