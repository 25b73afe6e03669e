// The options dialog, and what its changes do to the running program.
#pragma once

#include <functional>
#include <string>

#include "app/Hotkeys.h"
#include "app/TrayCommands.h"
#include "controls/BalloonTips.h"
#include "controls/FrmMsgBox.h"
#include "favorites/EnforceState.h"
#include "graphs/CpuGraphs.h"
#include "graphs/FrmColorMeter.h"
#include "graphs/GraphOptions.h"
#include "settings/DisplayOptions.h"
#include "settings/FrmOptions.h"
#include "settings/OptionsHost.h"
#include "settings/Settings.h"

namespace app {

class OptionsCommands final : private settings::OptionsHost {
public:
    // The parts of the main window that the options are about; all outlive the commands.
    struct Parts {
        platform::Window& window;
        settings::Settings& settings;
        settings::DisplayOptions& options;
        graphs::GraphOptions& graphOptions;
        controls::MsgBoxes& msgBoxes;
        controls::BalloonTips& tips;
        TrayCommands& tray;
        Hotkeys& hotkeys;
        graphs::CpuGraphs& graphs;
        graphs::FrmColorMeter& totalGraph;
        favorites::EnforceState& enforce;
        std::string folder;  // of the program and its profiles
    };
    // What only the main window can do.
    struct Actions {
        std::function<void()> ViewHelp;
        std::function<void()> ResetColumns;  // to those of a first start
        std::function<void()> Restart;
        std::function<void()> RestoreDefaults;  // forgets every setting and ends the program
    };
    OptionsCommands(const Parts& parts, Actions actions)
        : parts_(parts),
          actions_(std::move(actions)),
          dialog_({parts.settings, *this, parts.msgBoxes, parts.tips, parts.folder}) {}

    // Opens the dialog, or brings it to the front.
    void Show() { dialog_.Show(parts_.window); }
    // The main window, which owns the dialog, has gone out of sight and has taken it along.
    void ShowAgain();
    // It has come back, and may cover the dialog.
    void BringForward() {
        if (dialog_.exists()) dialog_.bringToFront();
    }
    void Close() { dialog_.destroy(); }
    // A profile came into being or went.
    void ProfilesChanged() { dialog_.RefillProfiles(); }

private:
    // OptionsHost
    void OptionChanged(settings::Key key) override;
    void TrayOptionsChanged() override;
    void SetHotkeys(bool on) override;
    void SetGraphsTransparent() override;
    void SetGraphsTranslucent(int percent) override;
    void SetEdgeDetection(bool on) override;
    void ReloadGraphOptions() override;
    void RecolorGraphs() override;
    void ShowTotalGraph() override { parts_.totalGraph.Open(); }
    void ViewHelp() override { actions_.ViewHelp(); }
    void ResetColumns() override { actions_.ResetColumns(); }
    void Restart() override { actions_.Restart(); }
    void RestoreDefaults() override { actions_.RestoreDefaults(); }
    std::string ProfileCaption(int number) const override;
    std::string JrTask(int profile, int enforceSeconds) const override;

    void ApplySeeThrough();

    Parts parts_;
    Actions actions_;
    settings::FrmOptions dialog_;
};

}  // namespace app
