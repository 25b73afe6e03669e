// The notification area as its user meets it: one icon at the lower right of the screen, its menu, its balloon.
#pragma once

#include <vector>

#include "desktop/Driver.h"

namespace desktop {

// What the icon looks like at this moment.
Picture TrayPicture();
bool TrayHasIcon();
void DoubleClickTray();
// Opens the menu of the icon and takes its item, counted from 0 without the separators. False when there is no menu
// or it doesn't go.
bool ChooseInTray(int item);
// What a shell that comes back finds: no icon, until the programs it tells of itself have put them there again.
void LoseTrayIcon(HWND main);
void AnnounceShell();

}  // namespace desktop
