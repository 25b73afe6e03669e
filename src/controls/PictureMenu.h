// Pop-up menus whose items have pictures of the program's own artwork.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Window.h"

namespace controls {

struct MenuEntry {
    int id = 0;  // 0: a separator, whose other fields say nothing
    std::string text = {};
    int picture = -1;  // which of the menu pictures (Resources.h); below 0 for none
    bool enabled = true;
    bool checked = false;
    std::vector<MenuEntry> submenu =
        {};  // not empty: the entry opens this menu; its id only has to be no separator's
};

// Shows the menu at a point of the screen and waits for the user, while timers go on. Gives the id chosen, 0 when
// the user dismissed the menu. Menu and pictures are made anew each time; nothing is kept. showMenu.
int ShowPictureMenu(const platform::Window& owner, platform::Point screen, std::span<const MenuEntry> entries);

}  // namespace controls
