// What a window is told by the user and the system, decoded once below the seam.
#pragma once

#include <cstdint>

#include "platform/Geometry.h"

namespace platform {

// Which of these keys are down at the moment of an event. Their own presses and releases count: a press of Shift
// has `shift` set, its release has not. Do not keep track of them: no window is told of a key let go while a menu
// is open.
struct Modifiers {
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
};

enum class MouseAction { Down, DoubleClick, Up, Move };
enum class MouseButton { None, Left, Right, Middle };

struct MouseEvent {
    MouseAction action = MouseAction::Move;
    MouseButton button = MouseButton::None;  // None for Move
    Point at;                                // client pixels; outside the window while captured
    Modifiers modifiers;
    bool leftHeld = false;
};

struct WheelEvent {
    int delta = 0;  // > 0 turned away from the user; usually a multiple of 120
    Point at;       // client pixels
    Modifiers modifiers;
};

// Virtual key codes (letters and digits are their upper-case character codes).
namespace key {
inline constexpr std::uint16_t kBack = 0x08, kTab = 0x09, kEnter = 0x0D, kShift = 0x10, kCtrl = 0x11, kAlt = 0x12,
                               kEscape = 0x1B, kSpace = 0x20, kPageUp = 0x21, kPageDown = 0x22, kEnd = 0x23,
                               kHome = 0x24, kLeft = 0x25, kUp = 0x26, kRight = 0x27, kDown = 0x28, kDelete = 0x2E,
                               kApps = 0x5D, kF1 = 0x70, kF2 = 0x71, kF5 = 0x74;
}

struct KeyEvent {
    bool down = false;
    std::uint16_t code = 0;
    Modifiers modifiers;
    bool repeat = false;  // it is held down, and went down earlier
};

// What the user does to an icon in the notification area.
enum class TrayEvent { LeftUp, LeftDoubleClick, RightUp, BalloonClicked };

enum class WindowState { Normal, Minimized, Maximized };

}  // namespace platform
