// What the settings say about how the program shows itself, read once at the start.
#pragma once

#include "platform/Canvas.h"
#include "settings/Settings.h"

namespace settings {

struct DisplayOptions {
    int trayType = 0;  // of the meter in the notification area: 0 none, 1 bar, 2 large and 3 small digits
    platform::Color trayColor = 0;
    platform::Color trayBorder = 0;  // of the bar
    bool showTips = true;            // balloons over controls
    bool launchFavorites = false;    // by a double click
    bool messageBeep = true;         // a sound with every message box
    bool showExtensions = true;      // of the programs in the process list
    bool showFileTips = true;        // what a process is about, over its row
};

// Damaged values read as Settings reads them; a colour index outside the table gives black.
DisplayOptions LoadDisplayOptions(const Settings& settings);

}  // namespace settings
