#include "platform/Machine.h"

#include <algorithm>
#include <string_view>

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

std::string commandLine() {
    const std::string_view whole = GetCommandLineA();
    if (whole.starts_with('"')) {
        const std::size_t quote = whole.find('"', 1);
        return std::string(quote == whole.npos ? std::string_view() : whole.substr(quote + 1));
    }
    // The run list of the system starts programs by their path without quotes.
    const std::string path = programPath();
    constexpr std::string_view kBlanks = " \t";
    const bool namesWhole = whole.size() == path.size() ||
                            (whole.size() > path.size() && kBlanks.find(whole[path.size()]) != kBlanks.npos);
    if (namesWhole &&
        CompareStringA(LOCALE_USER_DEFAULT, NORM_IGNORECASE, whole.data(), static_cast<int>(path.size()),
                       path.data(), static_cast<int>(path.size())) == CSTR_EQUAL) {
        return std::string(whole.substr(path.size()));
    }
    return std::string(whole.substr(std::min(whole.size(), whole.find_first_of(kBlanks))));
}

}  // namespace platform
