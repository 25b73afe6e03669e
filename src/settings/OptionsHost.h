// What the options dialog asks of the program around it.
#pragma once

#include <string>

#include "settings/SettingKeys.h"

namespace settings {

// Each call comes after the key behind it has been written, but for the level of the slider. A call may destroy the
// dialog's windows, not its object.
class OptionsHost {
public:
    // The user changed a key that has no call of its own below: what of it counts at once is read again.
    virtual void OptionChanged(Key key) = 0;
    // Type or a colour of the tray icon.
    virtual void TrayOptionsChanged() = 0;
    virtual void SetHotkeys(bool on) = 0;

    // The open CPU graphs.
    virtual void SetGraphsTransparent() = 0;
    virtual void SetGraphsTranslucent(int percent) = 0;  // 0..100
    virtual void SetEdgeDetection(bool on) = 0;
    virtual void ReloadGraphOptions() = 0;  // whether they stay on top, and whether they have tips
    virtual void RecolorGraphs() = 0;
    virtual void ShowTotalGraph() = 0;

    virtual void ViewHelp() = 0;
    virtual void ResetColumns() = 0;  // column widths and splitter, to those of a first start
    virtual void Restart() = 0;
    virtual void RestoreDefaults() = 0;  // deletes every setting and ends the program

    // How a profile is shown, 1..5: its name, marked when it has no file.
    virtual std::string ProfileCaption(int number) const = 0;
    // What Kestrum Jr. is told at its start: profile 1..5, and the seconds of Enforce, 0 for without.
    virtual std::string JrTask(int profile, int enforceSeconds) const = 0;

protected:
    ~OptionsHost() = default;
};

}  // namespace settings
