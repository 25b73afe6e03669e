// The message loop, modal dialogs, and where the wheel goes. Messages are taken as Unicode, for the sake of what is
// typed into text boxes; windows that do not speak it are sent theirs in the code page.
#include "platform/MessageLoop.h"
#include "platform/Window.h"
#include "platform/win32/Modal.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

// The wheel belongs to what the user points at. Older Windows sends it to the window with the focus.
void routeWheel(MSG& message) {
    if (message.message != WM_MOUSEWHEEL || GetCapture() != nullptr) return;
    const POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
    const HWND under = WindowFromPoint(at);
    const bool ours = under != nullptr && GetWindowThreadProcessId(under, nullptr) == GetCurrentThreadId();
    // Not into a window that waits for its modal dialog.
    if (ours && IsWindowEnabled(GetAncestor(under, GA_ROOT))) message.hwnd = under;
}

void dispatch(MSG& message) {
    routeWheel(message);
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

void cancelCapture() {
    if (const HWND capturing = GetCapture()) SendMessageA(capturing, WM_CANCELMODE, 0, 0);
}

void raise(HWND window) {
    HWND target = window;
    if (!IsWindowEnabled(window)) {
        const HWND dialog = modalInFrontOf(window);
        target = dialog != nullptr ? dialog : GetLastActivePopup(window);
    }
    SetForegroundWindow(target);
    // One that was in front already does not rise by that above what was shown over it.
    SetWindowPos(target, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

NextMessage dispatchNext() {
    MSG message{};
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got < 0) return {NextMessage::Kind::Failed};
    if (got == 0) return {NextMessage::Kind::Quit, static_cast<int>(message.wParam)};
    dispatch(message);
    return {NextMessage::Kind::Dispatched};
}

void postQuit(int code) {
    PostQuitMessage(code);
}

void pumpMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loop that waits for it
            return;
        }
        dispatch(message);
    }
}

void runModal(Window& dialog) {
    const HWND hwnd = hwndOf(dialog);
    if (!IsWindow(hwnd)) return;
    beginModal(dialog);
    dialog.show(ShowCommand::Show);
    // Asked by handle: a dialog's object may be gone when its window is.
    const auto quit = dispatchWhile([hwnd] { return IsWindow(hwnd) && IsWindowVisible(hwnd); });
    if (quit) PostQuitMessage(*quit);  // for the loop that waits for it
    endModal(hwnd);
}

}  // namespace platform
