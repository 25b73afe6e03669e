// Crowd.exe: processes that do nothing, for others to list.
//   Crowd.exe COUNT [PARENT_PID]     starts so many more of itself; all end with the parent, or with the desktop
#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace {

bool StartOne(const char* own, unsigned long parent) {
    char line[MAX_PATH + 32];
    std::snprintf(line, sizeof line, "\"%s\" 0 %lu", own, parent);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(own, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == 0)
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::atoi(argv[1]) : 0;
    const unsigned long parent = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    char own[MAX_PATH];
    GetModuleFileNameA(nullptr, own, sizeof own);
    for (int i = 0; i < count; ++i) {
        if (!StartOne(own, parent)) return 1;
    }
    if (count > 0) return 0;
    const HANDLE process = parent != 0 ? OpenProcess(SYNCHRONIZE, FALSE, parent) : nullptr;
    if (process != nullptr)
        WaitForSingleObject(process, INFINITE);
    else
        Sleep(INFINITE);
    return 0;
}
