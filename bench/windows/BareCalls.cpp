#include "BareCalls.h"

#include "process/ProcessAccess.h"

#include <windows.h>

#define PSAPI_VERSION 1
#include <psapi.h>

namespace bench {

namespace {

namespace rights = process::rights;

template <class Call>
void Opened(DWORD id, DWORD access, Call call) {
    const HANDLE process = OpenProcess(access, FALSE, id);
    if (process == nullptr) return;
    call(process);
    CloseHandle(process);
}

void TimesAndMemory(DWORD id) {
    Opened(id, rights::kQuery, [](HANDLE process) {
        FILETIME creation, exit, kernel, user;
        GetProcessTimes(process, &creation, &exit, &kernel, &user);
    });
    Opened(id, rights::kQueryAndRead, [](HANDLE process) {
        PROCESS_MEMORY_COUNTERS counters;
        GetProcessMemoryInfo(process, &counters, sizeof counters);
    });
}

void Everything(DWORD id) {
    Opened(id, rights::kQueryAndRead, [](HANDLE process) {
        char path[MAX_PATH], longPath[MAX_PATH];
        if (GetModuleFileNameExA(process, nullptr, path, sizeof path) == 0) return;
        GetLongPathNameA(path, longPath, sizeof longPath);
    });
    Opened(id, rights::kQueryAndRead, [](HANDLE process) {
        DWORD_PTR mask, systemMask;
        GetProcessAffinityMask(process, &mask, &systemMask);
    });
    Opened(id, rights::kQuery, [](HANDLE process) { GetPriorityClass(process); });
    TimesAndMemory(id);
}

void ForEach(void (*work)(DWORD id)) {
    static DWORD ids[4096];
    DWORD bytes = 0;
    EnumProcesses(ids, sizeof ids, &bytes);
    // Under Wine there is no idle and no system process to leave out; elsewhere they cannot be opened.
    for (DWORD i = 0; i < bytes / sizeof(DWORD); ++i) work(ids[i]);
}

}  // namespace

void BareFastUpdate() {
    ForEach(TimesAndMemory);
}

void BareFullRebuild() {
    ForEach(Everything);
}

}  // namespace bench
