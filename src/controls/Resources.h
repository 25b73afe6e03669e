// Numbers of the program's resources; assets/kestrum2.rc is the other end.
#pragma once

namespace controls {

// Icons.
inline constexpr int kProgramIcon = 1;  // 16, 24, 32 and 48 pixels
inline constexpr int kDefaultIcon = 2;  // for programs without an icon of their own; 16 and 32 pixels
inline constexpr int kFilterIcon = 3;   // marks a filtered file name; 16 pixels

// Bitmaps: images side by side, white is transparent.
inline constexpr int kToolBarPictures = 201;   // 12 of 24 pixels, in button order of ToolBar1
inline constexpr int kToolBar2Pictures = 202;  // 7 of 16 pixels, in button order of ToolBar2
inline constexpr int kMessageIcons = 203;      // 2 of 32 pixels: information, question
inline constexpr int kMenuPictures = 204;      // 12 of 13 pixels, see below
// For each look of an XPbutn (normal, hover, pressed, disabled) three slices of 5 x 21 pixels: left cap, middle,
// right cap. Here magenta is transparent.
inline constexpr int kButtonSlices = 205;

// Bitmaps: the tray's digits, black on white: 0 to 9 of 16 x 32 pixels side by side, then "100" of 32 x 32 at
// x = 158.
inline constexpr int kLargeDigits = 105;
inline constexpr int kSmallDigits = 106;

// The menu pictures: what stands where in kMenuPictures.
inline constexpr int kMenuSetNow = 0;
inline constexpr int kMenuAutoSet = 1;
inline constexpr int kMenuOptions = 2;
inline constexpr int kMenuGraphs = 3;
inline constexpr int kMenuExit = 4;
inline constexpr int kMenuAddFavorite = 5;
inline constexpr int kMenuAddFilter = 6;
inline constexpr int kMenuFilterDialog = 7;
inline constexpr int kMenuExtensions = 8;
inline constexpr int kMenuFileTips = 9;
inline constexpr int kMenuCpuGraph = 10;
inline constexpr int kMenuEndProcess = 11;

}  // namespace controls
