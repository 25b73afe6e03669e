// Who takes input while a dialog of the program, or one of the system's, is modal.
#pragma once

#include "platform/win32/WindowData.h"

namespace platform {

// Every top-level window of ours is known from attach to detach. One made while a dialog is modal begins disabled.
void addTopLevel(HWND window);
void removeTopLevel(HWND window);

// Whether the program has the window enabled and no modal dialog keeps it from input.
bool mayTakeInput(HWND window, const WindowData& data);
// The modal dialog that keeps one of our windows from input; null when there is none, or none of ours.
HWND modalInFrontOf(HWND window);
// To be called before a dialog hides: if it is modal the other windows take input again. Windows hands the
// activation to another program when its owner is still disabled.
void endModal(HWND dialog);
// Likewise before a window goes, and with it the dialogs that it owns.
void endModalsOf(HWND window);

// For as long as it lives the system shows a modal dialog of its own, which disables `owner` by itself.
class SystemModal {
public:
    explicit SystemModal(HWND owner);
    ~SystemModal();
    SystemModal(const SystemModal&) = delete;
    SystemModal& operator=(const SystemModal&) = delete;
};

}  // namespace platform
