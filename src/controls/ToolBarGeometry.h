// Where the buttons of a ToolBar are: the one source for painting, hit test and preferred size.
#pragma once

#include <vector>

#include "platform/Geometry.h"

namespace controls {

// What decides the layout of a strip. Pixels.
struct ToolBarLayout {
    std::vector<bool> separators;  // one per button: a gap follows the button
    int leftIndent = 3;            // before the first button, in the direction of the strip
    bool horizontal = true;
    bool size24 = true;

    int Count() const { return static_cast<int>(separators.size()); }
    int ImageSize() const { return size24 ? 24 : 16; }
    // Side of a button: the image, its edge, and room for the step of one pixel it makes when pressed.
    int Pitch() const { return ImageSize() + 6; }

    // Rectangle of button `index`; empty when there is no such button.
    platform::Rect Button(int index) const;
    // Rectangle of the etched line after button `index`; empty when it has no separator.
    platform::Rect Separator(int index) const;
    // The button that holds the point, or -1 (gaps and the indent belong to no button).
    int HitTest(platform::Point at) const;
    // Size that shows every button.
    platform::Size Preferred() const;
    friend bool operator==(const ToolBarLayout&, const ToolBarLayout&) = default;

private:
    int Offset(int index) const;  // where button `index` begins, along the strip
    platform::Rect Place(int offset, int length) const;
};

}  // namespace controls
