#include "settings/WindowPosition.h"

#include <algorithm>
#include <vector>

#include "text/Numbers.h"
#include "text/Split.h"

namespace settings {

namespace {

constexpr int kFarthest = 32767;    // no window lies or reaches farther
constexpr int kCaptionHeight = 24;  // pixels by which a window can be caught and moved, roughly

bool IsAbsurd(const platform::Rect& bounds) {
    return bounds.width() >= kFarthest || bounds.height() >= kFarthest;
}

}  // namespace

void SaveWindowPosition(const platform::Window& window, const std::string& name, Settings& settings) {
    settings.WritePosition(name, FormatWindowPosition(window.normalBounds()));
}

bool RestoreWindowPosition(platform::Window& window, const std::string& name, const Settings& settings) {
    const auto bounds = ParseWindowPosition(settings.Position(name));
    if (!bounds) return false;
    // No window ever was as large as that.
    window.setBounds(IsAbsurd(*bounds) ? ReachableBounds(*bounds) : *bounds);
    return true;
}

std::optional<platform::Rect> ParseWindowPosition(std::string_view text) {
    const std::vector<std::string_view> fields = text::Split(text, ',');
    if (fields.size() < 4) return std::nullopt;
    const int width = std::min(text::ToInt32(fields[2]), kFarthest);
    const int height = std::min(text::ToInt32(fields[3]), kFarthest);
    // Nobody leaves a window without a width or height: the text is damaged.
    if (width < 1 || height < 1) return std::nullopt;
    const platform::Point at{std::clamp(text::ToInt32(fields[0]), -kFarthest, kFarthest),
                             std::clamp(text::ToInt32(fields[1]), -kFarthest, kFarthest)};
    return platform::Rect::fromSize(at, {width, height});
}

std::string FormatWindowPosition(const platform::Rect& bounds) {
    return text::Decimal(bounds.left) + ',' + text::Decimal(bounds.top) + ',' + text::Decimal(bounds.width()) +
           ',' + text::Decimal(bounds.height());
}

platform::Rect ReachableBounds(const platform::Rect& bounds) {
    // What was stored holds as long as the caption can be caught, even where the rest leaves the screen: the user
    // may have put it there. A screen that is gone since must not take the window with it.
    const platform::Rect caption{bounds.left, bounds.top, bounds.right,
                                 std::min(bounds.bottom, bounds.top + kCaptionHeight)};
    if (!IsAbsurd(bounds) && platform::onAnyScreen(caption)) return bounds;

    const platform::Rect area = platform::nearestWorkArea(bounds);
    const platform::Size size{std::min(bounds.width(), area.width()), std::min(bounds.height(), area.height())};
    return platform::Rect::fromSize({std::clamp(bounds.left, area.left, area.right - size.width),
                                     std::clamp(bounds.top, area.top, area.bottom - size.height)},
                                    size);
}

void BringWithinReach(platform::Window& window) {
    if (window.state() != platform::WindowState::Normal) return;
    const platform::Rect now = window.bounds();
    const platform::Rect reachable = ReachableBounds(now);
    if (reachable != now) window.setBounds(reachable);
}

}  // namespace settings
