#include "app/RefreshCycle.h"

#include <algorithm>
#include <charconv>

#include "app/ProcessColumns.h"
#include "controls/Resources.h"
#include "process/Affinity.h"
#include "process/PriorityClass.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace app {

namespace {

constexpr int kIconSize = 16;  // pixels

// The list stays as it is on the screen while it is refilled: locked, and scrolled back to where it stood.
class FrozenList {
public:
    explicit FrozenList(controls::UcList1& list) : list_(list), topIndex_(list.TopIndex()) {
        list_.SetLocked(true);
    }
    ~FrozenList() {
        list_.SetTopIndex(topIndex_);  // the scroll bar's position is the same number
        list_.SetLocked(false);
    }
    FrozenList(const FrozenList&) = delete;
    FrozenList& operator=(const FrozenList&) = delete;

private:
    controls::UcList1& list_;
    int topIndex_;
};

template <class Number>
Number ParseNumber(const std::string& text) {
    Number value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace

RefreshCycle::RefreshCycle(const Parts& parts)
    : host_(parts.host),
      list_(parts.list),
      slots_(parts.slots),
      busy_(parts.busy),
      access_(parts.access),
      enforce_(parts.enforce),
      filter_(parts.filter),
      options_(parts.options),
      icons_(controls::kDefaultIcon),
      filterIcon_(platform::loadIconResource(controls::kFilterIcon, kIconSize)) {}

void RefreshCycle::ProcTimer() {
    if (busy_.Raised()) return;
    snapshot_.Take();
    if (host_.Minimized() && !host_.AutoSetPressed()) return;

    watch_.Observe(snapshot_);
    if (watch_.Settling()) {
        const bool rebuilt = host_.AutoSetPressed() && host_.SetFavs();
        if (!rebuilt && !host_.Minimized()) FullRebuild();
        watch_.TickDone();
    } else if (!host_.Minimized() && !RowsHeld()) {
        if (rebuildOwed_) {
            FullRebuild();
        } else {
            FastUpdate();
        }
    }
    if (host_.AutoSetPressed() && enforce_.TickDue()) host_.SetFavs();
}

void RefreshCycle::FullRebuild() {
    if (!list_.exists()) return;  // the program ended inside a call of ours
    {
        // Before anything else: whoever stopped the timer relies on it to run again, however this ends.
        const PausedSlot pause(slots_, Slot::Process, kRefreshMilliseconds);
        rebuildOwed_ = RowsHeld();  // what is about to be done is for the processes selected now
        if (rebuildOwed_) return;
        watch_.Observe(snapshot_);  // whoever took it: what differs from the list is a change
        const FrozenList frozen(list_);
        SaveSelection();
        list_.Clear();
        AppendProcesses();
        const bool kept = RestoreSelection();
        Sort();
        if (!kept) {
            list_.SelectItem(0, true);
            host_.SelectionReplaced();
        }
    }
    icons_.DropUnused();
    host_.UpdateStatusLine();
}

void RefreshCycle::FastUpdate() {
    const PausedSlot pause(slots_, Slot::Process, kRefreshMilliseconds);
    const FrozenList frozen(list_);
    SaveSelection();
    list_.Clear();
    for (int row = 0; row < rows_.Count(); ++row) AddRow(row);
    Sort();
    if (!RestoreSelection()) {
        list_.SelectItem(0, true);
        host_.SelectionReplaced();
    }
}

void RefreshCycle::AppendProcesses() {
    rows_.Clear();
    const bool hideFiltered = host_.FilterPressed();
    const bool marks = static_cast<bool>(filterIcon_);  // else a filtered program keeps its own icon
    for (int slot = process::kFirstListedSlot; slot <= snapshot_.Count(); ++slot) {
        const platform::ProcessId id = snapshot_.Id(slot);
        if (id < 1) continue;
        const std::string path = access_.ImagePath(id);
        if (path.empty()) continue;
        const std::string_view fileName = text::FileNameOf(path);
        const bool filtered = filter_.Contains(fileName);
        if (filtered && hideFiltered) continue;
        const int row = rows_.Count();
        rows_.Add({RowText(fileName, id), id, filtered && marks ? filterIcon_.raw() : icons_.IconOf(path)});
        AddRow(row);
    }
}

std::string RefreshCycle::RowText(std::string_view fileName, platform::ProcessId id) const {
    std::string text = text::ProcessDisplayName(fileName);
    if (!options_.showExtensions) text.resize(std::min(text.size(), text.rfind('.')));
    text += '\t';
    text += process::AffinityText(access_.GetAffinity(id), access_.HighestCpu());
    text += '\t';
    text += process::PriorityName(access_.GetPriorityClass(id));
    text += '\t';
    text += text::Decimal(id);
    return text;
}

// Measures the process of a row and appends the row to the list.
void RefreshCycle::AddRow(int row) {
    const process::ProcRec& rec = rows_.At(row);
    process::clsProcessCpuUsage& meter = Meter(row);
    meter.SetPID(rec.pid);
    rowText_ = rec.rowText;
    rowText_ += '\t';
    rowText_ += text::TwoDigits(meter.GetCpuUsage());
    rowText_ += '\t';
    if (const auto kilobytes = access_.WorkingSetKb(rec.pid)) rowText_ += text::Grouped(*kilobytes);
    rowText_ += '\t';
    rowText_ += text::Decimal(static_cast<std::int64_t>(rec.icon));
    list_.AddItem(rowText_);
}

process::clsProcessCpuUsage& RefreshCycle::Meter(int row) {
    const auto index = static_cast<std::size_t>(row);
    if (index >= meters_.size()) meters_.resize(index + 1, process::clsProcessCpuUsage(access_.HighestCpu()));
    return meters_[index];
}

void RefreshCycle::SaveSelection() {
    selected_.clear();
    for (int row = 0; row < list_.ListCount(); ++row) {
        if (list_.Selected(row)) selected_.push_back(ProcessOfRow(row));
    }
    std::sort(selected_.begin(), selected_.end());
}

bool RefreshCycle::RestoreSelection() {
    if (selected_.empty()) return false;
    bool any = false;
    for (int row = 0; row < list_.ListCount(); ++row) {
        const platform::ProcessId id = ProcessOfRow(row);
        if (!std::binary_search(selected_.begin(), selected_.end(), id)) continue;
        list_.SelectItem(row, true);
        any = true;
    }
    return any;
}

void RefreshCycle::SetSort(int column, bool ascending) {
    sortColumn_ = column;
    sortAscending_ = ascending;
}

void RefreshCycle::Sort() {
    if (list_.ListCount() >= 2) list_.SortCol(sortColumn_, sortAscending_);
}

std::uintptr_t RefreshCycle::IconOfRow(int displayRow) const {
    return ParseNumber<std::uintptr_t>(list_.CellText(displayRow, kIconColumn));
}

platform::ProcessId RefreshCycle::ProcessOfRow(int displayRow) const {
    return ParseNumber<platform::ProcessId>(list_.CellText(displayRow, kPidColumn));
}

void RefreshCycle::ReleaseMeters() {
    meters_.clear();
}

void RefreshCycle::ReleaseIcons() {
    icons_.Clear();
    filterIcon_.reset();
}

}  // namespace app
