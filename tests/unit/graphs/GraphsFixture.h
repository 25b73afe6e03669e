// A simulated machine with CPU graphs on its desktop.
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "graphs/CpuGraphs.h"
#include "graphs/GraphLooks.h"
#include "platform/sim/Sim.h"

namespace graphtest {

namespace sim = platform::sim;
using platform::Color;
using platform::Point;
using platform::Rect;
using Launched = graphs::CpuGraphs::Launched;

inline constexpr platform::Size kSize{101, 102};  // of a graph
inline constexpr Color kYellow = platform::rgb(255, 255, 0);
inline constexpr Color kGreen = platform::rgb(0, 255, 0);

// Back to a fresh machine before anything reads from it.
struct Reset {
    Reset() { sim::reset(); }
};

struct Desk {
    ~Desk() {
        graphs.CloseAll();
        sim::run(graphs::kWatchMilliseconds);
        tips.Remove();
        CHECK(sim::openHandles() == 0);
    }

    static platform::ProcessId Run(const std::string& name, double load = 0) {
        sim::Process process;
        process.path = "C:\\Apps\\" + name;
        process.load = load;
        process.workingSet = 12'345 * 1024;
        return sim::addProcess(process);
    }
    // Starts a process and opens its graph.
    graphs::iCPU& Open(const std::string& name = "notepad.exe", double load = 0) {
        const platform::ProcessId id = Run(name, load);
        REQUIRE(graphs.Launch(name, id) == Launched::Opened);
        int slot = 1;
        while (graphs.InSlot(slot) == nullptr || graphs.InSlot(slot)->PID() != id) ++slot;
        return *graphs.InSlot(slot);
    }
    static void Tick(int count = 1) {
        for (int tick = 0; tick < count; ++tick) sim::run(graphs::kSampleMilliseconds);
    }
    static void MovePointerAway(platform::Window& window) { sim::setPointer(window, {-500, -500}); }

    Reset reset;
    graphs::GraphOptions options = graphs::LoadGraphOptions({});
    process::ErrorCounters errors;
    process::ProcessAccess access{errors};
    controls::BalloonTips tips;
    settings::Settings settings;
    graphs::CpuGraphs graphs{{options, access, tips, settings}};
};

// Chooses the item with this text from the menu that a right click at the window opens; `look` may look at all of
// it first.
inline void Choose(platform::Window& window, const std::string& text,
                   const std::function<void(const std::vector<platform::MenuItem>&)>& look = {}) {
    sim::whenMenu([&](std::vector<platform::MenuItem> items) {
        if (look) look(items);
        const auto inner = items[0].submenu;
        items.insert(items.end(), inner.begin(), inner.end());
        const auto chosen = std::ranges::find(items, text, &platform::MenuItem::text);
        return chosen == items.end() || text.empty() ? 0 : chosen->id;
    });
    sim::click(window, {50, 60}, platform::MouseButton::Right);
}

// Items parted by "|": "text", "text*" when checked, "-" for a separator, "text (first|second*)" with a menu.
inline std::string Described(const std::vector<platform::MenuItem>& items) {
    std::string described;
    for (const auto& item : items) {
        if (!described.empty()) described += '|';
        described += item.id == 0 ? "-" : item.text + (item.checked ? "*" : "");
        if (!item.submenu.empty()) described += " (" + Described(item.submenu) + ")";
    }
    return described;
}

inline int CountPixels(platform::Window& window, Color color) {
    const platform::Size size = window.clientSize();
    int count = 0;
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) count += sim::pixelAt(window, {x, y}) == color ? 1 : 0;
    }
    return count;
}

}  // namespace graphtest
