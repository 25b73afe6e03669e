// The persisted properties of a ToolBar, as text values under their documented keys.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/ToolBarGeometry.h"
#include "platform/Canvas.h"

namespace controls {

// Key -> value: integers and colours as decimal text, booleans as "True"/"False".
using PropertyMap = std::map<std::string, std::string>;

constexpr platform::Color kToolBarMask = 16777215;  // white: transparent in a picture just assigned

// One image slot.
struct ToolBarSlot {
    int image = -1;  // which picture of the control's strip it shows; -1 for none. Key "Images" + i
    platform::Color mask = kToolBarMask;  // the picture's transparent colour. Key "Masks" + i
    bool separator = false;               // a separator follows the button. Key "Seperators" + i
    bool checkBox = false;                // each click toggles the button. Key "Checkboxs" + i
};

struct ToolBarProperties {
    // Without a value the strip has the user's button-face colour and follows its changes.
    std::optional<platform::Color> backColor;
    int leftIndent = 3;  // pixels
    bool transparency = false;
    bool horizontal = true;
    bool size24 = true;  // 24-pixel images, else 16-pixel ones
    int currentImage = 0;
    std::vector<ToolBarSlot> slots;  // their number is the key "ImageCount"

    // Takes what the map holds; a key that is missing or makes no sense gives the default.
    static ToolBarProperties Read(const PropertyMap& map);
    // Stores every key ("BackColor" only when the colour was chosen).
    void Write(PropertyMap& map) const;
    // The layout these properties ask for.
    ToolBarLayout Layout() const;
    // `index` brought into 0..number of slots - 1; 0 when there is none.
    int ClampSlot(int index) const;
};

}  // namespace controls
