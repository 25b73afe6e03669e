// The buttons of the two toolbars: their order, and the titles and texts of their tips.
#pragma once

#include <array>
#include <string_view>

namespace app {

struct ToolTip {
    std::string_view title;
    std::string_view text;
};

// Button numbers of ToolBar1.
namespace button {
inline constexpr int kApplyChanges = 0, kFileFilter = 1, kSetOptions = 2, kBrowseForFavorite = 3,
                     kRemoveFavorites = 4, kSetFavoritesNow = 5, kAutoSet = 6, kEnforce = 7, kFavoriteProfiles = 8,
                     kKestrumJr = 9, kViewHelp = 10, kAlwaysOnTop = 11;
}

// Button numbers of ToolBar2.
namespace button2 {
inline constexpr int kFileExtensions = 3, kFileTips = 4, kGraph = 5;
}

inline constexpr std::array<ToolTip, 12> kToolBar1Tips = {{
    {"Apply Changes", "Apply changes to selected files\r\nAuto Set will over-ride if file is a favorite!"},
    {"File Filter", "Hide/Show filtered file names."},
    {"Set Options", "Change option settings"},
    {"Browse For Favorite", "Browse for a  file to add as a favorite."},
    {"Remove Favorites", "Remove selected favorites from list"},
    {"Set Favorites Now", "Apply settings to current favorite profile."},
    {"Auto Set Favorites", "Set CPU Affinity and Priority\r\nfor my favorites on the fly!"},
    {"Enforce Auto Set", "Checks favorites at set interval to make sure they are set!"},
    {"Favorite Profiles", "Change favorite profile"},
    {"Kestrum Jr.", "Switch to Kestrum Jr."},
    {"View Help", "Open local help file with web browser."},
    {"Always On Top", "Stay on top of other windows."},
}};

inline constexpr std::array<ToolTip, 7> kToolBar2Tips = {{
    {"Add To Favorites", "Add selected files to favorites"},
    {"Add To Filter", "Filter selected file names"},
    {"Filter Dialog", "Show file filter dialog"},
    {"File Extensions", "Show file extensions"},
    {"File Tooltips", "Show file info in tooltip"},
    {"CPU Graph", "Open selected in CPU graph"},
    {"End Process", "Terminate selected (Kill Process)"},
}};

}  // namespace app
