#include "platform/OtherWindows.h"

#include "platform/win32/Win32.h"

namespace platform {

namespace {

constexpr int kTextRoom = 1024;  // with the NUL

}  // namespace

// None of the calls waits for the program that the window belongs to: the caption of another program's window is
// the one that the system keeps, so that a hung program holds nobody up.
std::optional<WindowFacts> windowFacts(std::uintptr_t window) {
    const auto hwnd = reinterpret_cast<HWND>(window);
    DWORD process = 0;
    if (hwnd == nullptr || GetWindowThreadProcessId(hwnd, &process) == 0) return std::nullopt;
    WindowFacts facts;
    facts.process = process;
    facts.parent = reinterpret_cast<std::uintptr_t>(GetParent(hwnd));
    facts.owner = static_cast<std::uintptr_t>(GetWindowLongPtrA(hwnd, GWLP_HWNDPARENT));
    facts.visible = IsWindowVisible(hwnd) != FALSE;
    facts.style = static_cast<std::uint32_t>(GetWindowLongA(hwnd, GWL_STYLE));
    char text[kTextRoom];
    const int captionLength = GetWindowTextA(hwnd, text, kTextRoom);
    if (captionLength > 0) facts.caption.assign(text, static_cast<std::size_t>(captionLength));
    const int classLength = GetClassNameA(hwnd, text, kTextRoom);
    if (classLength == 0) return std::nullopt;  // every window has a class: it went in the meantime
    facts.className.assign(text, static_cast<std::size_t>(classLength));
    return facts;
}

std::uintptr_t findWindow(const std::string& className, const std::string& caption) {
    return reinterpret_cast<std::uintptr_t>(FindWindowA(className.c_str(), caption.c_str()));
}

void postClose(std::uintptr_t window) {
    const auto hwnd = reinterpret_cast<HWND>(window);
    // What is no window may stand for all of them.
    if (IsWindow(hwnd)) PostMessageA(hwnd, WM_CLOSE, 0, 0);
}

}  // namespace platform
