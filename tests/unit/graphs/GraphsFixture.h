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
        for (int slot = 1; slot <= settings::kGraphSlots; ++slot) {
            graphs::iCPU* graph = graphs.InSlot(slot);
            if (graph != nullptr && graph->PID() == id) return *graph;
        }
        FAIL("no graph");
        return *graphs.InSlot(1);
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
    sim::whenMenu([&](const std::vector<platform::MenuItem>& items) {
        if (look) look(items);
        for (const auto& item : items) {
            if (item.text == text) return item.id;
            for (const auto& inner : item.submenu) {
                if (inner.text == text) return inner.id;
            }
        }
        return 0;
    });
    sim::click(window, {50, 60}, platform::MouseButton::Right);
}

// "text", "text*" when checked, "-" for a separator, "text > first, second*" with a menu of its own.
inline std::vector<std::string> Described(const std::vector<platform::MenuItem>& items) {
    std::vector<std::string> described;
    for (const auto& item : items) {
        std::string text = item.id == 0 ? "-" : item.text + (item.checked ? "*" : "");
        const char* before = " > ";
        for (const std::string& inner : Described(item.submenu)) {
            text += before + inner;
            before = ", ";
        }
        described.push_back(text);
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
