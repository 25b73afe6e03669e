// How long the program takes from its start to the first list of processes on the screen.
//   start_cost.exe FOLDER [TIMES]     the folder of the program; 20 starts when not given
// Milliseconds from before CreateProcess until the first row of the list shows something; the first start, which
// reads the program from the disk, is told apart.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "desktop/Session.h"

namespace {

HWND VisibleMain(DWORD process) {
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "Form1", nullptr)) != nullptr;) {
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

double StartOnce(const desktop::Installation& installation) {
    const double start = Milliseconds();
    const desktop::Process program('"' + installation.Folder() + "Kestrum2.exe\"");
    HWND main = nullptr, list = nullptr;
    while ((main = VisibleMain(program.Id())) == nullptr) Sleep(1);
    while ((list = desktop::Child(main, "UcList1", "UcList11")) == nullptr) Sleep(1);
    const desktop::List rows(list);
    while (!rows.HasText(0)) Sleep(1);
    return Milliseconds() - start;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    desktop::ProductFolder() = std::string(argv[1]) + "\\";
    const int times = argc > 2 ? std::atoi(argv[2]) : 20;
    const desktop::Installation installation;
    std::printf("first start: %.0f ms\n", StartOnce(installation));
    std::vector<double> starts;
    for (int i = 0; i < times; ++i) starts.push_back(StartOnce(installation));
    std::sort(starts.begin(), starts.end());
    std::printf("%d more: median %.0f ms, %.0f to %.0f\n", times, starts[starts.size() / 2], starts.front(),
                starts.back());
    return 0;
}
