// What the user wants of the CPU graphs. The options dialog changes it while graphs are open.
#pragma once

#include <cstdint>

#include "platform/Canvas.h"
#include "settings/Settings.h"

namespace graphs {

struct GraphOptions {
    bool stayOnTop = true;      // of a new graph
    bool edgeDetection = true;  // of a new graph: it can't be left partly outside the work area
    bool tips = true;           // balloons that tell of the process
    bool seeThrough = false;    // the ground is a hole, unless the pointer is there; else translucent
    int level = 85;             // how solid a translucent graph is, percent
    bool shadow = false;        // behind each, as it was set when the program started
    platform::Color captionColor = 0;
    platform::Color plotColor = 0;
};

// Damaged values read as Settings reads them; a colour index outside the table gives black.
GraphOptions LoadGraphOptions(const settings::Settings& settings);

// What Window::setTranslucency takes for a level, whatever the settings hold.
std::uint8_t AlphaOfLevel(int level);

}  // namespace graphs
