// What every window of ours carries beside its Window object, and the way from a window handle to both. The data
// hangs on the window handle and lives exactly as long as that.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Window.h"
#include "platform/win32/Win32.h"

namespace platform {

struct WindowData {
    Window* window = nullptr;  // null as soon as the object is being destroyed: no handler may run then
    WindowKind kind = WindowKind::Child;
    WNDPROC base = nullptr;  // takes what is not decoded here: DefWindowProcA, or the dialog class' own
    Pointer pointer = Pointer::Arrow;
    bool capturing = false;                // by capture(); Windows itself captures too, for frames and menus
    bool leftWhileCapturing = false;       // the pointer; to be told when the capture ends
    bool dragged = false;                  // by dragAsByCaption
    HWND focusToRestore = nullptr;         // the child that had the focus when the window was deactivated
    bool enabled = true;                   // as the program has it; a modal dialog may keep it from input besides
    std::vector<std::uint32_t> trayIcons;  // ids of its icons in the notification area
    IconHandle smallIcon;                  // of the caption
    IconHandle largeIcon;                  // of the task switcher
};

// The platform's way to the handlers, which are protected.
struct WindowAccess {
    static void setNative(Window& w, HWND hwnd) { w.native_ = reinterpret_cast<std::uintptr_t>(hwnd); }
    static void paint(Window& w, Canvas& canvas, const Rect& dirty) { w.onPaint(canvas, dirty); }
    static void size(Window& w, Size client, WindowState state) { w.onSize(client, state); }
    static void mouse(Window& w, const MouseEvent& event) { w.onMouse(event); }
    static void mouseLeave(Window& w) { w.onMouseLeave(); }
    static void wheel(Window& w, const WheelEvent& event) { w.onWheel(event); }
    static void key(Window& w, const KeyEvent& event) { w.onKey(event); }
    static void focus(Window& w, bool gained) { w.onFocus(gained); }
    static void timer(Window& w, int id) { w.onTimer(id); }
    static void captureLost(Window& w) { w.onCaptureLost(); }
    static void dropFiles(Window& w, const std::vector<std::string>& paths) { w.onDropFiles(paths); }
    static void systemColors(Window& w) { w.onSystemColors(); }
    static void close(Window& w) { w.onClose(); }
    static void endSession(Window& w) { w.onEndSession(); }
    static void tray(Window& w, TrayEvent event) { w.onTray(event); }
    static void textChanged(Window& w) { w.onTextChanged(); }
    static void taskbarCreated(Window& w) { w.onTaskbarCreated(); }
    static void destroyed(Window& w) { w.onDestroyed(); }
    static Size minimumSize(const Window& w) { return w.minimumSize(); }
};

inline HWND hwndOf(const Window& window) {
    return reinterpret_cast<HWND>(window.native());
}

inline Rect toRect(const RECT& r) {
    return {r.left, r.top, r.right, r.bottom};
}
inline RECT toRECT(const Rect& r) {
    return {r.left, r.top, r.right, r.bottom};
}

// The data of one of our own windows; null for any other, and during its creation.
WindowData* dataOf(HWND hwnd);
// Makes a fresh window one of ours: from here on its messages reach `window`.
WindowData* attach(HWND hwnd, Window& window, WindowKind kind);

// Window procedure of every window of ours.
LRESULT CALLBACK windowProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// WM_PAINT: has the window paint what is invalid into memory, then shows it.
void paintWindow(HWND hwnd, Window& window);

// The shape of the pointer over our windows: the busy one wins while a BusyPointer lives.
HCURSOR cursorFor(Pointer shape);
bool busyPointerActive();

// Remembers which child has the focus, for the next activation.
void rememberFocus(HWND hwnd, WindowData& data);
// Gives the focus back to the child remembered; false when there is none (any more).
bool restoreFocus(HWND hwnd, WindowData& data);
// Moves the focus from tab stop to tab stop, in the order of creation, round and round.
void focusNextTabStop(HWND root, HWND current, bool backwards);

// To be called for a window that goes: a drag of it that is going on ends.
void endDrag(const WindowData& data);
// Takes the mouse from the window that captures it: a modal window must get every click.
void cancelCapture();
// Brings a top-level window to the front, which may be another program's; a disabled one stays behind the dialog in
// front of it, which comes instead.
void raise(HWND window);

}  // namespace platform
