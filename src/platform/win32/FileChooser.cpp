// The file chooser of Shell.h, apart from the rest of it: its library stays out of programs that do not choose
// files.
#include "platform/Shell.h"
#include "platform/Window.h"
#include "platform/win32/Modal.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

#include <commdlg.h>

namespace platform {

std::optional<std::string> chooseFile(Window& owner, const std::string& title, const std::vector<FileType>& types) {
    std::string filter;  // pairs of label and pattern, each ended by a NUL, and one more NUL
    for (const FileType& type : types) filter += type.label + '\0' + type.pattern + '\0';

    char path[4096] = {};
    OPENFILENAMEA request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = hwndOf(owner);
    request.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
    request.nFilterIndex = 1;
    request.lpstrFile = path;
    request.nMaxFile = sizeof path;
    request.lpstrInitialDir = "";
    request.lpstrTitle = title.c_str();
    // Without NOCHANGEDIR the chooser would leave the program in the folder chosen from.
    request.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    const SystemModal modal(hwndOf(owner));
    if (GetOpenFileNameA(&request) == 0) return std::nullopt;
    return std::string(path);
}

}  // namespace platform
