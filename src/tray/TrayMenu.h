// The menu of the icon in the notification area.
#pragma once

#include "platform/Geometry.h"
#include "platform/Window.h"

namespace tray {

// What the user can choose. 3 and 6 are not used.
namespace command {
inline constexpr int kSetNow = 1;
inline constexpr int kAutoSet = 2;
inline constexpr int kOptions = 4;
inline constexpr int kShowGraphs = 5;
inline constexpr int kExit = 7;
}  // namespace command

struct TrayMenuState {
    bool autoSet = false;     // Auto Set is on
    bool graphsOpen = false;  // there is a CPU graph window of a process
};

class TrayMenu {
public:
    // Shows the menu at a point of the screen and waits for the user, while timers go on. Gives the command chosen,
    // 0 when the user dismissed the menu. Nothing is kept from one menu to the next. showMenu.
    int Show(const platform::Window& owner, platform::Point at, const TrayMenuState& state);
};

}  // namespace tray
