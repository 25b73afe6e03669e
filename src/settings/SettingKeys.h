// Every key of the settings store, with the form in which it is stored and its default.
#pragma once

namespace settings {

// The address of the program's settings in the per-user store.
inline constexpr char kSection[] = "Morvell\\Kestrum2";

// Values of Key::TransLevel: more is all of a graph, and with less nobody would find it again.
inline constexpr int kLeastTransLevel = 20;
inline constexpr int kMostTransLevel = 100;

enum class Key {
    Shadow,
    FavName,
    FavNameJr,
    JrEnforceInterval,
    FavColSort,
    FavSortDir,
    CpuToolTips,
    EdgeDetect,
    SeeThruCPU,
    TransLevel,
    TrayNum,
    TrayForeColor,
    TrayBrdrIdx,
    ShowTips,
    LaunchFav,
    TtlOnStart,
    MsgBeep,
    ShowExt,
    ShowFileTips,
    GrphCapColur,
    GrphValColr,
    ChkCPUGraphTop,
    ReEnforce,
    EnforceInterval,
    AutoSet,
    MiniMe,
    Hotkey,
    FileColWide,
    FavColWide,
    Splitter,
    FileColWideMax,
    FavColWideMax,
    SplitterMax,
    Count,  // not a key
};

enum class KeyType {
    Number,  // the leading number of the text, 0 without one
    Int,     // the whole text must be a number
    Bool,    // "True" or "False"
    Text,
};

struct KeyInfo {
    Key key;
    const char* name;
    KeyType type;
    const char* fallback;          // text read for a missing value, unless...
    Key fallbackKey = Key::Count;  // ...it is the value of this key
};

const KeyInfo& InfoOf(Key key);

}  // namespace settings
