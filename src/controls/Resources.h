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

}  // namespace controls
