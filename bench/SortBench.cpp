// Sorting the process list by each kind of column, from 25 to 4096 rows.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "controls/UcListModel.h"

namespace {

enum Column { kName, kAffinity, kPriority, kPid, kCpu, kMemory, kColumns };

controls::UcListModel FilledModel(int rows) {
    controls::UcListModel model;
    model.SetColumnCount(kColumns);
    std::mt19937 random(7);
    const auto below = [&](unsigned end) { return random() % end; };
    static const char* const kPriorities[] = {"Normal", "High", "Below", "Normal"};
    for (int i = 0; i < rows; ++i) {
        std::string row = "Program" + std::to_string(below(500)) + ".exe\t0123\t";
        row += kPriorities[below(4)];
        row += '\t' + std::to_string(1000 + below(20000)) + '\t' + (below(5) == 0 ? "12" : "00") + '\t';
        row += std::to_string(1 + below(900)) + ',' + std::to_string(100 + below(899));
        model.AddItem(row);
    }
    return model;
}

void Sort(benchmark::State& state) {
    controls::UcListModel model = FilledModel(static_cast<int>(state.range(1)));
    for ([[maybe_unused]] auto _ : state) {
        model.SortCol(static_cast<int>(state.range(0)), true);
        benchmark::DoNotOptimize(model);
    }
}
BENCHMARK(Sort)
    ->ArgsProduct({{kName, kAffinity, kPriority, kPid, kCpu, kMemory}, {25, 100, 256, 1024, 4096}})
    ->ArgNames({"column", "rows"})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
