#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Timer.h"
#include "platform/win32/WindowData.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

namespace contract {

namespace {

LPARAM packed(Point at) {
    return MAKELPARAM(at.x, at.y);
}

// The first message of a button (up and double click are the next two), and its flag.
struct ButtonCodes {
    UINT down;
    WPARAM flag;
};

ButtonCodes codesOf(MouseButton button) {
    if (button == MouseButton::Right) return {WM_RBUTTONDOWN, MK_RBUTTON};
    if (button == MouseButton::Middle) return {WM_MBUTTONDOWN, MK_MBUTTON};
    return {WM_LBUTTONDOWN, MK_LBUTTON};
}

// The keyboard as this thread sees it.
void hold(Modifiers modifiers) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    const auto set = [&keys](int code, bool down) { keys[code] = down ? 0x80 : 0; };
    set(VK_SHIFT, modifiers.shift);
    set(VK_CONTROL, modifiers.ctrl);
    set(VK_MENU, modifiers.alt);
    SetKeyboardState(keys);
}

// Memory with these bytes, for whom it is given to.
HGLOBAL handedOver(const std::string& bytes) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
    GlobalUnlock(memory);
    return memory;
}

// The keys for the next menu, posted by a timer once it is up. They go to the thread: the menu takes them from the
// queue, whatever window they are for.
std::vector<WPARAM>& menuKeys() {
    static std::vector<WPARAM> keys;
    return keys;
}

void CALLBACK typeIntoMenu(HWND, UINT, UINT_PTR timer, DWORD) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &thread) || (thread.flags & GUI_INMENUMODE) == 0) return;
    KillTimer(nullptr, timer);
    for (const WPARAM key : menuKeys()) PostMessageA(thread.hwndMenuOwner, WM_KEYDOWN, key, 0);
    menuKeys().clear();
}

}  // namespace

Color pixelAt(Window& window, Point at) {
    window.update();
    const HDC dc = GetDC(hwndOf(window));
    const COLORREF color = GetPixel(dc, at.x, at.y);
    ReleaseDC(hwndOf(window), dc);
    return color;
}

void setPointer(Window& window, Point at) {
    const Point screen = window.toScreen(at);
    SetCursorPos(screen.x, screen.y);
}

Pointer pointerShape() {
    const HCURSOR shown = GetCursor();
    if (shown == LoadCursorA(nullptr, IDC_ARROW)) return Pointer::Arrow;
    return shown == LoadCursorA(nullptr, IDC_NO) ? Pointer::NoDrop : Pointer::Drop;
}

void clickOnScreen(Window& window, Point at) {
    setPointer(window, at);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

Translucency translucency(const Window& window) {
    Translucency shown;
    COLORREF hole = 0;
    BYTE alpha = 255;
    DWORD what = 0;
    if (!GetLayeredWindowAttributes(hwndOf(window), &hole, &alpha, &what)) return shown;
    if ((what & LWA_ALPHA) != 0) shown.alpha = alpha;
    if ((what & LWA_COLORKEY) != 0) shown.hole = hole;
    return shown;
}

// A timer moves on and lets go, as the drag has a message loop of its own. On a busy machine the button may be let
// go before the drag begins, over some other window, and the drag waits: then it is let go once more.
void dragOnScreen(Window& window, Point at, Point delta) {
    const Point from = window.toScreen(at);
    const Point to{from.x + delta.x, from.y + delta.y};
    int ticks = 0;
    setPointer(window, at);
    const TimerHandle hand = startTimer(50, [&ticks, to](std::uintptr_t) {
        if (++ticks == 4) SetCursorPos(to.x, to.y);
        if (ticks >= 8 && ticks % 4 == 0) mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    });
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    waitFor([&ticks] { return ticks > 8; });
}

void mouseDown(Window& window, Point at, MouseButton button, Modifiers modifiers) {
    const ButtonCodes codes = codesOf(button);
    const WPARAM keys = (modifiers.shift ? MK_SHIFT : 0U) | (modifiers.ctrl ? MK_CONTROL : 0U);
    SendMessageA(hwndOf(window), codes.down, codes.flag | keys, packed(at));
}

void mouseUp(Window& window, Point at, MouseButton button) {
    SendMessageA(hwndOf(window), codesOf(button).down + 1, 0, packed(at));
}

void doubleClick(Window& window, Point at) {
    mouseDown(window, at, MouseButton::Left);
    mouseUp(window, at, MouseButton::Left);
    SendMessageA(hwndOf(window), WM_LBUTTONDBLCLK, MK_LBUTTON, packed(at));
    mouseUp(window, at, MouseButton::Left);
}

// As old Windows does it: the message goes to the window with the focus, wherever the pointer is.
void wheel(Window& window, Point at, int delta) {
    const HWND focus = GetFocus() != nullptr ? GetFocus() : hwndOf(window);
    PostMessageA(focus, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), packed(window.toScreen(at)));
    pumpMessages();
}

void pressKey(std::uint16_t code, Modifiers modifiers) {
    hold(modifiers);
    SendMessageA(GetFocus(), WM_KEYDOWN, code, 0);
    SendMessageA(GetFocus(), WM_KEYUP, code, 0);
    hold({});
}

void moveKey(std::uint16_t code, bool down) {
    keybd_event(static_cast<BYTE>(code), 0, down ? 0 : KEYEVENTF_KEYUP, 0);
}

void pasteText(const std::string& text) {
    if (!OpenClipboard(GetFocus())) return;
    EmptyClipboard();
    SetClipboardData(CF_TEXT, handedOver(text + '\0'));
    CloseClipboard();
    SendMessageA(GetFocus(), WM_PASTE, 0, 0);
}

void typeText(const std::string& text) {
    std::vector<wchar_t> units(text.size());
    const int count = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), units.data(),
                                          static_cast<int>(units.size()));
    units.resize(static_cast<std::size_t>(count));
    for (const wchar_t unit : units) PostMessageW(GetFocus(), WM_CHAR, unit, 1);
    pumpMessages();
}

void closeBox(Window& window) {
    SendMessageA(hwndOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void dragFrame(Window& window, const Rect& bounds) {
    // What a drag of the frame ends with: the limits are asked for and kept to.
    SetWindowPos(hwndOf(window), nullptr, bounds.left, bounds.top, bounds.width(), bounds.height(), SWP_NOZORDER);
}

void dropFiles(Window& window, const std::vector<std::string>& paths) {
    if ((GetWindowLongA(hwndOf(window), GWL_EXSTYLE) & WS_EX_ACCEPTFILES) == 0) return;
    DROPFILES header{};
    header.pFiles = sizeof header;
    std::string drop(reinterpret_cast<const char*>(&header), sizeof header);
    for (const std::string& path : paths) drop += path + '\0';
    SendMessageA(hwndOf(window), WM_DROPFILES, reinterpret_cast<WPARAM>(handedOver(drop + '\0')), 0);
}

void changeSystemColors(Window& main) {
    SendMessageA(hwndOf(main), WM_SYSCOLORCHANGE, 0, 0);
}

void restartShell(Window& main) {
    SendMessageA(hwndOf(main), RegisterWindowMessageA("TaskbarCreated"), 0, 0);
}

void endSession(Window& main) {
    if (SendMessageA(hwndOf(main), WM_QUERYENDSESSION, 0, 0) == FALSE) return;
    SendMessageA(hwndOf(main), WM_ENDSESSION, FALSE, 0);  // another program said no
    SendMessageA(hwndOf(main), WM_ENDSESSION, TRUE, 0);
}

void runModal(Window& dialog, std::function<void()> script) {
    TimerHandle timer;
    timer = startTimer(50, [&timer, script](std::uintptr_t) {
        const std::function<void()> run = script;  // closing the timer may take this closure along
        timer.reset();
        run();
    });
    platform::runModal(dialog);
}

void trayEvent(Window& owner, std::uint32_t iconId, TrayEvent event) {
    constexpr LPARAM kCodes[] = {WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONUP, NIN_BALLOONUSERCLICK};
    SendMessageA(hwndOf(owner), WM_MOUSEMOVE, iconId, kCodes[static_cast<int>(event)]);
}

void answerMenu(const std::vector<int>& downs) {
    std::vector<WPARAM> keys;
    for (const int down : downs) {
        // Opened with the right arrow, a menu has its first item selected.
        keys.insert(keys.end(), static_cast<std::size_t>(keys.empty() ? down : down - 1), VK_DOWN);
        keys.push_back(VK_RIGHT);
    }
    if (keys.empty()) keys.push_back(0);
    keys.back() = downs.empty() ? VK_ESCAPE : VK_RETURN;
    menuKeys() = keys;
    SetTimer(nullptr, 0, 100, typeIntoMenu);
}

}  // namespace contract
