// What one tick of the main loop costs on the simulated machine, from 25 to 4000 processes. The simulated calls
// are part of the time, so the program's own share is below what is shown; painting is counted in operations.
#include <benchmark/benchmark.h>

#include <string>

#include "app/Form1.h"
#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;

platform::ProcessId AddProcess(int number) {
    sim::Process process;
    process.path = "C:\\Program Files\\Vendor\\program" + std::to_string(number) + ".exe";
    process.load = number % 7 == 0 ? 0.3 : 0;
    process.workingSet = static_cast<std::uint64_t>(number) * 123'456;
    return sim::addProcess(process);
}

// The program running among `count` processes, its list settled.
struct Running {
    explicit Running(int count) {
        sim::reset();
        for (int i = 0; i < count; ++i) AddProcess(i);
        form.Start();
        for (int i = 0; i < 6; ++i) sim::run(app::kRefreshMilliseconds);
    }
    app::Form1 form;
};

void FastUpdateTick(benchmark::State& state) {
    Running running(static_cast<int>(state.range(0)));
    const std::uint64_t before = sim::drawCount();
    for ([[maybe_unused]] auto _ : state) sim::run(app::kRefreshMilliseconds);
    state.counters["draws"] =
        benchmark::Counter(static_cast<double>(sim::drawCount() - before), benchmark::Counter::kAvgIterations);
    sim::clearLog();
}
BENCHMARK(FastUpdateTick)->ArgsProduct({{25, 50, 100, 250, 1000, 4000}})->Unit(benchmark::kMicrosecond);

void FullRebuildTick(benchmark::State& state) {
    Running running(static_cast<int>(state.range(0)));
    int number = 1000;
    platform::ProcessId extra = AddProcess(number);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        sim::endProcess(extra);
        extra = AddProcess(++number % 50 + 1000);
        state.ResumeTiming();
        sim::run(app::kRefreshMilliseconds);
    }
}
BENCHMARK(FullRebuildTick)->ArgsProduct({{25, 50, 100, 250, 1000, 4000}})->Unit(benchmark::kMicrosecond);

void PaintWholeList(benchmark::State& state) {
    Running running(static_cast<int>(state.range(0)));
    std::size_t operations = 0;
    for ([[maybe_unused]] auto _ : state) operations = sim::paint(running.form.ProcessList(), true).size();
    state.counters["draws"] = static_cast<double>(operations);
}
BENCHMARK(PaintWholeList)->Arg(25)->Arg(250)->Unit(benchmark::kMicrosecond);

}  // namespace
