#include "controls/BalloonTips.h"

#include <utility>

namespace controls {

namespace {
constexpr int kAutoPopMilliseconds = 7000;
constexpr int kInitialMilliseconds = 800;
}  // namespace

void BalloonTips::SetEnabled(bool enabled) {
    // A tip watches its target by itself: one left behind would go on popping up.
    if (std::exchange(enabled_, enabled) && !enabled) Remove();
}

void BalloonTips::Show(const std::string& text, const platform::Window& target, const std::string& title,
                       bool force) {
    if ((!force && !enabled_) || !target.exists() || ShownFor(target) || dismissed_ == target.native()) return;
    Remove();
    target_ = target.native();
    created_ = true;
    Make(text, target, title);
}

void BalloonTips::Make(const std::string& text, const platform::Window& target, const std::string& title) {
    platform::TooltipHandle tooltip = platform::createTooltip();
    if (!tooltip) return;
    // Before there is something to explain: a pointer that rests there already begins the wait.
    if (!title.empty()) platform::setTooltipTitle(tooltip, title);
    platform::setTooltipDelays(tooltip, kAutoPopMilliseconds, kInitialMilliseconds);
    if (!platform::addTool(tooltip, target, text)) return;
    tooltip_ = std::move(tooltip);
}

void BalloonTips::Remove() {
    tooltip_.reset();
    created_ = false;
    dismissed_ = 0;
}

// A pointer that rests there is reported again after the click.
void BalloonTips::Dismiss(const platform::Window& target) {
    Remove();
    if (target.underPointer()) dismissed_ = target.native();
}

bool BalloonTips::ShownFor(const platform::Window& target) const {
    return created_ && target_ == target.native();
}

}  // namespace controls
