// The menu of a CPU graph.
#pragma once

#include "platform/Window.h"

namespace graphs {

namespace command {
inline constexpr int kGraphTime = 1;  // opens the times; can't be chosen
inline constexpr int kStayOnTop = 2;
inline constexpr int kEdgeDetection = 3;
inline constexpr int kShowCaption = 4;
inline constexpr int kRememberPositions = 5;
inline constexpr int kForgetPositions = 6;
inline constexpr int kHideAll = 7;
inline constexpr int kCloseAll = 8;
inline constexpr int kHide = 9;
inline constexpr int kClose = 10;
inline constexpr int kTime = 20;  // + index of the time, see DivisorOfCommand
}  // namespace command

struct GraphMenuState {
    int divisor = 1;
    bool stayOnTop = false;
    bool edgeDetection = false;
    bool showCaption = true;
};

// The divisor that a command kTime + index sets; 0 for any other command.
int DivisorOfCommand(int id);

// Shows the menu at a point of the screen and waits for the user, while timers go on. Gives the command chosen, 0
// when the user dismissed it.
int ShowGraphMenu(const platform::Window& owner, platform::Point screen, const GraphMenuState& state);

}  // namespace graphs
