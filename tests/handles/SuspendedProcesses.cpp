#include "handles/SuspendedProcesses.h"

#include <windows.h>

namespace handles {

SuspendedProcesses::SuspendedProcesses(int count) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    for (int i = 0; i < count; ++i) {
        STARTUPINFOA start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        if (!CreateProcessA(path, nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr, &start,
                            &process)) {
            return;
        }
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        ids_.push_back(process.dwProcessId);
    }
}

SuspendedProcesses::~SuspendedProcesses() {
    for (const std::uint32_t id : ids_) {
        const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, id);
        if (process == nullptr) continue;
        TerminateProcess(process, 0);
        CloseHandle(process);
    }
}

}  // namespace handles
