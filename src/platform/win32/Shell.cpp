#include "platform/Shell.h"

#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

#include <shellapi.h>

namespace platform {

namespace {

// The shell would take the part before it.
bool hasNul(const std::string& text) {
    return text.find('\0') != std::string::npos;
}

}  // namespace

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
