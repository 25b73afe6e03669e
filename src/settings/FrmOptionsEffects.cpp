// What the options dialog reads, writes, and has take effect.
#include <utility>

#include "platform/Files.h"
#include "settings/FrmOptions.h"
#include "settings/StartEntries.h"
#include "text/Numbers.h"

namespace settings {

namespace {

std::string EntryText(OptionItems items, int index, const OptionsHost& host) {
    return items == OptionItems::Profiles ? host.ProfileCaption(index + 1) : ItemText(items, index);
}

}  // namespace

// ---- reading ----

void FrmOptions::Load() {
    for (const OptionInfo& info : OptionTable()) {
        Fill(info);
        Read(info);
    }
    CheckAt(Option::ChkStart).SetValue(IsStartEntry(OwnStartEntry()));
    CheckAt(Option::ChkStartJr).SetValue(IsStartEntry(kJrStartEntry));
    ShowLevel();
    levelPending_ = true;
}

void FrmOptions::Fill(const OptionInfo& info) {
    if (info.kind != OptionKind::List) return;
    List& list = ListAt(info.option);
    list.Clear();
    for (int i = 0; i < ItemCount(info.items); ++i) list.AddItem(EntryText(info.items, i, parts_.host));
}

void FrmOptions::Read(const OptionInfo& info) {
    if (info.key == Key::Count) return;
    const bool truth = InfoOf(info.key).type == KeyType::Bool;
    const int stored = truth ? parts_.settings.Bool(info.key) : parts_.settings.Number(info.key);
    if (info.kind == OptionKind::Check) CheckAt(info.option).SetValue(stored == 1);
    if (info.kind == OptionKind::List) ListAt(info.option).SelectItem(ItemForStored(info.items, stored));
    if (info.kind == OptionKind::Slider) LevelSlider().SetValue(stored);
}

void FrmOptions::RefillProfiles() {
    if (!exists()) return;
    for (const OptionInfo& info : OptionTable()) {
        if (info.items == OptionItems::Profiles) Fill(info);
    }
    Read(InfoOf(Option::CboFav));
    // Names may be longer than before.
    setBounds(platform::Rect::fromSize(bounds().origin(), LayOut()));
}

// The slider counts while the graphs are not transparent.
void FrmOptions::ShowLevel() {
    const bool transparent = CheckAt(Option::ChkSeeThru).Value();
    LevelSlider().SetEnabled(!transparent);
    const std::string level = transparent ? "Off" : text::Decimal(LevelSlider().Value()) + "%";
    controls::Label& label = At(Option::HScrl).label;
    label.SetCaption("Translucency: " + level);
    label.SetEnabled(!transparent);
}

// ---- what the user changes ----

// The host, which every change ends with, may destroy the dialog.
void FrmOptions::Changed(Option option) {
    parts_.tips.Dismiss(ControlOf(option));
    switch (option) {
        case Option::ChkStart:
            return StartChanged();
        case Option::ChkStartJr:
        case Option::CboFavJr:
        case Option::CboEnforceJr:
            return StartJrChanged();
        case Option::HScrl:
            return LevelChanged();
        default:
            break;
    }
    Write(InfoOf(option));
    TakeEffect(InfoOf(option));
}

void FrmOptions::Write(const OptionInfo& info) {
    if (info.key == Key::Count) return;
    if (info.kind == OptionKind::List) {
        parts_.settings.WriteNumber(info.key, ListAt(info.option).GetIndex());
        return;
    }
    const bool value = CheckAt(info.option).Value();
    if (InfoOf(info.key).type == KeyType::Bool) {
        parts_.settings.WriteBool(info.key, value);
    } else {
        parts_.settings.WriteNumber(info.key, value ? 1 : 0);
    }
}

void FrmOptions::TakeEffect(const OptionInfo& info) {
    OptionsHost& host = parts_.host;
    switch (info.option) {
        case Option::ChkSeeThru:
            return SeeThroughChanged();
        case Option::ChkEdgeDetect:
            return host.SetEdgeDetection(CheckAt(info.option).Value());
        case Option::ChkCPUGraphTop:
        case Option::ChkCpuTips:
            return host.ReloadGraphOptions();
        case Option::CboGphCap:
        case Option::CboGphVal:
            return host.RecolorGraphs();
        case Option::CmdShowTtl:
            return host.ShowTotalGraph();
        case Option::ChkShadow:
            return ShadowChanged();
        case Option::ChkHotKey:
            return host.SetHotkeys(CheckAt(info.option).Value());
        case Option::CboTrayType:
        case Option::CboTrayColr:
        case Option::CboTrayBrdr:
            return host.TrayOptionsChanged();
        case Option::CmdHdrW:
            return ResetColumns();
        case Option::CmdClean:
            return RestoreAll();
        case Option::CmdHelp:
            return host.ViewHelp();
        case Option::CmdExit:
            return Close();
        default:
            return host.OptionChanged(info.key);
    }
}

void FrmOptions::SeeThroughChanged() {
    ShowLevel();
    if (CheckAt(Option::ChkSeeThru).Value()) {
        parts_.host.SetGraphsTransparent();
    } else {
        parts_.host.SetGraphsTranslucent(LevelSlider().Value());
    }
}

// Written when the dialog closes: while the thumb is dragged there is a new level with every pixel.
void FrmOptions::LevelChanged() {
    levelPending_ = true;
    ShowLevel();
    parts_.host.SetGraphsTranslucent(LevelSlider().Value());
}

void FrmOptions::SaveLevel() {
    if (!std::exchange(levelPending_, false)) return;
    parts_.settings.WriteNumber(Key::TransLevel, LevelSlider().Value());
}

void FrmOptions::ShadowChanged() {
    if (!Ask("Kestrum must be restarted to see effect. Restart Kestrum 2 now?", controls::Preset::Yes)) return;
    SaveLevel();  // before the next copy reads it
    parts_.host.Restart();
}

void FrmOptions::ResetColumns() {
    // Nothing is lost by it, so that, unlike with the other questions, only a No keeps it from being done.
    const int answer = parts_.msgBoxes.Show("Reset column widths and splitter bar to defaults?",
                                            controls::MsgStyle::Question, controls::kInfoTitle, *this, Sounds());
    if (answer == controls::kMsgNo) return;
    parts_.host.ResetColumns();
}

void FrmOptions::RestoreAll() {
    if (!Ask("Delete all saved interface settings and exit?", controls::Preset::No)) return;
    levelPending_ = false;  // nothing is to be left behind
    parts_.host.RestoreDefaults();
}

// ---- starting with Windows: the program or Kestrum Jr., not both ----

void FrmOptions::StartChanged() {
    const bool start = CheckAt(Option::ChkStart).Value();
    if (start) {
        SetStartEntry(kJrStartEntry, parts_.folder, false, {});
        CheckAt(Option::ChkStartJr).SetValue(false);
    }
    SetStartEntry(OwnStartEntry(), parts_.folder, start, {});
}

void FrmOptions::StartJrChanged() {
    if (!platform::fileExists(StartProgram(parts_.folder, kJrStartEntry))) {
        CheckAt(Option::ChkStartJr).SetValue(false);
        SetStartEntry(kJrStartEntry, parts_.folder, false, {});
        // What was chosen is not kept.
        for (const Option list : {Option::CboFavJr, Option::CboEnforceJr}) Read(InfoOf(list));
        parts_.msgBoxes.Show(std::string("Missing File: ") + kJrStartEntry + ".exe",
                             controls::MsgStyle::Information, "File Missing", *this, Sounds());
        return;
    }
    const int profile = ListAt(Option::CboFavJr).GetIndex();
    const int interval = ListAt(Option::CboEnforceJr).GetIndex();
    const bool start = CheckAt(Option::ChkStartJr).Value();
    if (start) {
        CheckAt(Option::ChkStart).SetValue(false);
        SetStartEntry(OwnStartEntry(), parts_.folder, false, {});
    }
    const std::string task = parts_.host.JrTask(profile + 1, interval * kIntervalStep);
    SetStartEntry(kJrStartEntry, parts_.folder, start, " " + task);
    parts_.settings.WriteNumber(Key::FavNameJr, profile);
    parts_.settings.WriteNumber(Key::JrEnforceInterval, interval);
}

bool FrmOptions::Ask(const std::string& question, controls::Preset preset) {
    return parts_.msgBoxes.Confirm(question, controls::kInfoTitle, *this, Sounds(), preset);
}

}  // namespace settings
