#include "app/Tips.h"

#include <utility>

namespace app {

void ExplainButtons(controls::ToolBar& toolBar, std::span<const ToolTip> texts, controls::BalloonTips& tips) {
    toolBar.Hover = [&toolBar, texts, &tips](int index) {
        // All buttons are one window, for which a tip once made would stay.
        tips.Remove();
        if (index < 0 || index >= static_cast<int>(texts.size())) return;
        const ToolTip& tip = texts[static_cast<std::size_t>(index)];
        tips.Show(std::string(tip.text), toolBar, std::string(tip.title), false);
    };
}

void ExplainRows(controls::UcList1& list, std::function<process::TipText(int row)> read,
                 controls::BalloonTips& tips) {
    list.MouseTip = [&list, read = std::move(read), &tips](int row) {
        tips.Remove();
        if (!tips.Enabled() || row < 0 || row >= list.ListCount()) return;
        const process::TipText tip = read(row);
        if (!tip.text.empty()) tips.Show(tip.text, list, tip.title, false);
    };
}

}  // namespace app
