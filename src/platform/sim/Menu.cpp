// Pop-up menus of the simulated desktop are answered by the test.
#include "platform/Menu.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

bool offers(const std::vector<MenuItem>& items, int id) {
    return std::any_of(items.begin(), items.end(), [id](const MenuItem& item) {
        return item.enabled && (item.submenu.empty() ? item.id == id : offers(item.submenu, id));
    });
}

// What the test's user chooses; 0 without a script.
int answer(const std::vector<MenuItem>& items) {
    auto& scripts = machine().desktop.menuScripts;
    if (scripts.empty()) return 0;
    const auto script = std::move(scripts.front());
    scripts.pop_front();
    const int id = script(items);
    if (id != 0 && !offers(items, id)) {
        sim::fail(("the menu does not offer " + std::to_string(id) + ", or greyed").c_str());
    }
    return id;
}

}  // namespace

Size menuPictureSize() {
    return {13, 13};
}

int showMenu(const Window& owner, Point, const std::vector<MenuItem>& items) {
    // By number: the owner's object may be gone before this ends.
    const std::uintptr_t native = owner.native();
    if (!sim::findRecord(native)) return 0;
    sim::note("showMenu");
    sim::setCapture(0);
    sim::run(sim::kModalMilliseconds);
    if (!sim::findRecord(native)) return 0;  // the menu went with its owner, before the user chose
    const int id = answer(items);
    return sim::findRecord(native) ? id : 0;
}

Point pointerPosition() {
    return machine().desktop.pointer;
}

void sim::whenMenu(std::function<int(const std::vector<MenuItem>& items)> script) {
    machine().desktop.menuScripts.push_back(std::move(script));
}

}  // namespace platform
