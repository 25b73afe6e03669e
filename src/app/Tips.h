// Which balloon tip explains what the pointer is over in the main window.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>

#include "app/MainToolBars.h"
#include "controls/BalloonTips.h"
#include "controls/ToolBar.h"
#include "controls/UcList1.h"
#include "process/SystemInfo.h"

namespace app {

// Explains each button of the strip; the tip goes when the pointer leaves its button.
void ExplainButtons(controls::ToolBar& toolBar, std::span<const ToolTip> texts, controls::BalloonTips& tips);

// Explains a control that tells of the pointer over it.
template <class Control>
void ExplainControl(Control& control, controls::BalloonTips& tips, std::string title, std::string text) {
    control.Hover = [&control, &tips, title = std::move(title), text = std::move(text)] {
        tips.Show(text, control, title, false);
    };
    control.Left = [&tips] { tips.Remove(); };
}

// Explains the row under the pointer by what `read` gives for it (display row); an empty text explains nothing.
void ExplainRows(controls::UcList1& list, std::function<process::TipText(int row)> read,
                 controls::BalloonTips& tips);

}  // namespace app
