// How long the program takes from its start to the first list of processes on the screen.
//   start_cost.exe FOLDER [TIMES]     the folder of the program; 20 starts when not given
// Milliseconds from before CreateProcess until the first row of the list shows something, in turns with a program
// that shows an empty window: what that takes is the system's. A second copy is timed from its start to its end.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "desktop/Session.h"

namespace {

HWND VisibleWindow(const char* className, DWORD process) {
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, className, nullptr)) != nullptr;) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process && IsWindowVisible(window)) return window;
    }
    return nullptr;
}

double Milliseconds() {
    LARGE_INTEGER frequency, counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return static_cast<double>(counter.QuadPart) * 1e3 / static_cast<double>(frequency.QuadPart);
}

// Looks every five milliseconds, which costs the machine little; ends everything when it does not happen.
template <class Condition>
void Until(Condition condition) {
    for (const double start = Milliseconds(); !condition(); Sleep(5)) {
        if (Milliseconds() - start < desktop::kBound) continue;
        std::printf("it did not start\n");
        std::exit(1);
    }
}

double StartOfProgram(const desktop::Installation& installation) {
    const double start = Milliseconds();
    const desktop::Process program('"' + installation.Folder() + "Kestrum2.exe\"");
    HWND main = nullptr, list = nullptr;
    Until([&] { return (main = VisibleWindow("Form1", program.Id())) != nullptr; });
    Until([&] { return (list = desktop::Child(main, "UcList1", "UcList11")) != nullptr; });
    const desktop::List rows(list);
    Until([&] { return rows.HasText(0); });
    return Milliseconds() - start;
}

double StartOfEmpty(const desktop::Installation& installation) {
    const double start = Milliseconds();
    const desktop::Process program('"' + installation.Target() + '"');
    Until([&] { return VisibleWindow("KestrumTarget", program.Id()) != nullptr; });
    return Milliseconds() - start;
}

// The second copy, which wakes the first and ends.
double StartOfSecond(const desktop::Installation& installation) {
    const desktop::Process first('"' + installation.Folder() + "Kestrum2.exe\"");
    Until([&] { return VisibleWindow("Form1", first.Id()) != nullptr; });
    const double start = Milliseconds();
    const desktop::Process second('"' + installation.Folder() + "Kestrum2.exe\"");
    Until([&] { return !second.Running(); });
    return Milliseconds() - start;
}

void Report(const char* name, std::vector<double> starts) {
    const double first = starts.front();
    std::sort(starts.begin(), starts.end());
    std::printf("%-18s first %.0f ms, all %d: median %.0f ms, %.0f to %.0f\n", name, first,
                static_cast<int>(starts.size()), starts[starts.size() / 2], starts.front(), starts.back());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    desktop::ProductFolder() = std::string(argv[1]) + "\\";
    const int times = argc > 2 ? std::max(1, std::atoi(argv[2])) : 20;
    const desktop::Installation installation;
    std::vector<double> programs, empties, seconds;
    for (int i = 0; i < times; ++i) {
        empties.push_back(StartOfEmpty(installation));
        programs.push_back(StartOfProgram(installation));
        seconds.push_back(StartOfSecond(installation));
    }
    Report("an empty window:", empties);
    Report("the program:", programs);
    Report("the second copy:", seconds);
    return 0;
}
