#include "settings/SettingKeys.h"

#include <cstddef>
#include <iterator>

namespace settings {

namespace {

constexpr KeyInfo kKeys[] = {
    {Key::Shadow, "Shadow", KeyType::Number, "0"},
    {Key::FavName, "FavName", KeyType::Int, "0"},
    {Key::FavNameJr, "FavNameJr", KeyType::Number, "0"},
    {Key::JrEnforceInterval, "JrEnforceInterval", KeyType::Number, "0"},
    {Key::FavColSort, "FavColSort", KeyType::Number, "0"},
    {Key::FavSortDir, "FavSortDir", KeyType::Bool, "True"},
    {Key::CpuToolTips, "CpuToolTips", KeyType::Int, "1"},
    {Key::EdgeDetect, "EdgeDetect", KeyType::Int, "1"},
    {Key::SeeThruCPU, "SeeThruCPU", KeyType::Bool, "False"},
    {Key::TransLevel, "TransLevel", KeyType::Number, "85"},
    {Key::TrayNum, "TrayNum", KeyType::Number, "1"},
    {Key::TrayForeColor, "TrayForeColor", KeyType::Number, "5"},
    {Key::TrayBrdrIdx, "TrayBrdrIdx", KeyType::Number, "0"},
    {Key::ShowTips, "ShowTips", KeyType::Number, "1"},
    {Key::LaunchFav, "LaunchFav", KeyType::Number, "0"},
    {Key::TtlOnStart, "TtlOnStart", KeyType::Number, "0"},
    {Key::MsgBeep, "MsgBeep", KeyType::Number, "1"},
    {Key::ShowExt, "ShowExt", KeyType::Number, "1"},
    {Key::ShowFileTips, "ShowFileTips", KeyType::Number, "1"},
    {Key::GrphCapColur, "GrphCapColur", KeyType::Number, "7"},
    {Key::GrphValColr, "GrphValColr", KeyType::Number, "3"},
    {Key::ChkCPUGraphTop, "ChkCPUGraphTop", KeyType::Number, "1"},
    {Key::ReEnforce, "ReEnforce", KeyType::Number, "0"},
    {Key::EnforceInterval, "EnforceInterval", KeyType::Number, "5"},
    {Key::AutoSet, "AutoSet", KeyType::Number, "0"},
    {Key::MiniMe, "MiniMe", KeyType::Number, "0"},
    {Key::Hotkey, "Hotkey", KeyType::Number, "0"},
    {Key::FileColWide, "FileColWide", KeyType::Text, ""},
    {Key::FavColWide, "FavColWide", KeyType::Text, ""},
    {Key::Splitter, "Splitter", KeyType::Number, "474"},
    {Key::FileColWideMax, "FileColWideMax", KeyType::Text, "", Key::FileColWide},
    {Key::FavColWideMax, "FavColWideMax", KeyType::Text, "", Key::FavColWide},
    {Key::SplitterMax, "SplitterMax", KeyType::Text, "", Key::Splitter},
};
static_assert(std::size(kKeys) == static_cast<std::size_t>(Key::Count));

constexpr bool InOrder() {
    for (std::size_t i = 0; i < std::size(kKeys); ++i) {
        if (static_cast<std::size_t>(kKeys[i].key) != i) return false;
    }
    return true;
}
static_assert(InOrder());

}  // namespace

const KeyInfo& InfoOf(Key key) {
    return kKeys[static_cast<std::size_t>(key)];
}

}  // namespace settings
