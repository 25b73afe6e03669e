#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "process/clsProcessCpuUsage.h"

namespace sim = platform::sim;

namespace {

platform::ProcessId Add(double load) {
    sim::Process process;
    process.path = "C:\\Apps\\app.exe";
    process.load = load;
    return sim::addProcess(process);
}

}  // namespace

TEST_CASE("The load of a process is its share of all processors") {
    sim::reset();
    struct Case {
        int highestCpu;
        double load, expected;
    };
    for (const Case& c : {Case{1, 1, 50}, {3, 1, 25}, {0, 1, 100}, {7, 16, 100}, {3, 0, 0}}) {
        process::clsProcessCpuUsage meter(c.highestCpu);
        meter.SetPID(Add(c.load));
        sim::advance(1000);
        CHECK(meter.GetCpuUsage() == doctest::Approx(c.expected));
        CHECK(meter.GetCpuUsage() == 0);  // no time has passed
        sim::advance(500);
        CHECK(meter.GetCpuUsage() == doctest::Approx(c.expected));
    }
}

TEST_CASE("A meter bears what it cannot read") {
    sim::reset();
    const auto id = Add(1);
    process::clsProcessCpuUsage meter(0);
    const auto readingAfter = [&meter](std::uint32_t milliseconds) {
        sim::advance(milliseconds);
        return meter.GetCpuUsage();
    };
    SUBCASE("another process starts anew, the same one goes on") {
        meter.SetPID(id);
        sim::advance(500);
        meter.SetPID(id);
        CHECK(meter.GetCpuUsage() == doctest::Approx(100));
        sim::advance(500);
        meter.SetPID(Add(0));
        CHECK(readingAfter(500) == 0);
    }
    SUBCASE("a process that is gone or denied reads 0") {
        sim::findProcess(id)->deniedRights = 0x400;
        meter.SetPID(id);
        CHECK(readingAfter(500) == 0);
        sim::endProcess(id);
        CHECK(readingAfter(500) == 0);
    }
    SUBCASE("times that are behind are taken for what they are") {
        meter.SetPID(id);
        for (const std::uint32_t age : {190U, 0U, 30U, 200U, 120U}) {
            sim::findProcess(id)->timesAge = age;
            sim::findProcess(id)->load = 0.5;
            CHECK(readingAfter(600) == doctest::Approx(50));
        }
    }
    SUBCASE("times that went back read below 0, those beyond 32 bits keep counting") {
        sim::findProcess(id)->user = 20'000'000;
        sim::findProcess(id)->kernel = 0xFFFFFFF0;
        meter.SetPID(id);
        CHECK(readingAfter(500) == doctest::Approx(100));
        sim::findProcess(id)->user = 0;
        CHECK(readingAfter(500) < 0);
    }
    SUBCASE("what is used while the clock stands counts in the next reading") {
        sim::findProcess(id)->load = 0;
        meter.SetPID(id);
        sim::findProcess(id)->user += 5'000'000;
        CHECK(meter.GetCpuUsage() == 0);
        CHECK(readingAfter(1000) == doctest::Approx(50));
    }
    SUBCASE("no counter, no reading") {
        sim::setPerformanceFrequency(0);
        meter.SetPID(id);
        CHECK(readingAfter(500) == 0);
    }
    CHECK(sim::openHandles() == 0);
}
