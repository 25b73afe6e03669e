#include "GraphsFixture.h"

using namespace graphtest;

TEST_CASE("graph options as they are stored, damaged ones too") {
    const Reset reset;
    const auto load = [] { return graphs::LoadGraphOptions(settings::Settings()); };
    CHECK(load().stayOnTop);
    CHECK(load().edgeDetection);
    CHECK(load().tips);
    CHECK_FALSE(load().seeThrough);
    CHECK(load().level == 85);
    CHECK(load().captionColor == kYellow);
    CHECK(load().plotColor == kGreen);
    for (const char* key : {"ChkCPUGraphTop", "EdgeDetect", "CpuToolTips", "GrphCapColur", "TransLevel"}) {
        sim::putSetting(settings::kSection, key, "-7000");
    }
    sim::putSetting(settings::kSection, "SeeThruCPU", "True");
    sim::putSetting(settings::kSection, "GrphValColr", "5");
    CHECK_FALSE(load().stayOnTop);
    CHECK_FALSE(load().edgeDetection);
    CHECK_FALSE(load().tips);
    CHECK(load().seeThrough);
    CHECK(load().captionColor == 0);
    CHECK(load().plotColor == platform::rgb(255, 0, 0));
    CHECK(graphs::AlphaOfLevel(load().level) == graphs::AlphaOfLevel(0));
}

TEST_CASE("more is never less to be seen, and something always remains") {
    const std::pair<int, int> cases[] = {{85, 216}, {100, 255}, {32767, 255}, {-32768, 51}};
    for (const auto& [level, alpha] : cases) CHECK(graphs::AlphaOfLevel(level) == alpha);
    for (int level = 0; level < 300; ++level) {
        CHECK(graphs::AlphaOfLevel(level) <= graphs::AlphaOfLevel(level + 1));
    }
}
