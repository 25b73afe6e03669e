// Where everything stands in the main window: pure arithmetic on its client size.
#pragma once

#include "platform/Geometry.h"

namespace app {

// What the arithmetic needs to know of the parts. Pixels.
struct MainParts {
    int toolBar1Width = 0;
    int toolBar1Height = 32;
    int toolBar2Width = 160;
    int toolBar2Height = 24;
    int affinityWidth = 0;  // all "CPU n" boxes together
    int priorityWidth = 0;  // the priority chooser
    int invertWidth = 0;    // the buttons behind it
    int refreshWidth = 0;
    int statusWidth = 0;  // the status strip with its longest usual text
    int gaugeWidth = 0;   // one gauge
};

struct MainLayout {
    platform::Rect toolBar1;
    platform::Rect toolBar2;
    platform::Rect affinity;
    platform::Rect priority;
    platform::Rect invert;
    platform::Rect refresh;
    platform::Rect processList;
    platform::Rect splitter;
    platform::Rect favoritesList;
    platform::Rect status;
    platform::Rect memoryGauge;
    platform::Rect cpuGauge;
};

inline constexpr int kSplitterWidth = 6;
inline constexpr int kLeastListWidth = 120;
inline constexpr int kMargin = 4;

// The smallest size the user can drag the window to (frame included): nothing overlaps down to it.
platform::Size SmallestMainWindow(const MainParts& parts);

// The splitter position actually used: the wanted one (right edge of the process list), kept so that neither
// list becomes narrower than kLeastListWidth. The wanted one is kept by the caller, so that a window that was
// made small and large again finds its splitter where it was.
int EffectiveSplitter(int clientWidth, int wanted);

MainLayout LayOutMain(platform::Size client, int splitter, const MainParts& parts);

}  // namespace app
