#include "platform/Shell.h"

#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

#include <commdlg.h>
#include <shellapi.h>

namespace platform {

namespace {

// The shell would take the part before it.
bool hasNul(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

}  // namespace

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
    cancelCapture();
    if (GetOpenFileNameA(&request) == 0) return std::nullopt;
    return std::string(path);
}

bool openDocument(Window& owner, const std::string& path) {
    return launch(owner, path, std::nullopt, {});
}

bool launch(Window& owner, const std::string& file, const std::optional<std::string>& parameters,
            const std::string& folder) {
    if (file.empty() || hasNul(file) || hasNul(folder) || (parameters && hasNul(*parameters))) return false;
    const char* passed = parameters ? parameters->c_str() : nullptr;
    const char* where = folder.empty() ? nullptr : folder.c_str();
    // Results up to 32 are errors.
    const auto result =
        reinterpret_cast<INT_PTR>(ShellExecuteA(hwndOf(owner), "open", file.c_str(), passed, where, SW_SHOWNORMAL));
    return result > 32;
}

}  // namespace platform
