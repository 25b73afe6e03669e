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

// Moves the window where it stood, even out of the user's reach: the screen may be back before they look for it, as
// with a remote session. False, with nothing changed, when no usable rectangle is stored.
bool RestoreWindowPosition(platform::Window& window, const std::string& name, const Settings& settings);

// "left,top,width,height" in pixels; further fields are ignored. nullopt when a field is missing or the
// rectangle is empty.
std::optional<platform::Rect> ParseWindowPosition(std::string_view text);
std::string FormatWindowPosition(const platform::Rect& bounds);

// The rectangle as it is when the user can reach its caption, else one within the nearest work area.
platform::Rect ReachableBounds(const platform::Rect& bounds);
// The user asks for the window: moves one out of reach there, unless it is minimised or maximised.
void BringWithinReach(platform::Window& window);

}  // namespace settings
