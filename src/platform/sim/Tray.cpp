// The notification area of the simulated machine.
#include "platform/Tray.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

sim::ShellIcon* findIcon(const Window& owner, std::uint32_t id) {
    auto& state = machine();
    if (!state.shellRunning) return nullptr;
    const auto found = std::find_if(
        state.trayIcons.begin(), state.trayIcons.end(),
        [&owner, id](const sim::ShellIcon& shown) { return shown.owner == owner.native() && shown.icon.id == id; });
    return found == state.trayIcons.end() ? nullptr : &*found;
}

std::string shortTip(const std::string& tip) {
    return tip.substr(0, 127);
}

// The shell copies the icon; one that is not open gives it nothing to show.
sim::TrayIcon shellCopy(std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    sim::TrayIcon copy{id, icon, shortTip(tip), {}, {}, {}};
    if (const sim::IconData* data = machine().icons.find(icon)) {
        copy.source = data->source;
        copy.size = data->size;
        copy.pixels = data->pixels;
    }
    return copy;
}

}  // namespace

bool trayAdd(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    sim::note("trayAdd", std::to_string(id));
    if (!machine().shellRunning || !owner.exists() || findIcon(owner, id) != nullptr) return false;
    machine().trayIcons.push_back({owner.native(), shellCopy(id, icon, tip)});
    return true;
}

bool trayModify(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    sim::note("trayModify", std::to_string(id));
    sim::ShellIcon* shown = findIcon(owner, id);
    if (shown == nullptr) return false;
    if (icon == 0) {
        shown->icon.tip = shortTip(tip);
    } else {
        shown->icon = shellCopy(id, icon, tip);
    }
    return true;
}

bool trayDelete(const Window& owner, std::uint32_t id) {
    sim::note("trayDelete", std::to_string(id));
    const sim::ShellIcon* shown = findIcon(owner, id);
    if (shown == nullptr) return false;
    machine().trayIcons.erase(machine().trayIcons.begin() + (shown - machine().trayIcons.data()));
    return true;
}

bool trayBalloon(const Window& owner, std::uint32_t id, const std::string& title, const std::string& text,
                 BalloonIcon icon) {
    sim::note("trayBalloon", title);
    if (findIcon(owner, id) == nullptr) return false;
    machine().balloons.push_back({title.substr(0, 63), text.substr(0, 255), icon});
    return true;
}

namespace sim {

std::vector<TrayIcon> trayIcons() {
    std::vector<TrayIcon> icons;
    for (const ShellIcon& shown : machine().trayIcons) icons.push_back(shown.icon);
    return icons;
}

void trayEvent(TrayEvent event) {
    if (machine().trayIcons.empty()) fail("trayEvent: there is no icon in the notification area");
    const WindowPointer owner = findRecord(machine().trayIcons.front().owner);
    if (owner && owner->object != nullptr) WindowAccess::tray(*owner->object, event);
}

std::vector<Balloon> balloons() {
    return machine().balloons;
}

void setShellRunning(bool running) {
    machine().shellRunning = running;
    if (!running) machine().trayIcons.clear();
}

}  // namespace sim

}  // namespace platform
