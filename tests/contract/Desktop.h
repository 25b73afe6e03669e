// The user, the desktop and the eye of contract tests: input that reaches a window as it would from Windows, and
// the pixels that painting left. Implemented for the simulation (DesktopSim) and for Windows (DesktopWin32).
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Window.h"
#ifndef _WIN32
#include "platform/sim/Sim.h"
#endif

namespace contract {

using namespace platform;

#ifndef _WIN32
// What the simulated desktop offers as it stands.
using platform::sim::closeBox;
using platform::sim::doubleClick;
using platform::sim::dragFrame;
using platform::sim::dropFiles;
using platform::sim::mouseDown;
using platform::sim::mouseUp;
using platform::sim::pasteText;
using platform::sim::pointerShape;
using platform::sim::pressKey;
using platform::sim::setPointer;
using platform::sim::Translucency;
using platform::sim::translucency;
using platform::sim::typeText;
using platform::sim::wheel;
#else
// Moves the pointer; the events follow when the message loop runs.
void setPointer(Window& window, Point at);
// What the user sees of the pointer, wherever it is; tells those shapes apart that a drag has.
Pointer pointerShape();
// How the system shows a top-level window, asked of the system.
struct Translucency {
    std::uint8_t alpha = 255;
    std::optional<Color> hole;
};
Translucency translucency(const Window& window);
void mouseDown(Window& window, Point at, MouseButton button, Modifiers modifiers = {});
void mouseUp(Window& window, Point at, MouseButton button);
void doubleClick(Window& window, Point at);  // left: down, up, double click, up
void wheel(Window& window, Point at, int delta);
// A key goes down and up again in the window that has the focus.
void pressKey(std::uint16_t code, Modifiers modifiers = {});
// Puts a text on the clipboard and inserts it into the text box that has the focus.
void pasteText(const std::string& text);
// Types into the window that has the focus.
void typeText(const std::string& text);
void closeBox(Window& window);
// Lets the user drag the frame of a main window to these bounds.
void dragFrame(Window& window, const Rect& bounds);
void dropFiles(Window& window, const std::vector<std::string>& paths);
#endif

// The colour shown at a client pixel, after what is invalid has been painted.
Color pixelAt(Window& window, Point at);
// Moves the pointer there and clicks; the events go where the system has them go when the message loop runs.
void clickOnScreen(Window& window, Point at);
// Presses the left button there, moves the pointer that far, holds it for a while, and lets the button go.
void dragOnScreen(Window& window, Point at, Point delta);
// A key goes down or up on the keyboard itself, whoever has the focus.
void moveKey(std::uint16_t code, bool down);
void changeSystemColors(Window& main);  // as told to a top-level window
void restartShell(Window& main);        // likewise
void endSession(Window& main);          // likewise

// runModal, with `script` run once the dialog is up: it must end the dialog.
void runModal(Window& dialog, std::function<void()> script);

// The user at the icon that `owner` has put into the notification area.
void trayEvent(Window& owner, std::uint32_t iconId, TrayEvent event);

// What the user does as soon as the next menu is up: goes down by so many items (separators are none) and chooses;
// the next number is for the menu that the item opens. Without a number dismisses it. The menu stays up long enough
// for a timer of 10 ms to fire.
void answerMenu(const std::vector<int>& downs);

}  // namespace contract
