// The rows of the process list as last read in full, for the updates in between.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/Process.h"

namespace process {

struct ProcRec {
    std::string rowText;  // display name, affinity, priority and id, joined by tabs
    platform::ProcessId pid = 0;
    std::uintptr_t icon = 0;  // 0 marks the entry behind the last row
};

inline constexpr int kMostRows = 256;

// At most 256 rows; the entry behind the last row always carries the end mark.
class ProcRecs {
public:
    void Clear() { SetCount(0); }
    bool Full() const { return count_ == kMostRows; }
    // False, and nothing happens, when it is full or the row has no icon.
    bool Add(ProcRec rec) {
        if (Full() || rec.icon == 0) return false;
        entries_[static_cast<std::size_t>(count_)] = std::move(rec);
        SetCount(count_ + 1);
        return true;
    }
    int Count() const { return count_; }
    // `row` is 0..Count(); the entry at Count() is the end mark.
    const ProcRec& At(int row) const { return entries_[static_cast<std::size_t>(row)]; }

private:
    void SetCount(int count) {
        count_ = count;
        entries_[static_cast<std::size_t>(count)].icon = 0;
    }

    std::array<ProcRec, kMostRows + 1> entries_;
    int count_ = 0;
};

}  // namespace process
