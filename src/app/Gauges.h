// The two bars below the lists: free memory and processor load, with the tips that explain them.
#pragma once

#include "controls/BalloonTips.h"
#include "controls/ProgressBar.h"
#include "platform/Window.h"
#include "process/SystemInfo.h"

namespace app {

inline constexpr std::uint32_t kMemoryMilliseconds = 2333;  // from one reading of the memory to the next

class Gauges {
public:
    bool Create(platform::Window& parent, controls::BalloonTips& tips);
    static int Width();  // pixels of one gauge
    void Place(const platform::Rect& memory, const platform::Rect& cpu);

    platform::Rect MemoryBounds() const { return memory_.bounds(); }
    platform::Rect CpuBounds() const { return cpu_.bounds(); }

    void UpdateMemory();
    void ShowCpu(int percent);

private:
    static void Explain(controls::ProgressBar& bar, controls::BalloonTips& tips, process::TipText (*read)());

    controls::ProgressBar memory_;  // ProgressBar1
    controls::ProgressBar cpu_;     // ProgressBar2
};

}  // namespace app
