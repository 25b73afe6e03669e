// The ids of all processes at one moment.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Process.h"

namespace process {

// The first two entries of a snapshot (idle and system process) are never listed, matched or summed.
inline constexpr int kFirstListedSlot = 3;

class ProcessSnapshot {
public:
    // Replaces the ids by those of now; none when the system refuses. EnumProcesses.
    void Take() { platform::enumerateProcesses(ids_); }
    // Number of ids, the first two included.
    int Count() const { return static_cast<int>(ids_.size()); }
    // `slot` is 1..Count().
    platform::ProcessId Id(int slot) const { return ids_[static_cast<std::size_t>(slot - 1)]; }
    // Sum of the ids from kFirstListedSlot on, wrapping at 32 bits.
    std::uint32_t IdSum() const {
        std::uint32_t sum = 0;
        for (int slot = kFirstListedSlot; slot <= Count(); ++slot) sum += Id(slot);
        return sum;
    }

private:
    std::vector<platform::ProcessId> ids_;
};

}  // namespace process
