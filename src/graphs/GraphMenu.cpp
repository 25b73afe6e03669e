#include "graphs/GraphMenu.h"

#include <iterator>
#include <vector>

#include "controls/PictureMenu.h"

namespace graphs {

namespace {

struct Time {
    const char* text;
    int divisor;
};
// A reading every 600 ms fills the graph in a minute. Two minutes are what "3 Minutes" has always been.
constexpr Time kTimes[] = {{"1 Minute", 1}, {"3 Minutes", 2}, {"5 minutes", 5}};

}  // namespace

int DivisorOfCommand(int id) {
    const int index = id - command::kTime;
    return index >= 0 && index < static_cast<int>(std::size(kTimes)) ? kTimes[index].divisor : 0;
}

int ShowGraphMenu(const platform::Window& owner, platform::Point screen, const GraphMenuState& state) {
    std::vector<controls::MenuEntry> times;
    for (const Time& time : kTimes) {
        const int id = command::kTime + static_cast<int>(times.size());
        times.push_back({id, time.text, -1, true, time.divisor == state.divisor});
    }
    const controls::MenuEntry entries[] = {
        // clang-format off
        {command::kGraphTime, "Graph Time", -1, true, false, times},
        {},
        {command::kStayOnTop, "Stay On Top", -1, true, state.stayOnTop},
        {command::kEdgeDetection, "Edge Detection", -1, true, state.edgeDetection},
        {command::kShowCaption, "Show Caption", -1, true, state.showCaption},
        {},
        {command::kRememberPositions, "Remember Positions"},
        {command::kForgetPositions, "Forget Positions"},
        {},
        {command::kHideAll, "Hide All Graphs"},
        {command::kCloseAll, "Close All Graphs"},
        {},
        {command::kHide, "Hide"},
        {command::kClose, "Close"},
        // clang-format on
    };
    return controls::ShowPictureMenu(owner, screen, entries);
}

}  // namespace graphs
