#include "app/OptionsCommands.h"

#include "favorites/JrHandOff.h"
#include "favorites/Profiles.h"

namespace app {

void OptionsCommands::ShowAgain() {
    if (dialog_.exists()) dialog_.show(platform::ShowCommand::Show);
}

// Every change has been written already: the settings tell.
void OptionsCommands::OptionChanged(settings::Key key) {
    if (key == settings::Key::EnforceInterval) {
        parts_.enforce.SetIntervalIndex(parts_.settings.Number(key));
        return;
    }
    parts_.options = settings::LoadDisplayOptions(parts_.settings);
    parts_.tips.SetEnabled(parts_.options.showTips);
}

void OptionsCommands::TrayOptionsChanged() {
    parts_.options = settings::LoadDisplayOptions(parts_.settings);
    parts_.tray.Show(parts_.options);
    if (tray::MeterTypeFromSetting(parts_.options.trayType) == tray::MeterType::Disabled) parts_.tray.TrayIconOff();
}

void OptionsCommands::SetHotkeys(bool on) {
    if (on) {
        parts_.hotkeys.Start();
    } else {
        parts_.hotkeys.Stop();
    }
}

void OptionsCommands::SetGraphsTransparent() {
    parts_.graphOptions.seeThrough = true;
    ApplySeeThrough();
}

void OptionsCommands::SetGraphsTranslucent(int percent) {
    parts_.graphOptions.seeThrough = false;
    parts_.graphOptions.level = percent;
    ApplySeeThrough();
}

void OptionsCommands::ApplySeeThrough() {
    parts_.graphs.ApplySeeThrough();
    if (parts_.totalGraph.exists()) parts_.totalGraph.ApplySeeThrough();
}

void OptionsCommands::SetEdgeDetection(bool on) {
    parts_.graphOptions.edgeDetection = on;
    parts_.graphs.SetEdgeDetection(on);
}

// Not the level, which is written when the dialog closes.
void OptionsCommands::ReloadGraphOptions() {
    const graphs::GraphOptions before = parts_.graphOptions;
    parts_.graphOptions = graphs::LoadGraphOptions(parts_.settings);
    parts_.graphOptions.level = before.level;
    parts_.graphOptions.shadow = before.shadow;  // which comes with a restart
}

void OptionsCommands::RecolorGraphs() {
    ReloadGraphOptions();
    parts_.graphs.ApplyColors();
    if (parts_.totalGraph.exists()) parts_.totalGraph.ApplyColors();
}

std::string OptionsCommands::ProfileCaption(int number) const {
    return favorites::ProfileCaption(parts_.folder, number);
}

std::string OptionsCommands::JrTask(int profile, int enforceSeconds) const {
    return favorites::FormatJrTask({profile, enforceSeconds});
}

}  // namespace app
