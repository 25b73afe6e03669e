// The program's main loop: keeps the process list current and drives Auto Set and Enforce.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/ProcessIcons.h"
#include "app/TimerSlots.h"
#include "controls/UcList1.h"
#include "favorites/EnforceState.h"
#include "favorites/ProcessSetWatch.h"
#include "filter/FileFilter.h"
#include "process/ProcRec.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"
#include "process/clsProcessCpuUsage.h"
#include "settings/DisplayOptions.h"

namespace app {

// The program's way of saying "not now": a tick of the cycle does nothing while it is raised.
class BusyFlag {
public:
    bool Raised() const { return depth_ > 0; }

private:
    friend class BusyGuard;
    int depth_ = 0;
};

// Raises the busy flag while it lives; guards may be nested.
class BusyGuard {
public:
    explicit BusyGuard(BusyFlag& flag) : flag_(flag) { ++flag_.depth_; }
    ~BusyGuard() { --flag_.depth_; }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    BusyFlag& flag_;
};

// What the cycle asks of the window around it.
class RefreshHost {
public:
    virtual bool Minimized() const = 0;
    virtual bool AutoSetPressed() const = 0;
    // Filtered file names are hidden now (and marked otherwise).
    virtual bool FilterPressed() const = 0;
    // Applies the favourites; true when something was changed (the list has then been rebuilt).
    virtual bool SetFavs() = 0;
    // None of the previously selected processes is there any more and row 0 was selected instead.
    virtual void SelectionReplaced() = 0;
    virtual void UpdateStatusLine() = 0;

protected:
    ~RefreshHost() = default;
};

// Rebuilds or updates the rows of the process list, one tick every half second. Rows name processes by id;
// the list's last column (hidden) holds the row's icon handle in decimal.
class RefreshCycle {
public:
    // What the cycle works with; all outlive it.
    struct Parts {
        RefreshHost& host;
        controls::UcList1& list;
        TimerSlots& slots;
        BusyFlag& busy;
        process::ProcessAccess& access;
        favorites::EnforceState& enforce;
        const filter::FileFilter& filter;
        const settings::DisplayOptions& options;
    };
    explicit RefreshCycle(const Parts& parts);

    // One tick.
    void ProcTimer();
    // Reads every process anew and fills the list; when its rows are held, on the first tick after that. The timer
    // of the cycle restarts.
    void FullRebuild();
    // The next tick sees a changed process set and rebuilds the list three times.
    void ForceRebuild() { watch_.ForceChange(); }
    void UpdateStatusLine() { host_.UpdateStatusLine(); }

    const process::ProcessSnapshot& Snapshot() const { return snapshot_; }
    // Column and direction the list is sorted by, as the user last chose by a header click.
    void SetSort(int column, bool ascending);
    // The icon handle of a displayed row, for the list to draw.
    std::uintptr_t IconOfRow(int displayRow) const;
    // Looks which processes there are, without a word to the list.
    void TakeSnapshot() { snapshot_.Take(); }
    // The process of a displayed row.
    platform::ProcessId ProcessOfRow(int displayRow) const;
    // At the end of the program; nothing may be refreshed afterwards.
    void ReleaseMeters();
    void ReleaseIcons();

private:
    friend class HeldRows;
    void FastUpdate();
    void AddRow(int row);
    void AppendProcesses();
    // The user is about to do something with the rows: they stay what they are.
    bool RowsHeld() const { return holds_ > 0 || list_.Dragging(); }
    std::string RowText(std::string_view fileName, platform::ProcessId id) const;
    void SaveSelection();
    bool RestoreSelection();
    void Sort();
    process::clsProcessCpuUsage& Meter(int row);

    RefreshHost& host_;
    controls::UcList1& list_;
    TimerSlots& slots_;
    BusyFlag& busy_;
    process::ProcessAccess& access_;
    favorites::EnforceState& enforce_;
    const filter::FileFilter& filter_;
    const settings::DisplayOptions& options_;
    ProcessIcons icons_;
    platform::IconHandle filterIcon_;

    process::ProcessSnapshot snapshot_;
    favorites::ProcessSetWatch watch_;
    process::ProcRecs rows_;
    std::vector<process::clsProcessCpuUsage> meters_;  // one for each row index that was ever used
    std::vector<platform::ProcessId> selected_;
    std::string rowText_;
    int sortColumn_ = 0;
    bool sortAscending_ = true;
    int holds_ = 0;
    bool rebuildOwed_ = false;
};

// Keeps rows and selection of the process list as they are while it lives; Auto Set goes on.
class HeldRows {
public:
    explicit HeldRows(RefreshCycle& cycle) : cycle_(cycle) { ++cycle_.holds_; }
    ~HeldRows() { --cycle_.holds_; }
    HeldRows(const HeldRows&) = delete;
    HeldRows& operator=(const HeldRows&) = delete;

private:
    RefreshCycle& cycle_;
};

}  // namespace app
