#include <algorithm>

#include "contract/Desktop.h"

namespace contract {

Color pixelAt(Window& window, Point at) {
    window.update();
    return sim::pixelAt(window, at);
}

void clickOnScreen(Window& window, Point at) {
    sim::clickOnScreen(window.toScreen(at));
}

void dragOnScreen(Window& window, Point at, Point delta) {
    sim::whenDragged(delta);
    sim::click(window, at);
}

void moveKey(std::uint16_t code, bool down) {
    down ? sim::keyDown(code) : sim::keyUp(code);
}

void changeSystemColors(Window&) {
    sim::setSystemColor(SysColor::Window, systemColor(SysColor::Window));
}

void restartShell(Window&) {
    sim::restartShell();
}

void endSession(Window&) {
    sim::endSession();
}

void runModal(Window& dialog, std::function<void()> script) {
    sim::whenModal([script](Window&) { script(); });
    platform::runModal(dialog);
}

void trayEvent(Window&, std::uint32_t, TrayEvent event) {
    sim::trayEvent(event);
}

void answerMenu(const std::vector<int>& downs) {
    sim::whenMenu([downs](std::vector<MenuItem> items) {
        int id = 0;
        for (const int down : downs) {
            int passed = 0;
            const auto isIt = [&](const MenuItem& item) { return item.id != 0 && ++passed == down; };
            const MenuItem chosen = *std::find_if(items.begin(), items.end(), isIt);
            id = chosen.id;
            items = chosen.submenu;
        }
        return id;
    });
}

}  // namespace contract
