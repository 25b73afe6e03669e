#include "handles/HandleCounts.h"

// The compiler takes the inline reading of a segment for one of a null pointer.
#pragma GCC diagnostic ignored "-Warray-bounds"
#include <windows.h>

#include <cstdint>

namespace handles {

namespace {

constexpr std::uintptr_t kHighestHandle = 0x4000;
constexpr std::size_t kGdiEntries = 0x10000;
constexpr std::size_t kGdiEntryBytes = 24;
constexpr std::size_t kGdiType = 14;  // byte of an entry; 0 in the lower bits while it is free

// The process environment block as 64-bit code sees it, also in a 32-bit process of a 64-bit system.
std::uint64_t EnvironmentBlock() {
#ifdef _WIN64
    return __readgsqword(0x60);
#else
    const auto block64 = static_cast<std::uintptr_t>(__readfsdword(0xF70));  // of the thread
    return block64 == 0 ? 0 : *reinterpret_cast<const std::uint64_t*>(block64 + 0x60);
#endif
}

}  // namespace

int Kernel() {
    int count = 0;
    for (std::uintptr_t handle = 4; handle < kHighestHandle; handle += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags)) ++count;
    }
    return count;
}

int Gdi() {
    const std::uint64_t block = EnvironmentBlock();
    if (block == 0) return -1;
    const auto table = *reinterpret_cast<const std::uint64_t*>(static_cast<std::uintptr_t>(block + 0xF8));
    if (table == 0 || table > UINTPTR_MAX) return -1;
    const auto* entry = reinterpret_cast<const std::uint8_t*>(static_cast<std::uintptr_t>(table));
    int count = 0;
    for (std::size_t i = 0; i < kGdiEntries; ++i, entry += kGdiEntryBytes) {
        if ((entry[kGdiType] & 0x7F) != 0) ++count;
    }
    return count;
}

}  // namespace handles
