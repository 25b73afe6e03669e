// Where a new graph goes: where the user had the graph of this slot remembered, or into a tidy grid.
#pragma once

#include <optional>
#include <vector>

#include "platform/Geometry.h"
#include "settings/Settings.h"

namespace graphs {

// The whole window: a plot of 100 x 100 pixels, one column and two rows more.
inline constexpr platform::Size kGraphSize{101, 102};

// The remembered place of a slot, on whatever screen; nullopt when there is none.
std::optional<platform::Rect> RememberedPlace(int slot, const settings::Settings& settings);

// A place in the work area of the first screen, from its lower right corner upwards, column by column, that
// neither meets `taken` nor what is remembered of any slot. Where all are taken, one after the other by slot.
platform::Rect FreePlace(int slot, const settings::Settings& settings, std::vector<platform::Rect> taken);

}  // namespace graphs
