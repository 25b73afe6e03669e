// Pop-up menus.
#pragma once

#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Geometry.h"
#include "platform/Picture.h"

namespace platform {

class Window;

struct MenuItem {
    int id = 0;  // > 0; 0 for a separator, whose other fields say nothing
    std::string text;
    bool enabled = true;
    bool checked = false;
    // Shown in place of the check mark: the first without the mark, the second with it. They belong to the caller,
    // must live as long as the menu is shown and are as large as menuPictureSize says; nullptr for none.
    const PictureHandle* picture = nullptr;
    const PictureHandle* checkedPicture = nullptr;
    // Not empty: the item opens this menu and can't be chosen itself; its id only has to be no separator's.
    std::vector<MenuItem> submenu = {};
};

// Pixels of a picture in place of a check mark. GetSystemMetrics (SM_CXMENUCHECK, SM_CYMENUCHECK).
Size menuPictureSize();

// Shows a menu at a point of the screen, kept on that screen, and waits for the user; timers go on. Gives the id
// chosen, 0 when the user dismissed it. CreatePopupMenu, AppendMenuA, SetMenuItemBitmaps, TrackPopupMenu
// (TPM_RETURNCMD), DestroyMenu.
int showMenu(const Window& owner, Point screen, const std::vector<MenuItem>& items);

// Where the mouse pointer is, screen pixels. GetCursorPos.
Point pointerPosition();

}  // namespace platform
