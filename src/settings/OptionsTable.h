// Every control of the options dialog: what it is, where it stands, what it is called, and which key it changes.
#pragma once

#include <span>

#include "settings/OptionItems.h"
#include "settings/SettingKeys.h"

namespace settings {

enum class OptionPage { Misc, CpuGraphs, StartUp, Below };  // Below: under the pages, whichever is shown
inline constexpr int kOptionPages = 3;

enum class OptionKind { Check, List, Slider, Button };

// Called as the controls are. In the order of the Tab key, page by page.
enum class Option {
    ChkTips,
    ChkHotKey,
    ChkLaunchFav,
    ChkMsgBeep,
    CmdHdrW,
    CboEnforce,
    CboTrayType,
    CboTrayColr,
    CboTrayBrdr,
    CmdClean,
    ChkCPUGraphTop,
    ChkCpuTips,
    ChkEdgeDetect,
    ChkSeeThru,
    CmdShowTtl,
    HScrl,
    CboGphCap,
    CboGphVal,
    ChkStart,
    ChkMini,
    ChkAuto,
    ChkShowTtl,
    ChkShadow,
    CboFav,
    ChkStartJr,
    CboFavJr,
    CboEnforceJr,
    CmdHelp,
    CmdExit,
    Count,  // not an option
};

struct OptionInfo {
    Option option;
    OptionPage page;
    int column, row;  // on its page; -1: placed by itself
    OptionKind kind;
    const char* name;
    const char* caption;  // of a check box or button itself; of the others in a label beside it
    Key key;              // Key::Count: none
    OptionItems items;    // of a list
    const char* tipTitle;
    const char* tipText;  // nullptr: nothing to explain
};

// In the order of Option.
std::span<const OptionInfo> OptionTable();
const OptionInfo& InfoOf(Option option);
const char* CaptionOf(OptionPage page);

}  // namespace settings
