#include "settings/OptionsTable.h"

#include <cstddef>
#include <iterator>

namespace settings {

namespace {

constexpr auto kMisc = OptionPage::Misc;
constexpr auto kGraphs = OptionPage::CpuGraphs;
constexpr auto kStart = OptionPage::StartUp;
constexpr auto kBelow = OptionPage::Below;
constexpr auto kCheck = OptionKind::Check;
constexpr auto kList = OptionKind::List;
constexpr auto kButton = OptionKind::Button;
constexpr auto kNone = OptionItems::None;
constexpr auto kNoKey = Key::Count;

constexpr char kGraphTip[] = "CPU Graphs";
constexpr char kStartTip[] = "Start Up Options";

// clang-format off
constexpr OptionInfo kOptions[] = {
    {Option::ChkTips, kMisc, 0, 0, kCheck, "ChkTips", "Show ToolTips", Key::ShowTips, kNone,
     "Tooltips", "Show ballon tooltips on mouse over controls."},
    {Option::ChkHotKey, kMisc, 0, 1, kCheck, "ChkHotKey", "Enable Hotkeys", Key::Hotkey, kNone,
     "HotKeys", "Enable hotkeys [ see HotKeys in Help File ]."},
    {Option::ChkLaunchFav, kMisc, 0, 2, kCheck, "ChkLaunchFav", "Launch-able Favorites", Key::LaunchFav, kNone,
     "Launch Favorite", "Launch favorite on double click."},
    {Option::ChkMsgBeep, kMisc, 0, 3, kCheck, "ChkMsgBeep", "Sound on Dialogs", Key::MsgBeep, kNone,
     "Dialog Sound", "Play the Windows associated sound \r\nwhen message dialogs appear."},
    {Option::CmdHdrW, kMisc, 0, 4, kButton, "CmdHdrW", "Column Widths", kNoKey, kNone,
     "Column Widths", "Reset column widths and splitter\r\nbar to defaults."},
    {Option::CboEnforce, kMisc, 1, 0, kList, "CboEnforce", "EnForce Interval", Key::EnforceInterval,
     OptionItems::Intervals, "Enforce Auto Set Interval", "Interval in seconds Enforce should check favorites."},
    {Option::CboTrayType, kMisc, 1, 1, kList, "CboTrayType", "Tray Icon", Key::TrayNum, OptionItems::TrayTypes,
     "Tray Icon Type", "Display CPU usage in tray icon as bar graph or number."},
    {Option::CboTrayColr, kMisc, 1, 2, kList, "CboTrayColr", "Tray Icon Color", Key::TrayForeColor,
     OptionItems::Colours, "Tray Icon Color", "Set color of tray icon."},
    {Option::CboTrayBrdr, kMisc, 1, 3, kList, "CboTrayBrdr", "Tray Border Color", Key::TrayBrdrIdx,
     OptionItems::Colours, "Tray Icon Border Color", "Set border color of tray icon."},
    {Option::CmdClean, kMisc, 1, 4, kButton, "CmdClean", "Restore All", kNoKey, kNone,
     "Restore Defaults", "Remove saved settings from registry,\r\nRestore all default settings."},

    {Option::ChkCPUGraphTop, kGraphs, 0, 0, kCheck, "ChkCPUGraphTop", "Stay On Top", Key::ChkCPUGraphTop, kNone,
     kGraphTip, "Set the default 'Stay On Top' setting for CPU graphs."},
    {Option::ChkCpuTips, kGraphs, 0, 1, kCheck, "ChkCpuTips", "Show ToolTips", Key::CpuToolTips, kNone,
     kGraphTip, "Show ballon tooltips on mouse over graphs."},
    {Option::ChkEdgeDetect, kGraphs, 0, 2, kCheck, "ChkEdgeDetect", "Edge Detection", Key::EdgeDetect, kNone,
     kGraphTip, "Set the default 'Edge Detection' setting for CPU graphs."},
    {Option::ChkSeeThru, kGraphs, 0, 3, kCheck, "ChkSeeThru", "Transparent Graphs", Key::SeeThruCPU, kNone,
     kGraphTip, "Set background effect for CPU graphs.\r\nTransparent or Translucent level."},
    {Option::CmdShowTtl, kGraphs, 0, 4, kButton, "CmdShowTtl", "Show Total /Avg", kNoKey, kNone,
     kGraphTip, "Show total CPU usage graph."},
    {Option::HScrl, kGraphs, 1, 0, OptionKind::Slider, "HScrl", "Translucency: 100%", Key::TransLevel, kNone,
     nullptr, nullptr},
    {Option::CboGphCap, kGraphs, 1, 1, kList, "CboGphCap", "Caption Color", Key::GrphCapColur,
     OptionItems::Colours, kGraphTip, "Set caption color."},
    {Option::CboGphVal, kGraphs, 1, 2, kList, "CboGphVal", "Value Color", Key::GrphValColr, OptionItems::Colours,
     kGraphTip, "Set plot line color."},

    {Option::ChkStart, kStart, 0, 0, kCheck, "ChkStart", "Start with Windows", kNoKey, kNone,
     kStartTip, "Load this program when Windows starts."},
    {Option::ChkMini, kStart, 0, 1, kCheck, "ChkMini", "Minimize to tray on start", Key::MiniMe, kNone,
     kStartTip, "On startup - Minimize to tray."},
    {Option::ChkAuto, kStart, 0, 2, kCheck, "ChkAuto", "Enable Auto Set on start", Key::AutoSet, kNone,
     kStartTip, "On startup enable Auto Set to automatically set CPU\r\naffinity and priority to my favorites."},
    {Option::ChkShowTtl, kStart, 0, 3, kCheck, "ChkShowTtl", "Show Total/Avg CPU Usage", Key::TtlOnStart, kNone,
     kStartTip, "On startup show Total/Average CPU usage graph."},
    {Option::ChkShadow, kStart, 0, 4, kCheck, "ChkShadow", "Show Shadows", Key::Shadow, kNone,
     kStartTip, "Show shadows behind windows.\r\nMay make GUI slow on some systems when enabled."},
    {Option::CboFav, kStart, 1, 0, kList, "CboFav", "Load Profile on start", Key::FavName, OptionItems::Profiles,
     kStartTip, "Select which favorite profile to load on start up."},
    {Option::ChkStartJr, kStart, 1, 2, kCheck, "ChkStartJr", "Start Jr. with Windows", kNoKey, kNone,
     kStartTip, "Load Kestrum Jr. when Windows starts."},
    {Option::CboFavJr, kStart, 1, 3, kList, "CboFavJr", "Jr profile", Key::FavNameJr, OptionItems::Profiles,
     kStartTip, "Kestrum Jr's profile to use on start up."},
    {Option::CboEnforceJr, kStart, 1, 4, kList, "CboEnforceJr", "Jr. EnForce Interval", Key::JrEnforceInterval,
     OptionItems::JrIntervals, kStartTip, "Set Kestrum Jr's Enforce option on start up."},

    {Option::CmdHelp, kBelow, -1, -1, kButton, "CmdHelp", "View Help", kNoKey, kNone,
     "View Help", "Open Local Help File."},
    {Option::CmdExit, kBelow, -1, -1, kButton, "CmdExit", "Close", kNoKey, kNone,
     "Kestrum Options", "Close This Option Window."},
};
// clang-format on

static_assert(std::size(kOptions) == static_cast<std::size_t>(Option::Count));

constexpr bool InOrder() {
    for (std::size_t i = 0; i < std::size(kOptions); ++i) {
        if (static_cast<std::size_t>(kOptions[i].option) != i) return false;
    }
    return true;
}
static_assert(InOrder());

}  // namespace

std::span<const OptionInfo> OptionTable() {
    return kOptions;
}

const OptionInfo& InfoOf(Option option) {
    return kOptions[static_cast<std::size_t>(option)];
}

const char* CaptionOf(OptionPage page) {
    switch (page) {
        case OptionPage::Misc:
            return "Misc";
        case OptionPage::CpuGraphs:
            return "CPU Graphs";
        case OptionPage::StartUp:
            return "Start Up";
        case OptionPage::Below:
            break;
    }
    return "";
}

}  // namespace settings
