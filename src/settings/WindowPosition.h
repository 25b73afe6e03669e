// Where a window stood, kept from one run to the next.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Geometry.h"
#include "platform/Window.h"
#include "settings/Settings.h"

namespace settings {

// Stores the restored (neither minimised nor maximised) rectangle of a window under `name` + "_Pos".
void SaveWindowPosition(const platform::Window& window, const std::string& name, Settings& settings);

// Moves the window where it stood. False, with nothing changed, when no usable rectangle is stored. A window
// that would stand where the user cannot reach it is brought to the nearest screen.
bool RestoreWindowPosition(platform::Window& window, const std::string& name, const Settings& settings);

// "left,top,width,height" in pixels; further fields are ignored. nullopt when a field is missing or the
// rectangle is empty.
std::optional<platform::Rect> ParseWindowPosition(std::string_view text);
std::string FormatWindowPosition(const platform::Rect& bounds);

// The rectangle as it is when the user can reach its caption, else one within the nearest work area.
platform::Rect ReachableBounds(const platform::Rect& bounds);

}  // namespace settings
