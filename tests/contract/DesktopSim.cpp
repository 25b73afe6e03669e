#include "contract/Desktop.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/sim/Sim.h"

namespace contract {

namespace sim = platform::sim;
using platform::Point;
using platform::Window;

platform::Color pixelAt(Window& window, Point at) {
    window.update();
    return sim::pixelAt(window, at);
}

void movePointer(Window& window, Point at) {
    sim::setPointer(window, at);
}

platform::Pointer shownPointer() {
    return sim::pointerShape();
}

Shown shownThrough(const Window& window) {
    const sim::Translucency translucency = sim::translucency(window);
    return {translucency.alpha, translucency.hole};
}

void clickOnScreen(Window& window, Point at) {
    sim::clickOnScreen(window.toScreen(at));
}

void dragOnScreen(Window& window, Point at, Point delta) {
    sim::whenDragged(delta);
    sim::click(window, at);
}

void mouseDown(Window& window, Point at, platform::MouseButton button, platform::Modifiers modifiers) {
    sim::mouseDown(window, at, button, modifiers);
}

void mouseUp(Window& window, Point at, platform::MouseButton button) {
    sim::mouseUp(window, at, button);
}

void doubleClick(Window& window, Point at) {
    sim::doubleClick(window, at);
}

void wheel(Window& window, Point at, int delta) {
    sim::wheel(window, at, delta);
}

void pressKey(std::uint16_t code, platform::Modifiers modifiers) {
    sim::pressKey(code, modifiers);
}

void moveKey(std::uint16_t code, bool down) {
    if (down) {
        sim::holdKey(code);
    } else {
        sim::releaseKey(code);
    }
}

void paste(const std::string& text) {
    sim::pasteText(text);
}

void typeText(const std::string& text) {
    sim::typeText(text);
}

void closeBox(Window& window) {
    sim::closeBox(window);
}

void dragFrame(Window& window, const platform::Rect& bounds) {
    sim::dragFrame(window, bounds);
}

void dropFiles(Window& window, const std::vector<std::string>& paths) {
    sim::dropFiles(window, paths);
}

void changeSystemColors(Window&) {
    sim::setSystemColor(platform::SysColor::Window, platform::systemColor(platform::SysColor::Window));
}

void restartShell(Window&) {
    sim::restartShell();
}

void endSession(Window&) {
    sim::endSession();
}

void runModal(Window& dialog, Window& owner, std::function<void()> script) {
    sim::whenModal([script](Window&) { script(); });
    platform::runModal(dialog, owner);
}

void trayEvent(Window&, std::uint32_t, platform::TrayEvent event) {
    sim::trayEvent(event);
}

namespace {

// The item that so many steps down lead to; separators are passed over.
platform::MenuItem itemAt(const std::vector<platform::MenuItem>& items, int downs) {
    int passed = 0;
    for (const platform::MenuItem& item : items) {
        if (item.id != 0 && ++passed == downs) return item;
    }
    return {};
}

}  // namespace

void answerMenu(int downs) {
    sim::whenMenu([downs](const std::vector<platform::MenuItem>& items) { return itemAt(items, downs).id; });
}

void answerSubmenu(int downs, int inside) {
    sim::whenMenu([=](const std::vector<platform::MenuItem>& items) {
        return itemAt(itemAt(items, downs).submenu, inside).id;
    });
}

void dismissMenu() {
    sim::whenMenu([](const std::vector<platform::MenuItem>&) { return 0; });
}

std::string programWithIcon() {
    return platform::programPath();
}

}  // namespace contract
