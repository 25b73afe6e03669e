#include "graphs/GraphOptions.h"

#include <algorithm>

#include "settings/Colours.h"

namespace graphs {

namespace {
constexpr int kSolidAlpha = 255;
}  // namespace

GraphOptions LoadGraphOptions(const settings::Settings& settings) {
    using settings::Key;
    GraphOptions options;
    options.stayOnTop = settings.Number(Key::ChkCPUGraphTop) == 1;
    options.edgeDetection = settings.Number(Key::EdgeDetect) == 1;
    options.tips = settings.Number(Key::CpuToolTips) == 1;
    options.seeThrough = settings.Bool(Key::SeeThruCPU);
    options.level = settings.Number(Key::TransLevel);
    options.shadow = settings.Number(Key::Shadow) == 1;
    options.captionColor = settings::ColourFromIndex(settings.Number(Key::GrphCapColur));
    options.plotColor = settings::ColourFromIndex(settings.Number(Key::GrphValColr));
    return options;
}

std::uint8_t AlphaOfLevel(int level) {
    // The user reads the level as a percentage, so that 85 has to let a little of the desktop through and 100
    // nothing; more than all is all. A window that nobody can see can't be made visible again either: a fifth of it
    // always remains.
    const int percent = std::clamp(level, settings::kLeastTransLevel, settings::kMostTransLevel);
    return static_cast<std::uint8_t>(percent * kSolidAlpha / settings::kMostTransLevel);
}

}  // namespace graphs
