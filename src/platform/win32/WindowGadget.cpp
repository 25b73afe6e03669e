// What makes a window a thing on the desktop: being seen through, and being dragged by any place of it.
#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

void makeOrdinary(HWND hwnd) {
    const LONG style = GetWindowLongA(hwnd, GWL_EXSTYLE);
    if ((style & WS_EX_LAYERED) == 0) return;
    SetWindowLongA(hwnd, GWL_EXSTYLE, style & ~WS_EX_LAYERED);
    // What was painted is in a picture that the system shows no more.
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
}

// Both by the message that is at work and by now: let go in between, over another window, nothing would end the
// drag.
bool firstButtonHeld() {
    const int button = GetSystemMetrics(SM_SWAPBUTTON) != 0 ? VK_RBUTTON : VK_LBUTTON;
    return GetKeyState(VK_LBUTTON) < 0 && GetAsyncKeyState(button) < 0;
}

}  // namespace

bool Window::setTranslucency(std::uint8_t alpha, std::optional<Color> hole) {
    const HWND hwnd = hwndOf(*this);
    const WindowData* data = native_ != 0 ? dataOf(hwnd) : nullptr;
    if (data == nullptr || data->kind == WindowKind::Child) return false;
    if (alpha == 255 && !hole) {
        makeOrdinary(hwnd);
        return true;
    }
    const LONG style = GetWindowLongA(hwnd, GWL_EXSTYLE);
    if ((style & WS_EX_LAYERED) == 0) SetWindowLongA(hwnd, GWL_EXSTYLE, style | WS_EX_LAYERED);
    const DWORD what = LWA_ALPHA | (hole ? LWA_COLORKEY : 0U);
    if (SetLayeredWindowAttributes(hwnd, hole.value_or(0), alpha, what)) return true;
    makeOrdinary(hwnd);  // with the style alone nothing of the window would show
    return false;
}

void Window::dragAsByCaption() {
    const HWND hwnd = hwndOf(*this);
    WindowData* data = native_ != 0 ? dataOf(hwnd) : nullptr;
    if (data == nullptr || !firstButtonHeld()) return;
    const auto pressedAt = static_cast<LPARAM>(GetMessagePos());
    data->dragged = true;
    ReleaseCapture();  // which may be the window's end
    SendMessageA(hwnd, WM_NCLBUTTONDOWN, HTCAPTION, pressedAt);
    data = dataOf(hwnd);  // the window may have gone meanwhile
    if (data != nullptr) data->dragged = false;
}

// Not every system sees by itself that there is nothing to drag any more. It would wait for a button that is let go
// over a window of this thread; the message goes to no window.
void endDrag(const WindowData& data) {
    if (data.dragged) PostMessageA(nullptr, WM_LBUTTONUP, 0, 0);
}

}  // namespace platform
