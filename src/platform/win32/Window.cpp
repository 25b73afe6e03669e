// Window: creation, destruction and the operations on one window.
#include "platform/Window.h"

#include "platform/win32/Win32.h"

#include <shellapi.h>

#include "platform/win32/Modal.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

constexpr char kDialogClass[] = "#32770";

// Registers the class once. A name that Windows itself uses is fine: ours hides it within this program.
bool registerClass(const std::string& name, WindowKind kind) {
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    // What a dropped list covers comes back without painting, where the system can manage that.
    wc.style = CS_DBLCLKS | (kind == WindowKind::Popup ? CS_SAVEBITS : 0U);
    wc.lpfnWndProc = windowProcedure;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = name.c_str();
    return RegisterClassExA(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

DWORD styleOf(const WindowSpec& spec) {
    switch (spec.kind) {
        case WindowKind::Main:
            return WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
        case WindowKind::Dialog:
            return WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
        case WindowKind::Popup:
            return WS_POPUP | WS_BORDER | WS_CLIPCHILDREN;
        case WindowKind::Gadget:
            return WS_POPUP | WS_CLIPCHILDREN;
        case WindowKind::Child:
            break;
    }
    const DWORD tabStop = spec.tabStop ? WS_TABSTOP : 0;
    return WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | tabStop;
}

DWORD extendedStyleOf(WindowKind kind) {
    switch (kind) {
        case WindowKind::Main:
            return WS_EX_CONTROLPARENT | WS_EX_APPWINDOW;
        case WindowKind::Dialog:
            return WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;
        case WindowKind::Popup:
            return WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
        case WindowKind::Gadget:
            return WS_EX_CONTROLPARENT | WS_EX_TOOLWINDOW;
        case WindowKind::Child:
            break;
    }
    return WS_EX_NOPARENTNOTIFY;
}

void setIcons(HWND hwnd, WindowData& data, int resource) {
    data.smallIcon = loadIconResource(resource, GetSystemMetrics(SM_CXSMICON));
    data.largeIcon = loadIconResource(resource, GetSystemMetrics(SM_CXICON));
    SendMessageA(hwnd, WM_SETICON, ICON_SMALL, static_cast<LPARAM>(data.smallIcon.raw()));
    SendMessageA(hwnd, WM_SETICON, ICON_BIG, static_cast<LPARAM>(data.largeIcon.raw()));
}

// EnumChildWindows: cuts a control off from its object.
BOOL CALLBACK silence(HWND child, LPARAM) {
    WindowData* data = dataOf(child);
    if (data == nullptr || data->window == nullptr) return TRUE;
    WindowAccess::setNative(*data->window, nullptr);
    data->window = nullptr;
    return TRUE;
}

int showCode(ShowCommand command, bool shown) {
    switch (command) {
        case ShowCommand::Show:
            return SW_SHOW;
        case ShowCommand::ShowInactive:
            return SW_SHOWNA;
        case ShowCommand::Hide:
            return SW_HIDE;
        case ShowCommand::Minimize:
            // Minimising activates the next window; one that was not there before has nothing to hand on.
            return shown ? SW_MINIMIZE : SW_SHOWMINNOACTIVE;
        case ShowCommand::Maximize:
            return SW_MAXIMIZE;
        case ShowCommand::Restore:
            return SW_RESTORE;
        case ShowCommand::Normal:
            return SW_SHOWNORMAL;
    }
    return SW_SHOW;
}

// A minimised window remembers that it was maximised, and would be again.
void forgetMaximized(HWND hwnd) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(hwnd, &placement) || (placement.flags & WPF_RESTORETOMAXIMIZED) == 0) return;
    placement.flags &= ~static_cast<UINT>(WPF_RESTORETOMAXIMIZED);
    placement.showCmd = SW_SHOWNORMAL;
    SetWindowPlacement(hwnd, &placement);
}

// A dropped list, or a control in one: neither is ever active or has the focus.
bool isInPopup(HWND hwnd) {
    const HWND root = GetAncestor(hwnd, GA_ROOT);
    const WindowData* data = root != nullptr ? dataOf(root) : nullptr;
    return data != nullptr && data->kind == WindowKind::Popup;
}

bool dropsShadow(HWND hwnd) {
    return (GetClassLongA(hwnd, GCL_STYLE) & CS_DROPSHADOW) != 0;
}

void dropShadow(HWND hwnd) {
    const DWORD style = GetClassLongA(hwnd, GCL_STYLE);
    if (style != 0) SetClassLongA(hwnd, GCL_STYLE, static_cast<LONG>(style | CS_DROPSHADOW));
}

}  // namespace

Window::~Window() {
    if (native_ == 0) return;
    const HWND hwnd = hwndOf(*this);
    if (WindowData* data = dataOf(hwnd)) {
        // The derived part of the object is gone, and maybe what its controls belong to: from here on none of
        // their handlers may run.
        endModalsOf(hwnd);
        data->window = nullptr;
        EnumChildWindows(hwnd, silence, 0);
    }
    DestroyWindow(hwnd);
}

bool Window::create(const WindowSpec& spec) {
    if (native_ != 0) return false;
    const bool dialog = spec.kind == WindowKind::Dialog;
    if (!dialog && !registerClass(spec.className, spec.kind)) return false;
    // Windows takes the top-level window around a control for the owner by itself.
    const bool alone = spec.kind == WindowKind::Gadget || spec.parent == nullptr;
    const HWND parent = alone ? nullptr : hwndOf(*spec.parent);
    const HWND hwnd =
        CreateWindowExA(extendedStyleOf(spec.kind), dialog ? kDialogClass : spec.className.c_str(),
                        spec.title.c_str(), styleOf(spec), spec.bounds.left, spec.bounds.top, spec.bounds.width(),
                        spec.bounds.height(), parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (hwnd == nullptr) return false;
    WindowData* data = attach(hwnd, *this, spec.kind);
    if (dialog && parent != nullptr && dropsShadow(parent)) dropShadow(hwnd);
    if (spec.iconResource != 0) setIcons(hwnd, *data, spec.iconResource);
    // Windows sends the first size of these during the call, before anything listens; a main window has its with
    // the first show.
    if (spec.kind != WindowKind::Main) onSize(clientSize(), WindowState::Normal);
    return true;
}

void Window::destroy() {
    if (native_ == 0) return;
    const HWND hwnd = hwndOf(*this);
    endModalsOf(hwnd);
    DestroyWindow(hwnd);
}

void Window::show(ShowCommand command) {
    const HWND hwnd = hwndOf(*this);
    if (WindowData* data = dataOf(hwnd)) {
        if (command == ShowCommand::Hide) endModal(hwnd);
        if (command == ShowCommand::Hide || command == ShowCommand::Minimize) rememberFocus(hwnd, *data);
        if (data->kind == WindowKind::Popup && command != ShowCommand::Hide) {
            command = ShowCommand::ShowInactive;
            // Which keeps its place among the topmost windows; it may have been below others since it was made.
            SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
        }
    }
    if (command == ShowCommand::Normal) forgetMaximized(hwnd);
    ShowWindow(hwnd, showCode(command, visible()));
}

bool Window::visible() const {
    return IsWindowVisible(hwndOf(*this)) != FALSE;
}

WindowState Window::state() const {
    if (IsIconic(hwndOf(*this))) return WindowState::Minimized;
    return IsZoomed(hwndOf(*this)) ? WindowState::Maximized : WindowState::Normal;
}

void Window::bringToFront() {
    // Only a top-level window can be in front; asked for a control, Windows refuses. A control that owns an icon in
    // the notification area must be in front for its menu to go away with a click elsewhere.
    if (native_ != 0 && !isInPopup(hwndOf(*this))) raise(GetAncestor(hwndOf(*this), GA_ROOT));
}

void Window::setTopmost(bool topmost) {
    SetWindowPos(hwndOf(*this), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Window::addDropShadow() {
    if (native_ != 0) dropShadow(hwndOf(*this));
}

void Window::enable(bool enabled) {
    WindowData* data = native_ != 0 ? dataOf(hwndOf(*this)) : nullptr;
    if (data == nullptr) return;
    data->enabled = enabled;
    EnableWindow(hwndOf(*this), mayTakeInput(hwndOf(*this), *data));
}

bool Window::enabled() const {
    return IsWindowEnabled(hwndOf(*this)) != FALSE;
}

void Window::setText(const std::string& text) {
    SetWindowTextA(hwndOf(*this), text.c_str());
}

std::string Window::text() const {
    const int length = GetWindowTextLengthA(hwndOf(*this));
    if (length <= 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(hwndOf(*this), text.data(), length + 1)));
    return text;
}

Rect Window::bounds() const {
    const HWND hwnd = hwndOf(*this);
    RECT r{};
    GetWindowRect(hwnd, &r);
    const WindowData* data = native_ != 0 ? dataOf(hwnd) : nullptr;
    if (data != nullptr && data->kind == WindowKind::Child) {
        MapWindowPoints(nullptr, GetParent(hwnd), reinterpret_cast<POINT*>(&r), 2);
    }
    return toRect(r);
}

void Window::setBounds(const Rect& bounds) {
    MoveWindow(hwndOf(*this), bounds.left, bounds.top, bounds.width(), bounds.height(), TRUE);
}

Rect Window::normalBounds() const {
    const HWND hwnd = hwndOf(*this);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(hwnd, &placement)) return {};
    const Rect normal = toRect(placement.rcNormalPosition);
    const WindowData* data = dataOf(hwnd);
    if (data == nullptr || data->kind == WindowKind::Child) return normal;
    if ((GetWindowLongA(hwnd, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0) return normal;
    // Of others a placement counts from the corner of the work area, which a task bar at the top or left moves.
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoA(MonitorFromRect(&placement.rcNormalPosition, MONITOR_DEFAULTTONEAREST), &monitor)) {
        return normal;
    }
    return normal.offset(monitor.rcWork.left - monitor.rcMonitor.left, monitor.rcWork.top - monitor.rcMonitor.top);
}

Size Window::clientSize() const {
    RECT r{};
    GetClientRect(hwndOf(*this), &r);
    return toRect(r).size();
}

Point Window::toScreen(Point client) const {
    POINT p{client.x, client.y};
    ClientToScreen(hwndOf(*this), &p);
    return {p.x, p.y};
}

void Window::invalidate() {
    if (native_ != 0) InvalidateRect(hwndOf(*this), nullptr, FALSE);  // without a window: the whole screen
}

void Window::invalidate(const Rect& area) {
    if (native_ == 0 || area.empty()) return;
    const RECT r = toRECT(area);
    InvalidateRect(hwndOf(*this), &r, FALSE);
}

void Window::update() {
    UpdateWindow(hwndOf(*this));
}

void Window::focus() {
    if (native_ == 0) return;  // without a window: takes the focus from all of them
    if (!isInPopup(hwndOf(*this))) SetFocus(hwndOf(*this));
}

bool Window::focused() const {
    return native_ != 0 && GetFocus() == hwndOf(*this);
}

void Window::capture() {
    WindowData* data = native_ != 0 ? dataOf(hwndOf(*this)) : nullptr;
    if (data == nullptr || captured()) return;
    data->capturing = true;
    SetCapture(hwndOf(*this));
    SetCursor(cursorFor(data->pointer));  // Windows asks nobody for the shape until the capture ends
}

void Window::releaseCapture() {
    if (captured()) ReleaseCapture();
}

bool Window::captured() const {
    return native_ != 0 && GetCapture() == hwndOf(*this);
}

void Window::startTimer(int id, std::uint32_t milliseconds) {
    if (native_ != 0) SetTimer(hwndOf(*this), static_cast<UINT_PTR>(id), milliseconds, nullptr);
}

void Window::stopTimer(int id) {
    if (native_ != 0) KillTimer(hwndOf(*this), static_cast<UINT_PTR>(id));
}

void Window::setPointer(Pointer shape) {
    WindowData* data = dataOf(hwndOf(*this));
    if (data == nullptr || data->pointer == shape) return;
    data->pointer = shape;
    // Otherwise the new shape would only come with the next move of the mouse, and not at all to a window that
    // holds it.
    if (underPointer() || captured()) SetCursor(cursorFor(shape));
}

void Window::acceptFiles(bool accept) {
    DragAcceptFiles(hwndOf(*this), accept);
}

bool Window::underPointer() const {
    POINT p{};
    return native_ != 0 && GetCursorPos(&p) && WindowFromPoint(p) == hwndOf(*this);
}

}  // namespace platform
