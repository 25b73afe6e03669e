#include "platform/Instance.h"

#include "platform/Window.h"
#include "platform/win32/OpenToUser.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

// How long another program may take over a text before it counts as hanging.
constexpr UINT kSendMilliseconds = 5000;

// Null for a number that belongs to no window (any more), and for the one that stands for all windows at once.
HWND windowOf(std::uintptr_t number) {
    const auto hwnd = reinterpret_cast<HWND>(number);
    return hwnd != nullptr && IsWindow(hwnd) ? hwnd : nullptr;
}

// A named function, as 32-bit builds cannot turn a lambda into one with this calling convention.
BOOL CALLBACK addNumber(HWND hwnd, LPARAM numbers) {
    reinterpret_cast<std::vector<std::uintptr_t>*>(numbers)->push_back(reinterpret_cast<std::uintptr_t>(hwnd));
    return TRUE;
}

}  // namespace

void MutexTag::close(std::uintptr_t raw) noexcept {
    CloseHandle(reinterpret_cast<HANDLE>(raw));
}

CreatedMutex createMutex(const std::string& name) {
    OpenToUser access;
    const HANDLE handle = CreateMutexA(access.attributes(), TRUE, name.c_str());
    const bool existed = handle != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
    return {MutexHandle(reinterpret_cast<std::uintptr_t>(handle)), existed};
}

void releaseMutex(const MutexHandle& mutex) {
    if (mutex) ReleaseMutex(reinterpret_cast<HANDLE>(mutex.raw()));
}

void acceptFromUnelevated(const Window& window, Request request) {
    constexpr DWORD kAllow = 1;  // MSGFLT_ALLOW
    using ChangeFilter = BOOL(WINAPI*)(HWND, UINT, DWORD, void*);
    static const auto change = systemFunction<ChangeFilter>("user32.dll", "ChangeWindowMessageFilterEx");
    if (change == nullptr || !window.exists()) return;
    change(hwndOf(window), request == Request::Text ? WM_SETTEXT : WM_CLOSE, kAllow, nullptr);
}

bool setWindowProperty(const Window& window, const std::string& name, std::uintptr_t value) {
    return window.exists() && SetPropA(hwndOf(window), name.c_str(), reinterpret_cast<HANDLE>(value)) != FALSE;
}

void removeWindowProperty(const Window& window, const std::string& name) {
    if (window.exists()) RemovePropA(hwndOf(window), name.c_str());
}

std::uintptr_t windowProperty(std::uintptr_t window, const std::string& name) {
    const HWND hwnd = windowOf(window);
    return hwnd == nullptr ? 0 : reinterpret_cast<std::uintptr_t>(GetPropA(hwnd, name.c_str()));
}

std::vector<std::uintptr_t> topLevelWindowNumbers() {
    std::vector<std::uintptr_t> numbers;
    EnumWindows(addNumber, reinterpret_cast<LPARAM>(&numbers));
    return numbers;
}

std::uintptr_t parentWindow(std::uintptr_t window) {
    const HWND hwnd = windowOf(window);
    return hwnd == nullptr ? 0 : reinterpret_cast<std::uintptr_t>(GetParent(hwnd));
}

void showNormalAsync(std::uintptr_t window) {
    const HWND hwnd = windowOf(window);
    if (hwnd == nullptr) return;
    // One with a dialog in front of it is not to take the keyboard from that.
    const int behind = IsIconic(hwnd) ? SW_SHOWNOACTIVATE : SW_SHOWNA;
    ShowWindowAsync(hwnd, IsWindowEnabled(hwnd) ? SW_SHOWNORMAL : behind);
}

void bringWindowToFront(std::uintptr_t window) {
    const HWND hwnd = windowOf(window);
    if (hwnd == nullptr) return;
    DWORD process = 0;
    GetWindowThreadProcessId(hwnd, &process);
    AllowSetForegroundWindow(process);
    raise(hwnd);
}

void sendText(std::uintptr_t window, const std::string& text) {
    const HWND hwnd = windowOf(window);
    if (hwnd == nullptr) return;
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()), SMTO_ABORTIFHUNG,
                        kSendMilliseconds, &answer);
}

}  // namespace platform
