// The screens of the machine.
#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

Rect nearestWorkArea(const Rect& area) {
    const RECT r = toRECT(area);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoA(MonitorFromRect(&r, MONITOR_DEFAULTTONEAREST), &monitor)) return toRect(monitor.rcWork);
    return Rect::fromSize({0, 0}, screenSize());
}

bool onAnyScreen(const Rect& area) {
    if (area.empty()) return false;
    const RECT r = toRECT(area);
    return MonitorFromRect(&r, MONITOR_DEFAULTTONULL) != nullptr;
}

Size screenSize() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace platform
