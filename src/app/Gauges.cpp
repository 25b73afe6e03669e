#include "app/Gauges.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "platform/Canvas.h"

namespace app {

namespace {
constexpr char kMemoryCaption[] = "Mem Free: ";
constexpr char kCpuCaption[] = "CPU: ";
constexpr int kRoom = 14;  // left and right of the widest text
}  // namespace

bool Gauges::Create(platform::Window& parent, controls::BalloonTips& tips) {
    const platform::Rect later{0, 0, 1, 1};
    if (!memory_.Create(parent, "ProgressBar1", later) || !cpu_.Create(parent, "ProgressBar2", later)) return false;
    memory_.SetCaption(kMemoryCaption);
    // Much free memory is no reason for alarm, so this bar does not turn red where it is nearly full.
    memory_.SetTriColor(false);
    cpu_.SetCaption(kCpuCaption);
    Explain(memory_, tips, process::MemoryTip);
    Explain(cpu_, tips, process::ProcessorTip);
    return true;
}

// A tip says what was true when it was made, so each visit of the pointer gets a new one.
void Gauges::Explain(controls::ProgressBar& bar, controls::BalloonTips& tips, process::TipText (*read)()) {
    bar.Hover = [&bar, &tips, read] {
        if (!tips.Enabled() || tips.ShownFor(bar)) return;
        const process::TipText tip = read();
        tips.Show(tip.text, bar, tip.title, false);
    };
    bar.Left = [&tips] { tips.Remove(); };
}

int Gauges::Width() {
    const int widest = platform::textSize(std::string(kMemoryCaption) + "100 %", platform::Font::Normal).width;
    return widest + 2 * kRoom;
}

void Gauges::Place(const platform::Rect& memory, const platform::Rect& cpu) {
    memory_.setBounds(memory);
    cpu_.setBounds(cpu);
}

void Gauges::UpdateMemory() {
    memory_.SetValue(process::MemoryPercent());
}

void Gauges::ShowCpu(int percent) {
    using Limits = std::numeric_limits<std::int16_t>;
    cpu_.SetValue(static_cast<std::int16_t>(std::clamp<int>(percent, Limits::min(), Limits::max())));
}

}  // namespace app
