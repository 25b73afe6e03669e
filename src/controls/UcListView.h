// What a list shows at one moment, handed to painting and to the comparison with what is on the screen already.
#pragma once

#include <functional>

#include "controls/UcListGeometry.h"
#include "controls/UcListModel.h"
#include "platform/Canvas.h"

namespace controls {

// Draws the 16-pixel picture of a display row with its upper left corner at the point.
using UcListDrawIcon = std::function<void(platform::Canvas&, platform::Point, int displayRow)>;

// How selected rows look. Keys act on the selection of the list with the focus alone, which is Solid.
enum class UcListSelection {
    Solid,   // on the highlight colour
    Pale,    // on a mix of it with the ground
    Framed,  // on the ground, with a frame: where the user wants few colours, a mix is none of them
};

// Colours as they are drawn, and the passing states of keyboard and mouse.
struct UcListLook {
    platform::Color back = 0, text = 0, highlight = 0, highlightText = 0;
    platform::Color headerBack = 0, headerText = 0, bar = 0;
    bool desktopText = false, desktopHeaderText = false;  // black text means the desktop's text colour
    int headerDrawStyle = 0, scrollbarDrawStyle = 0;
    bool icons = false;
    bool focused = false;
    UcListSelection selection = UcListSelection::Solid;
    int focusRow = -1;       // display row with the focus rectangle
    int pressedColumn = -1;  // header cell held down
    int pressedZone = 0;     // scroll bar part held down, as a UcListZone
};

struct UcListView {
    const UcListModel& model;
    const UcListLayout& layout;
    const UcListLook& look;
};

}  // namespace controls
