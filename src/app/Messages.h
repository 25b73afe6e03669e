// What the program says to its user and asks of them, in its own message box.
#pragma once

#include <string>

#include "app/RefreshCycle.h"
#include "controls/FrmMsgBox.h"
#include "platform/Window.h"
#include "settings/DisplayOptions.h"

namespace app {

inline constexpr char kProgramTitle[] = "Kestrum 2";  // of balloons

// The refresh waits while a message is open.
class Messages {
public:
    // All outlive this object; `window` is the one the boxes stand over.
    Messages(platform::Window& window, BusyFlag& busy, controls::MsgBoxes& msgBoxes,
             const settings::DisplayOptions& options)
        : window_(window), busy_(busy), msgBoxes_(msgBoxes), options_(options) {}

    // A note with an OK button.
    void Tell(const std::string& text, const std::string& title = controls::kInfoTitle);
    // A question; true for Yes.
    bool Ask(const std::string& question, const std::string& title = controls::kInfoTitle);
    // Likewise, where Yes ends or deletes something: No has the focus.
    bool AskBeforeLoss(const std::string& question);

private:
    platform::Window& window_;
    BusyFlag& busy_;
    controls::MsgBoxes& msgBoxes_;
    const settings::DisplayOptions& options_;
};

}  // namespace app
