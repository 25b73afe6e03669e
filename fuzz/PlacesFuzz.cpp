// Places of windows and graphs, kept as text: whatever is stored, on whatever screens there are now, every window
// that the user asks for comes where they can reach it.
#include <algorithm>
#include <string>
#include <vector>

#include "Bytes.h"
#include "Fuzz.h"
#include "graphs/GraphPlaces.h"
#include "platform/sim/Sim.h"
#include "settings/Settings.h"
#include "settings/WindowPosition.h"

namespace sim = platform::sim;
using platform::Rect;

namespace {

constexpr int kLongestText = 24;
constexpr int kMostScreens = 3;

int Coordinate(fuzz::Bytes& bytes) {
    return bytes.Byte() * 32 - 4096;
}

// The first one has the origin, the others lie anywhere.
void PutScreens(fuzz::Bytes& bytes) {
    std::vector<Rect> screens{{0, 0, 320 + bytes.Byte() * 16, 200 + bytes.Byte() * 16}};
    for (int more = bytes.Below(kMostScreens); more > 0; --more) {
        const platform::Point at{Coordinate(bytes), Coordinate(bytes)};
        screens.push_back(Rect::fromSize(at, {320 + bytes.Byte() * 16, 200 + bytes.Byte() * 16}));
    }
    sim::setScreens(screens);
}

std::string Text(fuzz::Bytes& bytes) {
    return std::string(bytes.Text(bytes.Below(kLongestText)));
}

void RequireGraphsInReach(const settings::Settings& store) {
    std::vector<Rect> taken;
    for (int slot = 1; slot <= settings::kGraphSlots; ++slot) {
        if (const auto place = graphs::RememberedPlace(slot, store)) {
            fuzz::Require(place->size() == graphs::kGraphSize &&
                          platform::onAnyScreen(settings::ReachableBounds(*place)));
        }
        const Rect free = graphs::FreePlace(slot, store, taken);
        fuzz::Require(free.size() == graphs::kGraphSize && platform::onAnyScreen(free));
        taken.push_back(free);
    }
}

void RequireWindowInReach(settings::Settings& store) {
    platform::Window window;
    fuzz::Require(window.create({platform::WindowKind::Main, "Form1", "Kestrum 2", nullptr, {10, 10, 300, 200}}));
    const bool stored = settings::ParseWindowPosition(store.Position("Form1")).has_value();
    fuzz::Require(settings::RestoreWindowPosition(window, "Form1", store) == stored);
    settings::SaveWindowPosition(window, "Form1", store);
    const Rect before = window.bounds();
    fuzz::Require(settings::RestoreWindowPosition(window, "Form1", store) && window.bounds() == before);
    settings::BringWithinReach(window);
    fuzz::Require(platform::onAnyScreen(window.bounds()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    sim::reset();
    PutScreens(bytes);
    sim::putSetting(settings::kSection, "Form1_Pos", Text(bytes));
    while (!bytes.Empty()) {
        const std::string slot = std::to_string(1 + bytes.Below(settings::kGraphSlots));
        sim::putSetting(settings::kSection, "GraphTop" + slot, Text(bytes));
        sim::putSetting(settings::kSection, "GraphLeft" + slot, Text(bytes));
    }
    settings::Settings store;
    RequireGraphsInReach(store);
    RequireWindowInReach(store);
    return 0;
}
