// The desktop shell: its file chooser, and opening documents with their program.
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

// Lets the user pick one existing file; nullopt when cancelled. Modal, as in Window.h: timers go on.
// GetOpenFileNameA.
std::optional<std::string> chooseFile(Window& owner, const std::string& title, const std::vector<FileType>& types);

// Opens a document with the program registered for it, without waiting; false when the shell refuses.
// ShellExecuteA, verb "open".
bool openDocument(Window& owner, const std::string& path);

// Starts a program or opens a document without waiting, in a normal window; false when the shell refuses. Without
// `parameters` none are passed. `file` is looked for in `folder`, which becomes the working folder. ShellExecuteA,
// verb "open", show command 1.
bool launch(Window& owner, const std::string& file, const std::optional<std::string>& parameters,
            const std::string& folder);

}  // namespace platform
