#include "platform/Machine.h"

#include <algorithm>

#include "platform/win32/Win32.h"

namespace platform {

int processorCount() {
    SYSTEM_INFO info = {};
    GetSystemInfo(&info);
    return std::max(1, static_cast<int>(info.dwNumberOfProcessors));
}

std::int64_t performanceCounter() {
    LARGE_INTEGER ticks = {};
    return QueryPerformanceCounter(&ticks) != 0 ? ticks.QuadPart : 0;
}

std::int64_t performanceFrequency() {
    LARGE_INTEGER ticksPerSecond = {};
    return QueryPerformanceFrequency(&ticksPerSecond) != 0 ? ticksPerSecond.QuadPart : 0;
}

std::string windowsDirectory() {
    char path[MAX_PATH];
    const UINT length = GetWindowsDirectoryA(path, sizeof path);
    return length < sizeof path ? std::string(path, length) : std::string();
}

std::string programPath() {
    constexpr std::size_t kLongestPath = 32768;
    for (std::string path(MAX_PATH, '\0'); path.size() <= kLongestPath; path.resize(path.size() * 2)) {
        // A path that fills the buffer has been cut; older systems do not even end it with a NUL.
        const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
    }
    return std::string();
}

}  // namespace platform
