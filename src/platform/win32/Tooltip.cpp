#include "platform/Tooltip.h"

#include <algorithm>

#include "platform/Window.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

#include <commctrl.h>

namespace platform {

namespace {

constexpr std::size_t kLongestTitle = 99;  // UTF-16 units; a longer one is refused
constexpr int kLongestDelay = 32767;       // milliseconds; the time is half of a number
// Pixels; only a balloon with a limit takes CR LF for the end of a line.
constexpr LPARAM kWidestText = 500;

HWND hwndOf(const TooltipHandle& tooltip) {
    return reinterpret_cast<HWND>(tooltip.raw());
}

void registerTooltipClass() {
    static const bool done = [] {
        INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES};
        return InitCommonControlsEx(&controls) != FALSE;
    }();
    static_cast<void>(done);
}

// The balloon starts to count with a move of the pointer. A tip is often made by that very move: when it was the
// last one there would never be a balloon.
void relayMove(HWND tooltip, HWND target) {
    MSG move{};
    if (!GetCursorPos(&move.pt) || WindowFromPoint(move.pt) != target) return;
    POINT at = move.pt;
    ScreenToClient(target, &at);
    move.hwnd = target;
    move.message = WM_MOUSEMOVE;
    move.lParam = MAKELPARAM(at.x, at.y);
    move.time = static_cast<DWORD>(GetMessageTime());
    SendMessageA(tooltip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&move));
}

void setDelay(HWND tooltip, WPARAM which, int milliseconds) {
    SendMessageA(tooltip, TTM_SETDELAYTIME, which, MAKELPARAM(std::clamp(milliseconds, 0, kLongestDelay), 0));
}

}  // namespace

// A window that goes takes nothing with it here: a balloon lets go of the windows it watches, and one that is
// watched lets go of the balloon, whichever is the first.
void TooltipTag::close(std::uintptr_t raw) noexcept {
    DestroyWindow(reinterpret_cast<HWND>(raw));
}

TooltipHandle createTooltip() {
    registerTooltipClass();
    const DWORD style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX | TTS_BALLOON;
    return TooltipHandle(reinterpret_cast<std::uintptr_t>(CreateWindowExA(
        WS_EX_TOPMOST | WS_EX_TOOLWINDOW, TOOLTIPS_CLASSA, nullptr, style, CW_USEDEFAULT, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr)));
}

bool addTool(const TooltipHandle& tooltip, const Window& target, const std::string& text) {
    if (!tooltip || !target.exists()) return false;
    std::string changeable = text;  // the record asks for it
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;  // a longer one is refused without the newer controls
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = platform::hwndOf(target);
    tool.uId = target.native();
    tool.lpszText = changeable.data();
    SendMessageA(hwndOf(tooltip), TTM_SETMAXTIPWIDTH, 0, kWidestText);
    if (!SendMessageA(hwndOf(tooltip), TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool))) return false;
    relayMove(hwndOf(tooltip), tool.hwnd);
    return true;
}

void setTooltipTitle(const TooltipHandle& tooltip, const std::string& title) {
    if (!tooltip) return;
    std::wstring shown = wideText(title);
    if (shown.size() > kLongestTitle) {
        const bool splitsPair = IS_SURROGATE_PAIR(shown[kLongestTitle - 1], shown[kLongestTitle]);
        shown.resize(splitsPair ? kLongestTitle - 1 : kLongestTitle);
    }
    SendMessageW(hwndOf(tooltip), TTM_SETTITLEW, TTI_INFO, reinterpret_cast<LPARAM>(shown.c_str()));
}

void setTooltipDelays(const TooltipHandle& tooltip, int autoPop, int initial) {
    if (!tooltip) return;
    setDelay(hwndOf(tooltip), TTDT_AUTOPOP, autoPop);
    setDelay(hwndOf(tooltip), TTDT_INITIAL, initial);
}

}  // namespace platform
