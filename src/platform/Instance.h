// How two copies of the program find and reach each other: a named mutex, a property on the main window, and a
// text. Windows of other programs go by their number here; one that has gone is refused by every call. A program
// that does not run as administrator is also refused by the windows of one that does, but for what those accept.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Handle.h"

namespace platform {

class Window;

struct MutexTag {
    static void close(std::uintptr_t raw) noexcept;  // CloseHandle
};
using MutexHandle = Handle<MutexTag>;

struct CreatedMutex {
    MutexHandle handle;    // empty on failure
    bool existed = false;  // another program (or this one) had made it before: it is not owned (error 183)
};
// Creates or opens the named mutex, owned by this thread when it is new. Every program of the same user may open
// it, elevated or not; one of another user that denies access is a failure. CreateMutexA.
CreatedMutex createMutex(const std::string& name);
// Gives up the ownership; the mutex lives until all its handles are closed. ReleaseMutex.
void releaseMutex(const MutexHandle& mutex);

// What a program that is not elevated may ask of a window.
enum class Request {
    Text,   // sendText
    Close,  // postClose
};
// Has a window of an elevated program accept that from programs that are not. ChangeWindowMessageFilterEx. Without
// effect before Windows 7: Vista can only open all windows of a program at once, its text boxes too.
void acceptFromUnelevated(const Window& window, Request request);

// Puts a number on a window for other programs to find. SetPropA; goes with the window or by RemovePropA.
bool setWindowProperty(const Window& window, const std::string& name, std::uintptr_t value);
void removeWindowProperty(const Window& window, const std::string& name);
// 0 when there is none. GetPropA.
std::uintptr_t windowProperty(std::uintptr_t window, const std::string& name);

// All top-level windows of the desktop, shown or not, the uppermost first. EnumWindows.
std::vector<std::uintptr_t> topLevelWindowNumbers();
// 0 when there is none. GetParent.
std::uintptr_t parentWindow(std::uintptr_t window);
// Has a window of another program shown in its normal state, without waiting. ShowWindowAsync, SW_SHOWNORMAL.
void showNormalAsync(std::uintptr_t window);
// Also allows its program to do that itself. AllowSetForegroundWindow, SetForegroundWindow.
void bringWindowToFront(std::uintptr_t window);
// Sets the window's text and waits until its program has dealt with it, but not for a program that hangs.
// WM_SETTEXT by SendMessageTimeoutA.
void sendText(std::uintptr_t window, const std::string& text);

}  // namespace platform
