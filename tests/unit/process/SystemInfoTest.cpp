#include "process/SystemInfo.h"

#include <doctest/doctest.h>

#include <limits>

#include "platform/sim/Sim.h"
#include "process/clsCPUUsage.h"

namespace {

namespace sim = platform::sim;

constexpr std::uint64_t kKb = 1024;
constexpr char kProcessor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";

platform::ProcessId AddLoad(double load) {
    sim::Process process;
    process.path = "C:\\Apps\\app.exe";
    process.load = load;
    return sim::addProcess(process);
}

}  // namespace

TEST_CASE("The load of the machine is what its processors were not idle") {
    const struct {
        int processors;
        double load;
        int percent;
    } cases[] = {
        {4, 0, 0}, {4, 2, 50}, {4, 4, 100}, {1, 0.005, 1}, {1, 0.0149, 1}, {8, 0.0392, 0}, {255, 127.5, 50},
    };
    for (const auto& one : cases) {
        sim::reset();
        sim::setProcessorCount(one.processors);
        AddLoad(one.load);
        process::clsCPUUsage usage;
        CAPTURE(one.processors);
        CAPTURE(one.load);
        sim::advance(10'000);
        CHECK(usage.CurrentCPUUsage() == one.percent);
        CHECK(usage.CurrentCPUUsage() == 100);  // no time has passed, and nothing was idle in it
        sim::advance(500);
        CHECK(usage.CurrentCPUUsage() == one.percent);
    }
}

TEST_CASE("A machine that tells nothing reads 0, and its next reading covers the gap") {
    sim::reset();
    const platform::ProcessId busy = AddLoad(4);
    SUBCASE("figures refused for a while, or a number of processors that does not fit") {
        process::clsCPUUsage usage;
        sim::advance(1000);
        sim::failSystemFigures(true);
        CHECK(usage.CurrentCPUUsage() == 0);
        sim::findProcess(busy)->load = 0;
        sim::advance(3000);
        CHECK(usage.CurrentCPUUsage() == 0);
        sim::failSystemFigures(false);
        sim::setProcessorCount(0);
        CHECK(usage.CurrentCPUUsage() == 0);
        sim::setProcessorCount(4);
        CHECK(usage.CurrentCPUUsage() == 25);
    }
    SUBCASE("figures refused at the beginning count from 0 on") {
        sim::failSystemFigures(true);
        process::clsCPUUsage usage;
        sim::failSystemFigures(false);
        sim::advance(1000);
        CHECK(usage.CurrentCPUUsage() == 100);
    }
}

TEST_CASE("Physical memory in KB and percent") {
    sim::reset();
    const std::uint64_t huge = std::numeric_limits<std::uint64_t>::max();
    const std::int64_t most = std::numeric_limits<std::int64_t>::max();
    const struct {
        std::uint64_t total, available;           // bytes
        std::int64_t fixedTotal, fixedAvailable;  // ten-thousandths of a KB
        int percent;
        std::string text;
    } cases[] = {
        {1000 * kKb, 450 * kKb, 10'000'000, 4'500'000, 50, "450 of 1,000"},  // of 900
        {8'388'608 * kKb, 4'194'304 * kKb, 83'886'080'000, 41'943'040'000, 50, "4,194,304 of 8,388,608"},
        {1536, 1, 15'000, 10, 0, " of 2"},
        {100 * kKb, 100 * kKb, 1'000'000, 1'000'000, 0, "100 of 100"},  // nothing to divide by
        {100 * kKb + 1, 100 * kKb, 1'000'010, 1'000'000, 32767, "100 of 100"},
        {huge, huge / 2, most, most, 100, "922,337,203,685,478 of 922,337,203,685,478"},
        {0, 0, 0, 0, 0, " of "},
    };
    for (const auto& one : cases) {
        sim::setPhysicalMemory(one.total, one.available);
        CAPTURE(one.total);
        CAPTURE(one.available);
        CHECK(process::Memory(1) == one.fixedTotal);
        CHECK(process::Memory(0) == one.fixedAvailable);
        CHECK(process::MemoryPercent() == one.percent);
        CHECK(process::MemoryTip().text == one.text);
    }
    sim::setPhysicalMemory(8000 * kKb, 4000 * kKb);
    for (const int neither : {2, -1}) CHECK(process::Memory(neither) == 0);
    sim::failSystemFigures(true);
    CHECK(process::Memory(1) == 0);
    CHECK(process::MemoryPercent() == 0);
}

TEST_CASE("What the registry says of the processor") {
    sim::reset();
    CHECK(process::ProcessorTip().text == "\r\n\r\n0 MHz");
    sim::putMachineText(kProcessor, "ProcessorNameString", std::string("Quad 9000\0rest", 14));
    sim::putMachineText(kProcessor, "Identifier", "x86 Family 6");
    sim::putMachineNumber(kProcessor, "~MHz", 4'000'000'000);
    CHECK(process::ProcessorTip().text == "Quad 9000\r\nx86 Family 6\r\n4000000000 MHz");
}
