// The system's own one-line text box, with the keys, the clipboard and the context menu that users know.
#pragma once

#include <functional>
#include <string>

#include "platform/Window.h"

namespace platform {

// text() and setText() are those of Window. Every key is the box's own, but for Enter and Escape.
class TextBox : public Window {
public:
    std::function<void()> Accepted;   // Enter was pressed
    std::function<void()> Cancelled;  // Escape was pressed
    std::function<void()> FocusLost;  // any of the three may hide or destroy the box

    // A child of `parent`, created hidden. Class "EDIT" (CreateWindowExW); its text is empty. False on failure.
    bool createBox(Window& parent, const Rect& bounds);
    void selectAll();  // EM_SETSEL
};

}  // namespace platform
