#include "endurance/Counts.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace endurance {

namespace {

constexpr std::uintptr_t kHighestHandle = 0x4000;
constexpr std::size_t kGdiEntries = 0x10000;
constexpr std::size_t kGdiEntryBytes = 24;
constexpr std::size_t kGdiOwner = 8;  // its process, but for the lowest bit; 0 where each process has its own table
constexpr std::size_t kGdiType = 14;  // 0 in the lower bits while the entry is free
constexpr std::uintptr_t kGdiTableInBlock = 0xF8;  // of the process environment block, 64 bits

class OpenedProcess {
public:
    explicit OpenedProcess(DWORD id)
        : handle_(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_DUP_HANDLE, FALSE, id)) {}
    ~OpenedProcess() { CloseHandle(handle_); }
    OpenedProcess(const OpenedProcess&) = delete;
    OpenedProcess& operator=(const OpenedProcess&) = delete;
    HANDLE Get() const { return handle_; }

    bool Read(std::uintptr_t at, void* to, std::size_t bytes) const {
        SIZE_T read = 0;
        return ReadProcessMemory(handle_, reinterpret_cast<const void*>(at), to, bytes, &read) && read == bytes;
    }

private:
    HANDLE handle_;
};

// Each possible one is asked for: what Wine's table of processes calls their number is the room there is for them.
int KernelHandles(const OpenedProcess& process) {
    if (process.Get() == nullptr) return -1;
    int count = 0;
    for (std::uintptr_t handle = 4; handle < kHighestHandle; handle += 4) {
        HANDLE copy = nullptr;
        if (!DuplicateHandle(process.Get(), reinterpret_cast<HANDLE>(handle), GetCurrentProcess(), &copy, 0, FALSE,
                             DUPLICATE_SAME_ACCESS))
            continue;
        CloseHandle(copy);
        ++count;
    }
    return count;
}

int GdiObjects(const OpenedProcess& process, DWORD id) {
    PROCESS_BASIC_INFORMATION basic{};
    std::uintptr_t table = 0;
    std::vector<std::uint8_t> entries(kGdiEntries * kGdiEntryBytes);
    if (NtQueryInformationProcess(process.Get(), ProcessBasicInformation, &basic, sizeof basic, nullptr) < 0 ||
        !process.Read(reinterpret_cast<std::uintptr_t>(basic.PebBaseAddress) + kGdiTableInBlock, &table,
                      sizeof table) ||
        !process.Read(table, entries.data(), entries.size())) {
        return -1;
    }
    int count = 0;
    for (std::size_t at = 0; at < entries.size(); at += kGdiEntryBytes) {
        const unsigned owner = entries[at + kGdiOwner] | entries[at + kGdiOwner + 1] << 8;
        const bool ours = owner == 0 || (owner & ~1u) == (id & 0xFFFE);
        if ((entries[at + kGdiType] & 0x7F) != 0 && ours) ++count;
    }
    return count;
}

struct WindowCount {
    DWORD id = 0;
    int count = 0;
};

BOOL CALLBACK CountWindow(HWND window, LPARAM parameter) {
    auto& windows = *reinterpret_cast<WindowCount*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == windows.id) ++windows.count;
    return TRUE;
}

BOOL CALLBACK CountTopLevel(HWND window, LPARAM parameter) {
    CountWindow(window, parameter);
    return EnumChildWindows(window, CountWindow, parameter) || true;
}

int Windows(DWORD id) {
    WindowCount windows{id};
    EnumWindows(CountTopLevel, reinterpret_cast<LPARAM>(&windows));
    for (HWND window = nullptr; (window = FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;) {
        CountWindow(window, reinterpret_cast<LPARAM>(&windows));
    }
    return windows.count;
}

int PrivateKilobytes(const OpenedProcess& process) {
    PROCESS_MEMORY_COUNTERS memory{};
    if (!GetProcessMemoryInfo(process.Get(), &memory, sizeof memory)) return -1;
    return static_cast<int>(memory.PagefileUsage / 1024);
}

}  // namespace

Counts CountsOf(const desktop::Process& process) {
    const OpenedProcess opened(process.Id());
    return {KernelHandles(opened), GdiObjects(opened, process.Id()), Windows(process.Id()),
            PrivateKilobytes(opened)};
}

Counts Least(const Counts& a, const Counts& b) {
    return {std::min(a.kernelHandles, b.kernelHandles), std::min(a.gdiObjects, b.gdiObjects),
            std::min(a.windows, b.windows), std::min(a.privateKilobytes, b.privateKilobytes)};
}

}  // namespace endurance
