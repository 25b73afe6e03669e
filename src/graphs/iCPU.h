// The CPU graph of one process: its usage over the last hundred readings, with name and percentage above.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "controls/BalloonTips.h"
#include "graphs/CpuHistory.h"
#include "graphs/GraphOptions.h"
#include "graphs/GraphWindow.h"
#include "process/ProcessAccess.h"
#include "process/clsProcessCpuUsage.h"

namespace graphs {

inline constexpr std::uint32_t kSampleMilliseconds = 600;

class iCPU;

// What a graph asks of those that are open beside it.
class GraphGroup {
public:
    virtual void RememberPositions() = 0;
    virtual void ForgetPositions() = 0;
    virtual void HideAll() = 0;
    virtual void CloseAll() = 0;
    // The window is gone. The object is still in use.
    virtual void Closed(iCPU& graph) = 0;

protected:
    ~GraphGroup() = default;
};

class iCPU final : public GraphWindow {
public:
    // What the graph works with; all outlive it.
    struct Parts {
        const GraphOptions& options;
        process::ProcessAccess& access;
        controls::BalloonTips& tips;
        GraphGroup& group;
    };
    // `slot` is 1..settings::kGraphSlots.
    iCPU(const Parts& parts, int slot);

    // Begins to measure and shows the window at `bounds`, without making it the active one. `fileName` is the
    // process's file as the user knows it. False when there can be no window.
    bool Launch(const std::string& fileName, platform::ProcessId pid, const platform::Rect& bounds);
    void Close();

    int Slot() const { return slot_; }
    platform::ProcessId PID() const { return meter_.PID(); }
    const CpuHistory& History() const { return history_; }
    // "07%  notepad".
    std::string CaptionText() const;
    // The id still belongs to the process that was launched; true where creation times can't be read.
    bool SameProcess() const;

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onTimer(int id) override;
    void onClose() override { Close(); }
    void onDestroyed() override;
    void RunMenu(platform::Point screen) override;

private:
    void Explain(bool over);
    std::string TipText() const;
    void Run(int id);
    void SetGraphTime(int divisor);
    void SetStayOnTop(bool on);

    Parts parts_;
    int slot_;
    process::clsProcessCpuUsage meter_;
    std::optional<std::uint64_t> creation_;  // of the process; nullopt when it can't be read
    std::string fileName_;
    std::string captionName_;
    CpuHistory history_;
    bool showCaption_ = true;
    bool stayOnTop_ = false;
};

}  // namespace graphs
