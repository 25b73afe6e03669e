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
inline constexpr int kMenuPictures = 204;      // 5 of 13 pixels, in the order of the tray menu's commands

// Bitmaps: the tray's digits, black on white: 0 to 9 of 16 x 32 pixels side by side, then "100" of 32 x 32 at
// x = 158.
inline constexpr int kLargeDigits = 105;
inline constexpr int kSmallDigits = 106;

}  // namespace controls
