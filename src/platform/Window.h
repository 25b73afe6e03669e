// Windows: a base class with one virtual handler per kind of event, the message loop, and the screen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Event.h"
#include "platform/Geometry.h"

namespace platform {

enum class WindowKind {
    Main,    // overlapped, caption, resizable, minimise and maximise boxes; created hidden
    Dialog,  // caption and close box, owned by `parent`; class "#32770"; created hidden
    Child,   // control inside `parent`; created shown
    Popup,   // a dropped list: no frame but a thin border, above all windows, owned by `parent`; never becomes
             // active and never takes the focus; created hidden
    Gadget,  // stands on the desktop by itself: neither frame nor caption, no button in the task bar, no owner
             // (`parent` is not looked at), becomes active like any window; created hidden
};

// Restore brings a window that was minimised back as it was before, maximised perhaps; Normal never does.
enum class ShowCommand { Show, ShowInactive, Hide, Minimize, Maximize, Restore, Normal };
enum class Pointer { Arrow, Busy, SizeWestEast, Drop, NoDrop };

class Window;

struct WindowSpec {
    WindowKind kind = WindowKind::Child;
    std::string className;  // ignored for Dialog
    std::string title;      // caption, or the instance name of a control
    Window* parent = nullptr;
    Rect bounds;  // client pixels of the parent for Child, screen pixels otherwise (the whole window, frame
                  // included)
    bool tabStop = false;
    int iconResource = 0;  // Main and Dialog: icon of caption and task bar
};

enum class TabStop { No, Yes };

class Window {
public:
    Window() = default;
    virtual ~Window();  // destroys the window and its children
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool create(const WindowSpec& spec);  // CreateWindowExA; false on failure
    // The usual control: a child called `instanceName`, see WindowSpec.
    bool createChild(Window& parent, const std::string& className, const std::string& instanceName,
                     const Rect& bounds, TabStop tabStop);
    void destroy();  // DestroyWindow; calls onDestroyed
    bool exists() const { return native_ != 0; }
    std::uintptr_t native() const { return native_; }

    void show(ShowCommand command);  // ShowWindow, SetWindowPlacement
    bool visible() const;            // IsWindowVisible
    WindowState state() const;       // IsIconic, IsZoomed
    // The modal dialog in its place, when one keeps it from input. SetForegroundWindow, SetWindowPos.
    void bringToFront();
    void setTopmost(bool topmost);  // SetWindowPos
    // A drop shadow behind every window of this one's class and behind the dialogs created with such a window as
    // parent. CS_DROPSHADOW, SetClassLongA (GCL_STYLE).
    void addDropShadow();
    // How much shows through the whole top-level window: `alpha` 0 (nothing of it is seen) to 255 (solid). Where it
    // is painted in exactly the colour `hole` nothing of it is there, neither to the eye nor to the mouse. 255
    // without a hole makes it an ordinary window again. False where the system cannot. WS_EX_LAYERED,
    // SetLayeredWindowAttributes.
    bool setTranslucency(std::uint8_t alpha, std::optional<Color> hole = std::nullopt);
    // To be called while the left button goes down on the window: the user drags it, as by a caption. Comes back
    // when the button is let go; timers go on meanwhile. ReleaseCapture, WM_NCLBUTTONDOWN with HTCAPTION.
    void dragAsByCaption();
    // What is wanted while a modal dialog keeps a top-level window from input holds when that has ended.
    void enable(bool enabled);  // EnableWindow
    bool enabled() const;       // IsWindowEnabled: of the window itself, and no modal dialog keeps it from input
    void setText(const std::string& text);  // SetWindowTextA
    std::string text() const;

    Rect bounds() const;                 // as in WindowSpec
    void setBounds(const Rect& bounds);  // MoveWindow with repaint; onSize comes before the return
    Rect normalBounds() const;           // the restored rectangle, whatever the state. GetWindowPlacement
    Size clientSize() const;
    Point toScreen(Point client) const;

    void invalidate();                  // the whole client area
    void invalidate(const Rect& area);  // InvalidateRect, no background erase
    void update();                      // UpdateWindow: paints what is invalid now

    void focus();  // SetFocus
    bool focused() const;
    void capture();         // SetCapture
    void releaseCapture();  // ReleaseCapture, if this window holds it; onCaptureLost follows
    bool captured() const;
    // Window timers; starting an id again re-arms it. SetTimer, KillTimer.
    void startTimer(int id, std::uint32_t milliseconds);
    void stopTimer(int id);
    void setPointer(Pointer shape);  // shape of the mouse pointer over this window
    void acceptFiles(bool accept);   // DragAcceptFiles
    bool underPointer() const;       // this window is the one under the mouse pointer. WindowFromPoint

protected:
    friend struct WindowAccess;  // the platform's way to the handlers

    virtual void onPaint(Canvas& canvas, const Rect& dirty);  // double-buffered; must cover `dirty`
    virtual void onSize(Size client, WindowState state);
    virtual void onMouse(const MouseEvent& event);
    virtual void onMouseLeave();
    virtual void onWheel(const WheelEvent& event);
    virtual void onKey(const KeyEvent& event);  // Tab never arrives: it moves the focus between tab stops
    virtual void onFocus(bool gained);
    virtual void onTimer(int id);
    virtual void onCaptureLost();
    virtual void onDropFiles(const std::vector<std::string>& paths);
    virtual void onSystemColors();
    // The close box, Alt+F4 and the like. The default destroys the window.
    virtual void onClose();
    // The session ends: log-off or shut-down. Last chance to save.
    virtual void onEndSession();
    // Something happened to an icon that this window owns (Tray.h).
    virtual void onTray(TrayEvent event);
    // The window's text was set, by this program or another one. WM_SETTEXT.
    virtual void onTextChanged();
    virtual void onTaskbarCreated();  // the shell came (back): the tray icon must be added again
    virtual void onDestroyed();       // children are gone already
    // Smallest size of the whole window the user can drag to; 0 x 0 for no limit.
    virtual Size minimumSize() const;

private:
    std::uintptr_t native_ = 0;
};

// Runs until postQuit; gives its code. A window that throws ends the program: handlers must not.
int runMessageLoop();     // GetMessageW, DispatchMessageW
void postQuit(int code);  // PostQuitMessage
// Dispatches what is waiting, then returns. PeekMessageW.
void pumpMessages();
// From now until `dialog` is hidden or destroyed the other top-level windows of the program take no input: they are
// disabled, also those made meanwhile, but for the ones that the dialog owns. When several dialogs are modal the
// last one counts. Balloon tips are left alone.
void beginModal(Window& dialog);
// Shows a dialog, modal if that has not begun yet, and runs until it is destroyed or hidden.
void runModal(Window& dialog);

// The busy pointer for as long as the guard lives.
class BusyPointer {
public:
    BusyPointer();  // SetCursor
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

// Work area (screen without task bar) of the screen nearest to the rectangle. MonitorFromRect, GetMonitorInfoA.
Rect nearestWorkArea(const Rect& area);
// True when some pixel of the rectangle lies on a screen. MonitorFromRect.
bool onAnyScreen(const Rect& area);
// Pixels of the primary screen. GetSystemMetrics.
Size screenSize();

}  // namespace platform
