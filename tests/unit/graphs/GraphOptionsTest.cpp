#include "GraphsFixture.h"

using namespace graphtest;

TEST_CASE_FIXTURE(Reset, "graph options as they are stored, damaged ones too") {
    using graphs::GraphOptions;
    const auto load = [] { return graphs::LoadGraphOptions(settings::Settings()); };
    const std::pair<const char*, bool GraphOptions::*> switches[] = {{"ChkCPUGraphTop", &GraphOptions::stayOnTop},
                                                                     {"EdgeDetect", &GraphOptions::edgeDetection},
                                                                     {"CpuToolTips", &GraphOptions::tips}};
    for (const auto& [key, option] : switches) {
        CHECK(load().*option);
        sim::putSetting(settings::kSection, key, "-7000");
        CHECK_FALSE(load().*option);
    }
    CHECK_FALSE(load().seeThrough);
    CHECK(load().level == 85);
    CHECK(load().captionColor == kYellow);
    CHECK(load().plotColor == kGreen);
    sim::putSetting(settings::kSection, "GrphCapColur", "8");
    CHECK(load().captionColor == 0);
    // More is never less to be seen, and something always remains.
    const std::pair<int, int> levels[] = {{85, 216}, {100, 255}, {32767, 255}, {0, 51}, {-32768, 51}};
    for (const auto& [level, alpha] : levels) CHECK(graphs::AlphaOfLevel(level) == alpha);
    for (int level = 0; level < 300; ++level) CHECK(graphs::AlphaOfLevel(level) <= graphs::AlphaOfLevel(level + 1));
}
