#include "tray/TrayMenu.h"

#include "controls/PictureMenu.h"
#include "controls/Resources.h"

namespace tray {

int TrayMenu::Show(const platform::Window& owner, platform::Point at, const TrayMenuState& state) {
    const controls::MenuEntry entries[] = {
        // clang-format off
        {command::kSetNow, "Set Now", controls::kMenuSetNow, !state.autoSet},
        {},
        {command::kAutoSet, "Auto Set", controls::kMenuAutoSet, true, state.autoSet},
        {},
        {command::kOptions, "Options", controls::kMenuOptions},
        {command::kShowGraphs, "Show CPU Graphs", controls::kMenuGraphs, state.graphsOpen},
        {},
        {command::kExit, "Exit", controls::kMenuExit},
        // clang-format on
    };
    return controls::ShowPictureMenu(owner, at, entries);
}

}  // namespace tray
