#include "settings/DisplayOptions.h"

#include "settings/Colours.h"

namespace settings {

DisplayOptions LoadDisplayOptions(const Settings& settings) {
    DisplayOptions options;
    options.trayType = settings.Number(Key::TrayNum);
    options.showTips = settings.Number(Key::ShowTips) == 1;
    options.launchFavorites = settings.Number(Key::LaunchFav) == 1;
    options.messageBeep = settings.Number(Key::MsgBeep) == 1;
    options.showExtensions = settings.Number(Key::ShowExt) == 1;
    options.showFileTips = settings.Number(Key::ShowFileTips) == 1;
    options.trayColor = ColourFromIndex(settings.Number(Key::TrayForeColor));
    options.trayBorder = ColourFromIndex(settings.Number(Key::TrayBrdrIdx));
    return options;
}

}  // namespace settings
