// The CPU graphs of processes that are open: at most sixteen, each in a slot.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/BalloonTips.h"
#include "graphs/GraphOptions.h"
#include "graphs/iCPU.h"
#include "platform/Timer.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"
#include "settings/Settings.h"

namespace graphs {

inline constexpr std::uint32_t kWatchMilliseconds = 2000;  // from one look for ended processes to the next

class CpuGraphs final : public GraphGroup {
public:
    // What the graphs work with; all outlive them.
    struct Parts {
        const GraphOptions& options;
        process::ProcessAccess& access;
        controls::BalloonTips& tips;
        settings::Settings& settings;
    };
    explicit CpuGraphs(const Parts& parts) : parts_(parts) {}
    ~CpuGraphs();
    CpuGraphs(const CpuGraphs&) = delete;
    CpuGraphs& operator=(const CpuGraphs&) = delete;

    enum class Launched {
        Opened,
        BroughtForward,  // the process has a graph already
        Full,            // sixteen are open
        Failed,          // the system refuses the window
    };
    // Opens the graph of a process, in the lowest free slot. `fileName` is its file as the user knows it.
    Launched Launch(const std::string& fileName, platform::ProcessId pid);

    // Hidden ones included.
    int OpenCount() const;
    bool AnyOpen() const { return OpenCount() > 0; }
    // The graph in slot 1..settings::kGraphSlots; nullptr when the slot is free.
    iCPU* InSlot(int slot) const { return graphs_[static_cast<std::size_t>(slot - 1)].get(); }

    void ShowAll();  // the hidden ones too, in front of other windows
    void HideAll() override;
    void CloseAll() override;
    // The places of those that are open, each under its slot.
    void RememberPositions() override;
    // Of all slots.
    void ForgetPositions() override { parts_.settings.ForgetGraphPlaces(); }

    // For those that are open, when the user changes the options.
    void SetEdgeDetection(bool on);
    void ApplySeeThrough();
    void ApplyColors();

    // What else no new graph is to be put over: adds it to the places given. May be empty.
    std::function<void(std::vector<platform::Rect>& taken)> AlsoTaken;

private:
    void Closed(iCPU& graph) override;
    iCPU* GraphOf(platform::ProcessId pid) const;
    int FreeSlot() const;
    platform::Rect PlaceFor(int slot) const;
    void Watch();
    void Release();

    Parts parts_;
    std::array<std::unique_ptr<iCPU>, settings::kGraphSlots> graphs_;
    std::vector<std::unique_ptr<iCPU>> closed_;  // whose handlers may still be running
    process::ProcessSnapshot snapshot_;
    platform::TimerHandle watch_;
};

}  // namespace graphs
