// The graph of the whole machine's load: a bar for each of the last hundred readings, or the average since a start
// time. It measures nothing itself.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "graphs/AverageUsage.h"
#include "graphs/GraphOptions.h"
#include "graphs/GraphWindow.h"
#include "graphs/LoadHistory.h"
#include "platform/Picture.h"
#include "process/CpuTotals.h"
#include "settings/Settings.h"

namespace graphs {

// From one GraphTimer to the next, and from one reading of the load to the next.
inline constexpr std::uint32_t kMeterMilliseconds = 500;

class FrmColorMeter final : public GraphWindow {
public:
    // What the graph works with; all outlive it.
    struct Parts {
        const GraphOptions& options;
        process::CpuTotals& totals;  // which others add to
        settings::Settings& settings;
    };
    // Averages count from now on: made when the program starts.
    explicit FrmColorMeter(const Parts& parts);

    // The timers that others run, at kMeterMilliseconds each: of GraphTimer, and of the readings of the load.
    std::function<void()> StartGraphTimer, StopGraphTimer;
    std::function<void()> StartReadings, StopReadings;

    // Shows the window where it stood, with its bars, and starts GraphTimer; brings it forward when it is open.
    // False when there can be no window.
    bool Open();
    // Notes where the window stands, stops GraphTimer, and closes the window if it is open.
    void Close();
    // Where it is, or would be when it was opened.
    platform::Rect Place() const;
    // One tick; does nothing while the window is closed.
    void GraphTimer();

    // The average is shown in place of the bars.
    bool ShowsAverage() const { return average_; }
    const LoadHistory& History() const { return history_; }

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onClose() override { Close(); }
    void onDestroyed() override;
    void RunMenu(platform::Point screen) override;

private:
    void Run(int id);
    void ShowBars();
    void ShowAverage();
    void ResetAverage();
    void DrawBars(platform::Canvas& canvas) const;
    void DrawAverage(platform::Canvas& canvas) const;

    Parts parts_;
    platform::PictureHandle colorBar_;  // one column of the gradient for each bar
    LoadHistory history_;
    AverageUsage usage_;
    std::string averageText_;
    bool average_ = false;
};

}  // namespace graphs
