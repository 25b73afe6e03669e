// How the parts of the simulated desktop reach windows: by native number, as any handler may destroy any window.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/sim/SimMachine.h"

namespace platform {

// The platform's way to the handlers of a window.
struct WindowAccess {
    static void paint(Window& to, Canvas& canvas, const Rect& dirty) { to.onPaint(canvas, dirty); }
    static void size(Window& to, Size client, WindowState state) { to.onSize(client, state); }
    static void mouse(Window& to, const MouseEvent& event) { to.onMouse(event); }
    static void mouseLeave(Window& to) { to.onMouseLeave(); }
    static void wheel(Window& to, const WheelEvent& event) { to.onWheel(event); }
    static void key(Window& to, const KeyEvent& event) { to.onKey(event); }
    static void focus(Window& to, bool gained) { to.onFocus(gained); }
    static void timer(Window& to, int id) { to.onTimer(id); }
    static void captureLost(Window& to) { to.onCaptureLost(); }
    static void dropFiles(Window& to, const std::vector<std::string>& paths) { to.onDropFiles(paths); }
    static void systemColors(Window& to) { to.onSystemColors(); }
    static void close(Window& to) { to.onClose(); }
    static void endSession(Window& to) { to.onEndSession(); }
    static void tray(Window& to, TrayEvent event) { to.onTray(event); }
    static void textChanged(Window& to) { to.onTextChanged(); }
    static void taskbarCreated(Window& to) { to.onTaskbarCreated(); }
    static void destroyed(Window& to) { to.onDestroyed(); }
    static Size minimumSize(const Window& of) { return of.minimumSize(); }
    static void forget(Window& window) { window.native_ = 0; }
};

namespace sim {

// How long a menu, dialog or chooser stays open before the script answers it.
inline constexpr std::uint32_t kModalMilliseconds = 500;

using WindowPointer = std::shared_ptr<WindowRecord>;

// What the window is wider by than its client area: on the left, right and below; and above.
struct Frame {
    int side = 0;
    int top = 0;
};
Frame frameOf(WindowKind kind);

WindowPointer findRecord(std::uintptr_t native);      // null when it is gone
WindowPointer topLevel(const WindowPointer& inside);  // the window that holds it, itself when it is top-level
std::vector<WindowPointer> topLevelsFromTop();        // shown or not
void raise(const WindowPointer& window);              // a top-level window, and with it its owners and what it owns
bool isVisible(const WindowRecord& record);
bool isEnabled(const WindowRecord& record);   // the window itself, and no dialog is modal before it
bool takesInput(const WindowRecord& record);  // it and all that hold it are enabled
Size clientSizeOf(const WindowRecord& record);
Point clientOrigin(const WindowRecord& record);  // in screen pixels

void setFocus(std::uintptr_t native);                      // 0: nobody
void activate(const WindowPointer& window);                // a top-level window
void deactivate(const WindowPointer& window);              // its owner becomes active
void leaveFocusInside(const WindowPointer& window);        // as it hides or goes
void moveFocus(const WindowPointer& from, bool backward);  // what Tab does
void setCapture(std::uintptr_t native);                    // 0: nobody; tells the loser
void cancelCaptureInside(const WindowRecord& window);

void showNormal(const WindowPointer& window);  // shows, restores and activates a top-level window
void setTitle(const WindowPointer& record, const std::string& text);
// At a point of the screen a top-level window has nothing that eye or mouse would meet.
bool isSeenThrough(const WindowRecord& record, Point screen);
std::uintptr_t windowFromPoint(Point screen);  // the window that is seen there, 0 for none of this program
// The innermost of the window's children at a point of the screen; the window itself where there is none.
std::uintptr_t innermostAt(const WindowRecord& record, Point screen);

// A text box: a key that went down in it, the loss of the focus, and what painting shows.
void sendBoxKey(const WindowPointer& box, std::uint16_t code, Modifiers modifiers);
void sendBoxFocusLost(const WindowPointer& box);
void paintBox(const WindowRecord& box, Canvas& canvas, const Rect& dirty);

bool hasShadow(const WindowRecord& record);
bool accepts(const WindowRecord& record, Request request);  // from another program

void sendTimer(std::uintptr_t window, int id);
void sendSize(const WindowPointer& record);
// Destroys a window and those inside it; `silently` when its object can no longer be told.
void destroyRecord(const WindowPointer& record, bool silently);

void invalidateRecord(WindowRecord& record, const Rect& area);
void invalidateTree(WindowRecord& record);
void paintRecord(const WindowPointer& record);
void paintTree(const WindowPointer& record);  // what is invalid in it and the windows inside
void paintInvalid();                          // what is invalid and can be seen

// A dialog, or 0 for one of the system's, keeps all windows from input that it does not own.
void beginModal(std::uintptr_t dialog);
void endModal(std::uintptr_t dialog);
void endModalsOf(const WindowRecord& window);  // as it goes: of it and of what it owns

}  // namespace sim

}  // namespace platform
