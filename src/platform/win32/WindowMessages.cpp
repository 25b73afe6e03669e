// The window procedure: decodes each message once and hands it to the window's handler. One function per family;
// what a function answers with is final, nothing means that Windows' own procedure takes the message too.
#include "platform/win32/SystemLibrary.h"

#include <shellapi.h>
#include <windowsx.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/win32/Modal.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

struct Message {
    HWND hwnd;
    UINT id;
    WPARAM wParam;
    LPARAM lParam;
};
using Answer = std::optional<LRESULT>;

UINT taskbarCreatedMessage() {
    static const UINT id = RegisterWindowMessageA("TaskbarCreated");
    return id;
}

// A program with raised rights does not get messages from ordinary ones unless it asks for them. The call came
// after XP.
void letThrough(UINT message) {
    using Filter = BOOL(WINAPI*)(UINT, DWORD);
    constexpr DWORD kAdd = 1;
    if (const auto filter = systemFunction<Filter>("user32.dll", "ChangeWindowMessageFilter"))
        filter(message, kAdd);
}

bool keyIsDown(int code) {
    return GetKeyState(code) < 0;
}

Modifiers mouseModifiers(WPARAM flags) {
    return {(flags & MK_SHIFT) != 0, (flags & MK_CONTROL) != 0, keyIsDown(VK_MENU)};
}

Point pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

Answer sizeMessage(const Message& m, WindowData& data) {
    const Size size{LOWORD(m.lParam), HIWORD(m.lParam)};
    WindowState state = WindowState::Normal;
    if (m.wParam == SIZE_MINIMIZED) state = WindowState::Minimized;
    if (m.wParam == SIZE_MAXIMIZED) state = WindowState::Maximized;
    // Everything is laid out by the size, so a new size is a new picture; painting is double-buffered, so that
    // costs no flicker.
    InvalidateRect(m.hwnd, nullptr, FALSE);
    WindowAccess::size(*data.window, size, state);
    return 0;
}

Answer minMaxMessage(const Message& m, WindowData& data) {
    const Size least = WindowAccess::minimumSize(*data.window);
    if (least == Size{}) return std::nullopt;
    auto* info = reinterpret_cast<MINMAXINFO*>(m.lParam);
    info->ptMinTrackSize = {least.width, least.height};
    return 0;
}

MouseAction actionOf(UINT id) {
    switch (id) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
            return MouseAction::Down;
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK:
            return MouseAction::DoubleClick;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
            return MouseAction::Up;
        default:
            return MouseAction::Move;
    }
}

MouseButton buttonOf(UINT id) {
    if (id >= WM_LBUTTONDOWN && id <= WM_LBUTTONDBLCLK) return MouseButton::Left;
    if (id >= WM_RBUTTONDOWN && id <= WM_RBUTTONDBLCLK) return MouseButton::Right;
    if (id >= WM_MBUTTONDOWN && id <= WM_MBUTTONDBLCLK) return MouseButton::Middle;
    return MouseButton::None;
}

void askForLeave(HWND hwnd, WindowData& data, Point at) {
    RECT client{};
    GetClientRect(hwnd, &client);
    // Asked for from outside (a drag that holds the mouse) it would be answered at once.
    if (!toRect(client).contains(at)) return;
    data.leftWhileCapturing = false;
    TRACKMOUSEEVENT request{};
    request.cbSize = sizeof request;
    request.dwFlags = TME_LEAVE;
    request.hwndTrack = hwnd;
    // With every move: there is one request for all windows, and when another window's takes its place the answer
    // to this one can get lost. Who asks only once would then never hear of a leave again.
    TrackMouseEvent(&request);
}

Answer mouseMessage(const Message& m, WindowData& data) {
    MouseEvent event;
    event.action = actionOf(m.id);
    event.button = buttonOf(m.id);
    event.at = pointOf(m.lParam);
    event.modifiers = mouseModifiers(m.wParam);
    event.leftHeld = (m.wParam & MK_LBUTTON) != 0;
    if (event.action == MouseAction::Move) askForLeave(m.hwnd, data, event.at);
    WindowAccess::mouse(*data.window, event);
    return 0;
}

std::optional<TrayEvent> trayEventOf(LPARAM code) {
    switch (code) {
        case WM_LBUTTONUP:
            return TrayEvent::LeftUp;
        case WM_LBUTTONDBLCLK:
            return TrayEvent::LeftDoubleClick;
        case WM_RBUTTONUP:
            return TrayEvent::RightUp;
        case NIN_BALLOONUSERCLICK:
            return TrayEvent::BalloonClicked;
        default:
            return std::nullopt;
    }
}

// The notification area speaks by WM_MOUSEMOVE with the number of the icon for the keys and a code for the place.
// A real move can look exactly so (514,0 with the left button held is "released at icon 1"), so what the message
// says cannot tell them apart. Whether the window can be under the pointer at all can: one that is not shown gets
// no real moves, and one that is shown keeps all of its own.
bool fromNotificationArea(const Message& m, const WindowData& data) {
    return m.id == WM_MOUSEMOVE && !data.trayIcons.empty() && !IsWindowVisible(m.hwnd);
}

Answer trayMessage(const Message& m, WindowData& data) {
    const bool known = std::find(data.trayIcons.begin(), data.trayIcons.end(), m.wParam) != data.trayIcons.end();
    if (const auto event = trayEventOf(m.lParam); event && known) WindowAccess::tray(*data.window, *event);
    return 0;
}

Answer mouseLeaveMessage(WindowData& data) {
    if (data.capturing) {  // a drag may well leave the window and come back
        data.leftWhileCapturing = true;
        return 0;
    }
    WindowAccess::mouseLeave(*data.window);
    return 0;
}

Answer wheelMessage(const Message& m, WindowData& data) {
    POINT at{GET_X_LPARAM(m.lParam), GET_Y_LPARAM(m.lParam)};
    ScreenToClient(m.hwnd, &at);
    WindowAccess::wheel(*data.window,
                        {GET_WHEEL_DELTA_WPARAM(m.wParam), {at.x, at.y}, mouseModifiers(LOWORD(m.wParam))});
    return 0;
}

Answer captureChangedMessage(const Message& m, WindowData& data) {
    if (!std::exchange(data.capturing, false)) return std::nullopt;
    if (std::exchange(data.leftWhileCapturing, false)) PostMessageA(m.hwnd, WM_MOUSELEAVE, 0, 0);
    WindowAccess::captureLost(*data.window);
    return 0;
}

Answer cursorMessage(const Message& m, WindowData& data) {
    const bool client = reinterpret_cast<HWND>(m.wParam) == m.hwnd && LOWORD(m.lParam) == HTCLIENT;
    if (!client && !busyPointerActive()) return std::nullopt;
    SetCursor(cursorFor(data.pointer));
    return TRUE;
}

Answer keyMessage(const Message& m, WindowData& data) {
    const bool down = m.id == WM_KEYDOWN || m.id == WM_SYSKEYDOWN;
    const bool system = m.id == WM_SYSKEYDOWN || m.id == WM_SYSKEYUP;
    if (m.wParam == VK_TAB) {
        if (down && !system) focusNextTabStop(GetAncestor(m.hwnd, GA_ROOT), m.hwnd, keyIsDown(VK_SHIFT));
        return 0;
    }
    const Modifiers modifiers{keyIsDown(VK_SHIFT), keyIsDown(VK_CONTROL), keyIsDown(VK_MENU)};
    const bool repeat = down && (HIWORD(m.lParam) & KF_REPEAT) != 0;
    WindowAccess::key(*data.window, {down, static_cast<std::uint16_t>(m.wParam), modifiers, repeat});
    if (system) return std::nullopt;  // Alt+F4 and the system menu are Windows' business
    return 0;
}

Answer focusMessage(const Message& m, WindowData& data) {
    const bool gained = m.id == WM_SETFOCUS;
    if (gained && restoreFocus(m.hwnd, data)) return 0;
    WindowAccess::focus(*data.window, gained);
    return 0;
}

Answer activateMessage(const Message& m, WindowData& data) {
    if (LOWORD(m.wParam) == WA_INACTIVE) {
        rememberFocus(m.hwnd, data);
        return std::nullopt;
    }
    const bool minimized = HIWORD(m.wParam) != 0;
    if (minimized) return std::nullopt;
    if (restoreFocus(m.hwnd, data)) return 0;
    if (data.kind != WindowKind::Dialog || IsChild(m.hwnd, GetFocus())) return std::nullopt;
    SetFocus(m.hwnd);
    focusNextTabStop(m.hwnd, nullptr, false);
    return 0;
}

// Windows asks before a click activates; the style alone does not keep it from doing so everywhere.
Answer mouseActivateMessage(const WindowData& data) {
    return data.kind == WindowKind::Popup ? Answer(MA_NOACTIVATE) : std::nullopt;
}

Answer systemCommandMessage(const Message& m, WindowData& data) {
    if ((m.wParam & 0xFFF0) == SC_MINIMIZE) rememberFocus(m.hwnd, data);
    return std::nullopt;
}

Answer dropMessage(const Message& m, WindowData& data) {
    const auto drop = reinterpret_cast<HDROP>(m.wParam);
    std::vector<std::string> paths;
    const UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        const UINT length = DragQueryFileA(drop, i, nullptr, 0);
        std::string path(length + 1, '\0');
        path.resize(DragQueryFileA(drop, i, path.data(), length + 1));
        paths.push_back(std::move(path));
    }
    DragFinish(drop);
    WindowAccess::dropFiles(*data.window, paths);
    return 0;
}

Answer colorsMessage(const Message& m, WindowData& data) {
    WindowAccess::systemColors(*data.window);
    // Windows tells top-level windows only.
    for (HWND child = GetWindow(m.hwnd, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageA(child, WM_SYSCOLORCHANGE, 0, 0);
    }
    return 0;
}

Answer endSessionMessage(const Message& m, WindowData& data) {
    if (m.wParam != FALSE) WindowAccess::endSession(*data.window);
    return 0;
}

Answer paintMessage(const Message& m, WindowData& data) {
    paintWindow(m.hwnd, *data.window);
    return 0;
}

Answer timerMessage(const Message& m, WindowData& data) {
    WindowAccess::timer(*data.window, static_cast<int>(m.wParam));
    return 0;
}

Answer closeMessage(WindowData& data) {
    WindowAccess::close(*data.window);
    return 0;
}

// Windows stores the text first, so that the handler sees it. The handler may destroy the window.
Answer textMessage(const Message& m, WindowData& data) {
    const LRESULT result = CallWindowProcA(data.base, m.hwnd, m.id, m.wParam, m.lParam);
    WindowAccess::textChanged(*data.window);
    return result;
}

Answer taskbarMessage(const Message& m, WindowData& data) {
    if (data.kind != WindowKind::Main || m.id != taskbarCreatedMessage()) return std::nullopt;
    WindowAccess::taskbarCreated(*data.window);
    return 0;
}

Answer inputMessage(const Message& m, WindowData& data) {
    switch (m.id) {
        case WM_MOUSEWHEEL:
            return wheelMessage(m, data);
        case WM_MOUSELEAVE:
            return mouseLeaveMessage(data);
        case WM_CAPTURECHANGED:
            return captureChangedMessage(m, data);
        case WM_SETCURSOR:
            return cursorMessage(m, data);
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
            return keyMessage(m, data);
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return focusMessage(m, data);
        case WM_ACTIVATE:
            return activateMessage(m, data);
        case WM_MOUSEACTIVATE:
            return mouseActivateMessage(data);
        case WM_DROPFILES:
            return dropMessage(m, data);
        default:
            break;
    }
    if (fromNotificationArea(m, data)) return trayMessage(m, data);
    const bool button = m.id >= WM_LBUTTONDOWN && m.id <= WM_MBUTTONDBLCLK;
    return button || m.id == WM_MOUSEMOVE ? mouseMessage(m, data) : std::nullopt;
}

Answer decode(const Message& m, WindowData& data) {
    switch (m.id) {
        case WM_PAINT:
            return paintMessage(m, data);
        case WM_ERASEBKGND:
            return TRUE;  // painting covers everything
        case WM_SIZE:
            return sizeMessage(m, data);
        case WM_GETMINMAXINFO:
            return minMaxMessage(m, data);
        case WM_TIMER:
            return timerMessage(m, data);
        case WM_CLOSE:
            return closeMessage(data);
        case WM_SETTEXT:
            return textMessage(m, data);
        case WM_SYSCOMMAND:
            return systemCommandMessage(m, data);
        case WM_SYSCOLORCHANGE:
            return colorsMessage(m, data);
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            return endSessionMessage(m, data);
        default:
            break;
    }
    if (m.id >= 0xC000) return taskbarMessage(m, data);  // registered messages
    return inputMessage(m, data);
}

// The last message of a window: its data goes, its object stays behind without a window.
LRESULT detach(const Message& m, WindowData* data) {
    Window* window = data->window;
    const WNDPROC base = data->base;
    endDrag(*data);
    if (data->kind != WindowKind::Child) removeTopLevel(m.hwnd);
    SetWindowLongPtrA(m.hwnd, GWLP_USERDATA, 0);
    const LRESULT result = CallWindowProcA(base, m.hwnd, m.id, m.wParam, m.lParam);
    delete data;
    if (window != nullptr) {
        WindowAccess::setNative(*window, nullptr);
        WindowAccess::destroyed(*window);
    }
    return result;
}

}  // namespace

WindowData* dataOf(HWND hwnd) {
    return reinterpret_cast<WindowData*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
}

WindowData* attach(HWND hwnd, Window& window, WindowKind kind) {
    auto* data = new WindowData;
    data->window = &window;
    data->kind = kind;
    data->base = DefWindowProcA;
    if (kind == WindowKind::Dialog) {
        data->base = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(hwnd, GWLP_WNDPROC));
        SetWindowLongPtrA(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(windowProcedure));
    }
    if (kind == WindowKind::Main) letThrough(taskbarCreatedMessage());
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(data));
    WindowAccess::setNative(window, hwnd);
    if (kind != WindowKind::Child) addTopLevel(hwnd);
    return data;
}

LRESULT CALLBACK windowProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    WindowData* data = dataOf(hwnd);
    if (data == nullptr) return DefWindowProcA(hwnd, message, wParam, lParam);
    const Message m{hwnd, message, wParam, lParam};
    if (message == WM_NCDESTROY) return detach(m, data);
    const WNDPROC base = data->base;  // a handler may destroy the window
    if (data->window != nullptr) {
        if (const Answer answer = decode(m, *data)) return *answer;
    }
    return CallWindowProcA(base, hwnd, message, wParam, lParam);
}

}  // namespace platform
