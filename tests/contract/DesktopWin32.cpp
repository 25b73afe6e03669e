#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Machine.h"
#include "platform/Timer.h"
#include "platform/win32/Win32.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>
#include <utility>

namespace contract {

using platform::MouseButton;
using platform::Point;
using platform::Window;

namespace {

HWND hwndOf(const Window& window) {
    return reinterpret_cast<HWND>(window.native());
}

LPARAM packed(Point at) {
    return MAKELPARAM(at.x, at.y);
}

WPARAM heldKeys(platform::Modifiers modifiers) {
    return (modifiers.shift ? MK_SHIFT : 0U) | (modifiers.ctrl ? MK_CONTROL : 0U);
}

// The first message of a button; up and double click are the next two.
UINT firstMessageOf(MouseButton button) {
    if (button == MouseButton::Right) return WM_RBUTTONDOWN;
    return button == MouseButton::Middle ? WM_MBUTTONDOWN : WM_LBUTTONDOWN;
}

WPARAM flagOf(MouseButton button) {
    if (button == MouseButton::Right) return MK_RBUTTON;
    return button == MouseButton::Middle ? MK_MBUTTON : MK_LBUTTON;
}

// The keyboard as this thread sees it.
void hold(int code, bool down) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[code] = down ? 0x80 : 0;
    SetKeyboardState(keys);
}

void holdAll(platform::Modifiers modifiers) {
    hold(VK_SHIFT, modifiers.shift);
    hold(VK_CONTROL, modifiers.ctrl);
    hold(VK_MENU, modifiers.alt);
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

void typeWhenMenuIsUp(std::vector<WPARAM> keys) {
    menuKeys() = std::move(keys);
    SetTimer(nullptr, 0, 100, typeIntoMenu);
}

}  // namespace

platform::Color pixelAt(Window& window, Point at) {
    window.update();
    const HDC dc = GetDC(hwndOf(window));
    const COLORREF color = GetPixel(dc, at.x, at.y);
    ReleaseDC(hwndOf(window), dc);
    return color;
}

void movePointer(Window& window, Point at) {
    const Point screen = window.toScreen(at);
    SetCursorPos(screen.x, screen.y);
}

platform::Pointer shownPointer() {
    const HCURSOR shown = GetCursor();
    if (shown == LoadCursorA(nullptr, IDC_ARROW)) return platform::Pointer::Arrow;
    if (shown == LoadCursorA(nullptr, IDC_WAIT)) return platform::Pointer::Busy;
    if (shown == LoadCursorA(nullptr, IDC_SIZEWE)) return platform::Pointer::SizeWestEast;
    return shown == LoadCursorA(nullptr, IDC_NO) ? platform::Pointer::NoDrop : platform::Pointer::Drop;
}

void clickOnScreen(Window& window, Point at) {
    movePointer(window, at);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

Shown shownThrough(const Window& window) {
    Shown shown;
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
    movePointer(window, at);
    const platform::TimerHandle hand = platform::startTimer(50, [&ticks, to](std::uintptr_t) {
        if (++ticks == 4) SetCursorPos(to.x, to.y);
        if (ticks >= 8 && ticks % 4 == 0) mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    });
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    waitFor([&ticks] { return ticks > 8; });
}

void mouseDown(Window& window, Point at, MouseButton button, platform::Modifiers modifiers) {
    SendMessageA(hwndOf(window), firstMessageOf(button), flagOf(button) | heldKeys(modifiers), packed(at));
}

void mouseUp(Window& window, Point at, MouseButton button) {
    SendMessageA(hwndOf(window), firstMessageOf(button) + 1, 0, packed(at));
}

void doubleClick(Window& window, Point at) {
    const HWND hwnd = hwndOf(window);
    SendMessageA(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, packed(at));
    SendMessageA(hwnd, WM_LBUTTONUP, 0, packed(at));
    SendMessageA(hwnd, WM_LBUTTONDBLCLK, MK_LBUTTON, packed(at));
    SendMessageA(hwnd, WM_LBUTTONUP, 0, packed(at));
}

// As old Windows does it: the message goes to the window with the focus, wherever the pointer is.
void wheel(Window& window, Point at, int delta) {
    const HWND focus = GetFocus() != nullptr ? GetFocus() : hwndOf(window);
    PostMessageA(focus, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), packed(window.toScreen(at)));
    platform::pumpMessages();
}

void pressKey(std::uint16_t code, platform::Modifiers modifiers) {
    holdAll(modifiers);
    SendMessageA(GetFocus(), WM_KEYDOWN, code, 0);
    SendMessageA(GetFocus(), WM_KEYUP, code, 0);
    holdAll({});
}

void moveKey(std::uint16_t code, bool down) {
    keybd_event(static_cast<BYTE>(code), 0, down ? 0 : KEYEVENTF_KEYUP, 0);
}

void paste(const std::string& text) {
    const HGLOBAL bytes = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    std::memcpy(GlobalLock(bytes), text.c_str(), text.size() + 1);
    GlobalUnlock(bytes);
    if (!OpenClipboard(GetFocus())) return;
    EmptyClipboard();
    SetClipboardData(CF_TEXT, bytes);  // the clipboard's from here on
    CloseClipboard();
    SendMessageA(GetFocus(), WM_PASTE, 0, 0);
}

void typeText(const std::string& text) {
    std::vector<wchar_t> units(text.size());
    const int count = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), units.data(),
                                          static_cast<int>(units.size()));
    units.resize(static_cast<std::size_t>(count));
    for (const wchar_t unit : units) PostMessageW(GetFocus(), WM_CHAR, unit, 1);
    platform::pumpMessages();
}

void closeBox(Window& window) {
    SendMessageA(hwndOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
}

void dragFrame(Window& window, const platform::Rect& bounds) {
    // What a drag of the frame ends with: the limits are asked for and kept to.
    SetWindowPos(hwndOf(window), nullptr, bounds.left, bounds.top, bounds.width(), bounds.height(), SWP_NOZORDER);
}

void dropFiles(Window& window, const std::vector<std::string>& paths) {
    if ((GetWindowLongA(hwndOf(window), GWL_EXSTYLE) & WS_EX_ACCEPTFILES) == 0) return;
    std::string names;
    for (const std::string& path : paths) names.append(path.c_str(), path.size() + 1);
    names.push_back('\0');
    DROPFILES header{};
    header.pFiles = sizeof header;
    const HGLOBAL drop = GlobalAlloc(GHND, sizeof header + names.size());
    auto* content = static_cast<char*>(GlobalLock(drop));
    std::memcpy(content, &header, sizeof header);
    std::memcpy(content + sizeof header, names.data(), names.size());
    GlobalUnlock(drop);
    SendMessageA(hwndOf(window), WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
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

void runModal(Window& dialog, Window& owner, std::function<void()> script) {
    platform::TimerHandle timer;
    timer = platform::startTimer(50, [&timer, script](std::uintptr_t) {
        const std::function<void()> run = script;  // closing the timer may take this closure along
        timer.reset();
        run();
    });
    platform::runModal(dialog, owner);
}

void trayEvent(Window& owner, std::uint32_t iconId, platform::TrayEvent event) {
    constexpr LPARAM kCodes[] = {WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONUP, NIN_BALLOONUSERCLICK};
    SendMessageA(hwndOf(owner), WM_MOUSEMOVE, iconId, kCodes[static_cast<int>(event)]);
}

void answerMenu(int downs) {
    std::vector<WPARAM> keys(static_cast<std::size_t>(downs), VK_DOWN);
    keys.push_back(VK_RETURN);
    typeWhenMenuIsUp(std::move(keys));
}

// Opened with the right arrow, a menu has its first item selected.
void answerSubmenu(int downs, int inside) {
    std::vector<WPARAM> keys(static_cast<std::size_t>(downs), VK_DOWN);
    keys.push_back(VK_RIGHT);
    keys.insert(keys.end(), static_cast<std::size_t>(inside - 1), VK_DOWN);
    keys.push_back(VK_RETURN);
    typeWhenMenuIsUp(std::move(keys));
}

void dismissMenu() {
    typeWhenMenuIsUp({VK_ESCAPE});
}

std::string programWithIcon() {
    return platform::windowsDirectory() + "\\notepad.exe";
}

}  // namespace contract
