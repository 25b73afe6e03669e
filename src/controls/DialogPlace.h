// Where a dialog appears.
#pragma once

#include <string>

#include "platform/Window.h"

namespace controls {

// A dialog of `owner` with the program's icon, of a size that any frame fits around: it gets its own once its
// controls are there.
platform::WindowSpec DialogSpec(const std::string& title, platform::Window& owner);
// What a dialog of `owner` stands over: the owner, or, when that is minimised or hidden in the notification area,
// the work area of the screen it was on.
platform::Rect AreaOfOwner(const platform::Window& owner);
// A dialog of `size` in the middle of `area`, moved so that it lies within the work area of the nearest screen; the
// upper left corner wins when it is too large.
platform::Rect PlacedOver(const platform::Rect& area, platform::Size size);
// The frame that a dialog has around its client area: whole width and height less those of the client area.
// `dialog` exists and is not smaller than its frame.
platform::Size FrameOf(const platform::Window& dialog);

}  // namespace controls
