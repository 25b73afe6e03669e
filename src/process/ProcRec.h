// The rows of the process list as last read in full, for the updates in between.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/Process.h"

namespace process {

struct ProcRec {
    std::string rowText;  // display name, affinity, priority and id, joined by tabs
    platform::ProcessId pid = 0;
    std::uintptr_t icon = 0;  // 0 marks the entry behind the last row
};

// As many rows as there are processes; the entry behind the last row always carries the end mark.
class ProcRecs {
public:
    void Clear() {
        entries_.resize(1);
        entries_.front().icon = 0;
    }
    // The row has an icon: without one it would be the end.
    void Add(ProcRec rec) {
        entries_.back() = std::move(rec);
        entries_.emplace_back();
    }
    int Count() const { return static_cast<int>(entries_.size()) - 1; }
    // `row` is 0..Count(); the entry at Count() is the end mark.
    const ProcRec& At(int row) const { return entries_[static_cast<std::size_t>(row)]; }

private:
    std::vector<ProcRec> entries_ = std::vector<ProcRec>(1);
};

}  // namespace process
