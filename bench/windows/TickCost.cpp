// What a tick costs the real program on the real system, against the bare system calls it cannot do without.
//   tick_cost.exe [PROCESSES...]     that many beside those already there; 20, 100 and 250 when not given
// All four take turns in one process, so that whatever else the machine does meets each alike. The figures are
// microseconds that pass, medians of many rounds: under Wine, most of them are spent in its server.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "BareCalls.h"
#include "app/Form1.h"

namespace {

constexpr int kRounds = 60;

double Microseconds() {
    LARGE_INTEGER frequency, counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

class Series {
public:
    template <class Work>
    void Time(Work work) {
        const double start = Microseconds();
        work();
        times_.push_back(Microseconds() - start);
    }
    double Median() {
        const auto middle = times_.begin() + static_cast<std::ptrdiff_t>(times_.size() / 2);
        std::nth_element(times_.begin(), middle, times_.end());
        return *middle;
    }

private:
    std::vector<double> times_;
};

bool StartCrowd(int count) {
    char own[MAX_PATH];
    GetModuleFileNameA(nullptr, own, sizeof own);
    const std::string program = std::string(own, std::string_view(own).rfind('\\') + 1) + "Crowd.exe";
    std::string line = '"' + program + "\" " + std::to_string(count) + ' ' + std::to_string(GetCurrentProcessId());
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        return false;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code == 0;
}

// Until those just started have done what a start takes: their paths can be read, and all is quiet.
void Settle(app::Form1& form) {
    for (int quiet = 0, listed = -1; quiet < 4;) {
        Sleep(500);
        form.Refresh().ForceRebuild();
        form.Refresh().ProcTimer();
        platform::pumpMessages();
        quiet = form.ProcessList().ListCount() == listed ? quiet + 1 : 0;
        listed = form.ProcessList().ListCount();
    }
    for (int i = 0; i < 4; ++i) form.Refresh().ProcTimer();  // the rebuilds that are still due
}

void Measure(app::Form1& form) {
    Series bareFast, fast, fastShown, bareFull, full, fullShown;
    const auto tick = [&form] { form.Refresh().ProcTimer(); };
    const auto paint = [&form] {
        form.ProcessList().update();
        platform::pumpMessages();
    };
    for (int round = 0; round < kRounds; ++round) {
        bareFast.Time(bench::BareFastUpdate);
        fast.Time(tick);
        paint();
        fastShown.Time([&] { tick(), paint(); });
        bareFull.Time(bench::BareFullRebuild);
        form.Refresh().ForceRebuild();  // three ticks in full
        full.Time(tick);
        paint();
        fullShown.Time([&] { tick(), paint(); });
        tick();
        paint();
    }
    const auto line = [](const char* name, Series& bare, Series& alone, Series& shown) {
        std::printf("  %-13s bare calls %8.0f   tick %8.0f (%.2f)   tick and painting %8.0f (%.2f)\n", name,
                    bare.Median(), alone.Median(), alone.Median() / bare.Median(), shown.Median(),
                    shown.Median() / bare.Median());
    };
    std::printf("%d processes listed\n", form.ProcessList().ListCount());
    line("fast update", bareFast, fast, fastShown);
    line("full rebuild", bareFull, full, fullShown);
    std::fflush(stdout);
}

// Graphs of the first processes of the list: one sample of each and what it draws.
void MeasureGraphs(app::Form1& form) {
    for (int row = 0; row < settings::kGraphSlots; ++row) {
        form.Graphs().Launch("Crowd.exe", form.Refresh().ProcessOfRow(row));
    }
    platform::pumpMessages();
    Series samples;
    for (int round = 0; round < kRounds; ++round) {
        samples.Time([&form] {
            for (int slot = 1; slot <= settings::kGraphSlots; ++slot) {
                graphs::iCPU* graph = form.Graphs().InSlot(slot);
                if (graph == nullptr) continue;
                SendMessageA(reinterpret_cast<HWND>(graph->native()), WM_TIMER, 1, 0);
                graph->invalidate();  // as that of a process whose load changes
                graph->update();
            }
        });
        platform::pumpMessages();
    }
    std::printf("%d graphs: a sample of each, drawn, %.0f\n", settings::kGraphSlots, samples.Median());
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<int> counts;
    for (int i = 1; i < argc; ++i) counts.push_back(std::atoi(argv[i]));
    if (counts.empty()) counts = {20, 100, 250};
    app::Form1 form;
    if (form.Start() != app::Form1::StartResult::Running) return 1;
    int running = 0;
    for (const int count : counts) {
        if (count > running && !StartCrowd(count - running)) return 1;
        running = std::max(running, count);
        Settle(form);
        Measure(form);
    }
    MeasureGraphs(form);
    // The crowd ends with this process; the settings it was run with are not to be saved.
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 0);
}
