#include "graphs/CpuHistory.h"

#include <doctest/doctest.h>

#include <vector>

#include "graphs/GraphOptions.h"
#include "graphs/LoadHistory.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;

TEST_CASE("the newest reading stands at the end, and the oldest goes") {
    graphs::CpuHistory history;
    CHECK_FALSE(history.Add(0));  // nothing to be seen of it
    for (int reading = 1; reading <= 150; ++reading) CHECK(history.Add(reading % 90));
    CHECK(history.Newest() == 150 % 90);
    CHECK(history.Samples()[0] == 51);
    CHECK(history.Samples()[98] == 149 % 90);
    CHECK(history.Add(101));
    CHECK(history.Newest() == 100);
}

TEST_CASE("a reading below 0 leaves everything as it was") {
    graphs::CpuHistory history;
    history.Add(7);
    CHECK_FALSE(history.Add(-1));
    CHECK(history.Newest() == 7);
    CHECK(history.Samples()[98] == 0);
}

TEST_CASE("the divisor tells every how many ticks there is a reading") {
    for (const int divisor : {1, 2, 5}) {
        CAPTURE(divisor);
        graphs::CpuHistory history;
        history.TickDue();
        history.SetDivisor(divisor);
        std::vector<int> due;
        for (int tick = 1; tick <= 10; ++tick) {
            if (history.TickDue()) due.push_back(tick);
        }
        REQUIRE(due.size() == static_cast<std::size_t>(10 / divisor));
        CHECK(due.front() == divisor);
        CHECK(due.back() == 10);
    }
}

TEST_CASE("readings of the whole machine are held within what a bar can show") {
    graphs::LoadHistory history;
    for (const int reading : {50, -3, 130}) CHECK(history.Add(reading));
    CHECK(history.Samples()[97] == 50);
    CHECK(history.Samples()[98] == 0);
    CHECK(history.Samples()[99] == 100);
    for (int more = 0; more < 99; ++more) history.Add(1);
    CHECK(history.Samples()[0] == 100);
    CHECK(history.Add(1));
    CHECK_FALSE(history.Add(1));  // the same picture
}

TEST_CASE("graph options as they are stored, damaged ones too") {
    sim::reset();
    const auto load = [] { return graphs::LoadGraphOptions(settings::Settings()); };
    CHECK(load().stayOnTop);
    CHECK(load().edgeDetection);
    CHECK(load().tips);
    CHECK_FALSE(load().seeThrough);
    CHECK(load().level == 85);
    CHECK(load().captionColor == platform::rgb(255, 255, 0));
    CHECK(load().plotColor == platform::rgb(0, 255, 0));
    const std::pair<const char*, const char*> stored[] = {
        {"ChkCPUGraphTop", "0"}, {"EdgeDetect", "0"},   {"CpuToolTips", "0"}, {"SeeThruCPU", "True"},
        {"TransLevel", "-7000"}, {"GrphCapColur", "8"}, {"GrphValColr", "5"},
    };
    for (const auto& [key, value] : stored) sim::putSetting(settings::kSection, key, value);
    CHECK_FALSE(load().stayOnTop);
    CHECK_FALSE(load().edgeDetection);
    CHECK_FALSE(load().tips);
    CHECK(load().seeThrough);
    CHECK(load().captionColor == 0);
    CHECK(load().plotColor == platform::rgb(255, 0, 0));
    CHECK(graphs::AlphaOfLevel(load().level) == graphs::AlphaOfLevel(0));
}

TEST_CASE("more is never less to be seen, and something always remains") {
    CHECK(graphs::AlphaOfLevel(85) == 216);
    CHECK(graphs::AlphaOfLevel(100) == 255);
    CHECK(graphs::AlphaOfLevel(32767) == 255);
    CHECK(graphs::AlphaOfLevel(-32768) == 51);
    for (int level = 0; level < 300; ++level) {
        CHECK(graphs::AlphaOfLevel(level) <= graphs::AlphaOfLevel(level + 1));
    }
}
