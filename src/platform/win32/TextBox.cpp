// The text box is Windows' own, with a procedure of ours in front of it. Everything speaks Unicode here: whatever
// the code page, a character that needs several bytes would come apart on its way as a message.
#include "platform/TextBox.h"

#include <functional>

#include "platform/win32/Fonts.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

using Function = std::function<void()>;

TextBox& boxOf(WindowData& data) {
    return static_cast<TextBox&>(*data.window);
}

// A copy is called: the box may go with what it does.
void call(Function function) {
    if (function) function();
}

bool keyIsDown(int code) {
    return GetKeyState(code) < 0;
}

// True when the key is none of the system's box.
bool keyDown(HWND hwnd, WPARAM code, WindowData& data) {
    switch (code) {
        case VK_TAB:
            focusNextTabStop(GetAncestor(hwnd, GA_ROOT), hwnd, keyIsDown(VK_SHIFT));
            return true;
        case VK_RETURN:
            call(boxOf(data).Accepted);
            return true;
        case VK_ESCAPE:
            call(boxOf(data).Cancelled);
            return true;
        case 'A':
            // Not every Windows has it; with Alt it is a letter of some keyboards.
            if (!keyIsDown(VK_CONTROL) || keyIsDown(VK_MENU)) return false;
            boxOf(data).selectAll();
            return true;
        default:
            return false;
    }
}

// Characters of the keys above, which the box would beep at or insert, and that of Ctrl+Backspace.
bool isUnwanted(WPARAM character) {
    constexpr WPARAM kCtrlA = 1, kCtrlBackspace = 0x7F;
    return character == kCtrlA || character == '\t' || character == '\n' || character == '\r' ||
           character == VK_ESCAPE || character == kCtrlBackspace;
}

LRESULT CALLBACK boxProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    WindowData* data = dataOf(hwnd);
    if (data == nullptr || message == WM_NCDESTROY) return windowProcedure(hwnd, message, wParam, lParam);
    const WNDPROC base = data->base;  // a handler may destroy the window
    if (data->window == nullptr) return CallWindowProcW(base, hwnd, message, wParam, lParam);

    if (message == WM_KEYDOWN && keyDown(hwnd, wParam, *data)) return 0;
    if (message == WM_CHAR && isUnwanted(wParam)) return 0;
    const LRESULT result = CallWindowProcW(base, hwnd, message, wParam, lParam);
    data = dataOf(hwnd);  // what the box tells its parent may destroy it
    if (data == nullptr || data->window == nullptr) return result;
    if (message == WM_SETTEXT) WindowAccess::textChanged(*data->window);
    if (message == WM_KILLFOCUS) call(boxOf(*data).FocusLost);
    return result;
}

}  // namespace

bool TextBox::createBox(Window& parent, const Rect& bounds) {
    if (exists() || !parent.exists()) return false;
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL;
    const HWND hwnd =
        CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"EDIT", nullptr, style, bounds.left, bounds.top, bounds.width(),
                        bounds.height(), hwndOf(parent), nullptr, GetModuleHandleW(nullptr), nullptr);
    if (hwnd == nullptr) return false;
    WindowData* data = attach(hwnd, *this, WindowKind::Child);
    data->base =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(boxProcedure)));
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(fontHandle(Font::Normal)), FALSE);
    return true;
}

void TextBox::selectAll() {
    if (exists()) SendMessageW(hwndOf(*this), EM_SETSEL, 0, -1);
}

}  // namespace platform
