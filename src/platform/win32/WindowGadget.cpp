// What makes a window a thing on the desktop: being seen through, and being dragged by any place of it.
#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

bool makeOrdinary(HWND hwnd, LONG style) {
    if ((style & WS_EX_LAYERED) == 0) return true;
    SetWindowLongA(hwnd, GWL_EXSTYLE, style & ~WS_EX_LAYERED);
    // What was drawn went into a picture that nobody shows any more.
    RedrawWindow(hwnd, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
    return (GetWindowLongA(hwnd, GWL_EXSTYLE) & WS_EX_LAYERED) == 0;
}

}  // namespace

bool Window::setTranslucency(std::uint8_t alpha, std::optional<Color> hole) {
    const HWND hwnd = hwndOf(*this);
    const WindowData* data = native_ != 0 ? dataOf(hwnd) : nullptr;
    if (data == nullptr || data->kind == WindowKind::Child) return false;
    const LONG style = GetWindowLongA(hwnd, GWL_EXSTYLE);
    if (alpha == 255 && !hole) return makeOrdinary(hwnd, style);
    SetWindowLongA(hwnd, GWL_EXSTYLE, style | WS_EX_LAYERED);
    const DWORD what = LWA_ALPHA | (hole ? LWA_COLORKEY : 0U);
    return SetLayeredWindowAttributes(hwnd, hole.value_or(0), alpha, what) != FALSE;
}

void Window::dragAsByCaption() {
    // Let go already, there would be nothing to end the drag.
    if (native_ == 0 || GetKeyState(VK_LBUTTON) >= 0) return;
    const auto pressedAt = static_cast<LPARAM>(GetMessagePos());
    ReleaseCapture();
    SendMessageA(hwndOf(*this), WM_NCLBUTTONDOWN, HTCAPTION, pressedAt);
}

}  // namespace platform
