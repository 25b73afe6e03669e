// Which child has the focus: moving it by Tab, and giving it back when a window becomes active again.
#include <algorithm>
#include <vector>

#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

// In order of creation, which is the order of the siblings. The window's own visibility is asked, not that of its
// parents: a dialog finds its first stop while it is coming up.
void collectTabStops(HWND parent, std::vector<HWND>& stops) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const LONG style = GetWindowLongA(child, GWL_STYLE);
        if ((style & WS_VISIBLE) == 0 || (style & WS_DISABLED) != 0) continue;
        if ((style & WS_TABSTOP) != 0) stops.push_back(child);
        collectTabStops(child, stops);
    }
}

}  // namespace

void rememberFocus(HWND hwnd, WindowData& data) {
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(hwnd, focus)) data.focusToRestore = focus;
}

bool restoreFocus(HWND hwnd, WindowData& data) {
    if (!IsWindowEnabled(hwnd)) return false;  // a dialog is in front of it: later
    HWND focus = data.focusToRestore;
    data.focusToRestore = nullptr;
    // What was hidden meanwhile leaves it to what holds it, as it does when it is hidden with the focus.
    while (focus != nullptr && IsChild(hwnd, focus) && (GetWindowLongA(focus, GWL_STYLE) & WS_VISIBLE) == 0) {
        focus = GetParent(focus);
    }
    if (focus == nullptr || !IsChild(hwnd, focus)) return false;
    SetFocus(focus);
    return true;
}

void focusNextTabStop(HWND root, HWND current, bool backwards) {
    std::vector<HWND> stops;
    collectTabStops(root, stops);
    if (stops.empty()) return;
    if (backwards) std::reverse(stops.begin(), stops.end());
    const auto at = std::find(stops.begin(), stops.end(), current);
    const bool last = at == stops.end() || at + 1 == stops.end();
    SetFocus(last ? stops.front() : *(at + 1));
}

}  // namespace platform
