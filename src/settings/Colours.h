// The colours that the user can choose from, stored by their index.
#pragma once

#include "platform/Canvas.h"

namespace settings {

inline constexpr int kColourCount = 8;

// The colour behind a stored index 0..7; black for any other index.
platform::Color ColourFromIndex(int index);
// The name under which lists show the colour; nullptr outside 0..7.
const char* ColourName(int index);

}  // namespace settings
