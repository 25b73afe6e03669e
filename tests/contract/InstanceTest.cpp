#include "platform/Instance.h"

#include <algorithm>
#include <string>
#include <vector>

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("a mutex exists for as long as somebody has it open") {
    contract::freshMachine();
    const std::string name = "Kestrum2 Contract";
    CreatedMutex first = createMutex(name);
    REQUIRE(first.handle);
    CHECK_FALSE(first.existed);
    CreatedMutex second = createMutex(name);
    CHECK(second.handle);
    CHECK(second.existed);
    const CreatedMutex other = createMutex(name + " 2");
    CHECK(other.handle);
    CHECK_FALSE(other.existed);

    SUBCASE("releasing it does not end it") {
        releaseMutex(first.handle);
        CHECK(createMutex(name).existed);
    }
    SUBCASE("closing every handle frees the name") {
        first.handle.reset();
        CHECK(createMutex(name).existed);
        second.handle.reset();
        CHECK_FALSE(createMutex(name).existed);
        CHECK_FALSE(createMutex(name).existed);  // the one before has closed itself
    }
    releaseMutex(second.handle);  // not, or not any more, a handle of the owner: nothing happens
    releaseMutex({});
}

TEST_CASE("a number on a window, for others to find") {
    Desk desk;
    const std::uintptr_t number = desk.main.native();
    CHECK(windowProperty(number, "Mark") == 0);
    CHECK(setWindowProperty(desk.main, "Mark", 7));
    CHECK(setWindowProperty(desk.main, "Other", 8));
    CHECK(windowProperty(number, "Mark") == 7);
    CHECK(windowProperty(desk.a.native(), "Mark") == 0);
    CHECK(setWindowProperty(desk.main, "Mark", 9));
    CHECK(windowProperty(number, "Mark") == 9);
    removeWindowProperty(desk.main, "Mark");
    CHECK(windowProperty(number, "Mark") == 0);
    removeWindowProperty(desk.main, "Mark");
    CHECK(windowProperty(number, "Other") == 8);
    desk.main.destroy();
    CHECK(windowProperty(number, "Other") == 0);
}

TEST_CASE("windows are found by number, the uppermost first, and know their parents") {
    Desk desk;
    Probe above("above", desk.log);
    Probe hidden("hidden", desk.log);
    Probe dialog("dialog", desk.log);
    REQUIRE(hidden.createMain());
    REQUIRE(above.createMain());
    above.show(ShowCommand::Show);
    REQUIRE(dialog.createDialog(&desk.main));

    const std::vector<std::uintptr_t> all = topLevelWindowNumbers();
    const auto at = [&](const Window& window) { return std::find(all.begin(), all.end(), window.native()); };
    for (const Window* listed : {&desk.main, &above, &hidden, &dialog}) CHECK(at(*listed) != all.end());
    CHECK(at(desk.a) == all.end());
    CHECK(at(above) < at(desk.main));

    CHECK(parentWindow(desk.a.native()) == desk.main.native());
    CHECK(parentWindow(dialog.native()) == desk.main.native());  // of a dialog: its owner
    CHECK(parentWindow(desk.main.native()) == 0);
}

TEST_CASE("a window is shown in its normal state, whatever it was in") {
    Desk desk;
    const Rect normal = desk.main.bounds();
    for (const ShowCommand before : {ShowCommand::Minimize, ShowCommand::Maximize, ShowCommand::Hide}) {
        CAPTURE(static_cast<int>(before));
        desk.main.show(before);
        showNormalAsync(desk.main.native());
        CHECK(waitFor([&] { return desk.main.visible() && desk.main.state() == WindowState::Normal; }));
        CHECK(desk.main.bounds() == normal);
    }
}

TEST_CASE("a window is brought to the front by its number") {
    Desk desk;
    desk.b.focus();
    Probe above("above", desk.log);
    REQUIRE(above.createMain());
    above.show(ShowCommand::Show);
    pumpMessages();
    CHECK_FALSE(desk.b.focused());
    bringWindowToFront(desk.main.native());
    CHECK(waitFor([&] { return desk.b.focused(); }));
}

TEST_CASE("a text sent to a window has arrived when the call returns") {
    Desk desk;
    sendText(desk.a.native(), "C:\\Ordner \xC3\xBC\\a.exe");
    CHECK(desk.log == Log{"a says C:\\Ordner \xC3\xBC\\a.exe"});
    const std::string huge = std::string(69999, 'x') + "y";
    sendText(desk.main.native(), huge);
    CHECK(desk.main.text() == huge);
    CHECK(count(desk.log, "main says " + huge) == 1);
    sendText(desk.a.native(), "");
    CHECK(desk.a.text().empty());
    CHECK(desk.log.back() == "a says ");
}

TEST_CASE("a window that is gone, or never was, is refused by every call") {
    Desk desk;
    const std::uintptr_t gone = desk.a.native();
    desk.a.destroy();
    CHECK_FALSE(setWindowProperty(desk.a, "Mark", 1));
    removeWindowProperty(desk.a, "Mark");
    const std::vector<std::uintptr_t> all = topLevelWindowNumbers();
    CHECK(std::find(all.begin(), all.end(), gone) == all.end());
    for (const std::uintptr_t number : {gone, std::uintptr_t{0}, std::uintptr_t{0xFFFF}}) {  // 0xFFFF: all windows
        CAPTURE(number);
        CHECK(windowProperty(number, "Mark") == 0);
        CHECK(parentWindow(number) == 0);
        showNormalAsync(number);
        bringWindowToFront(number);
        sendText(number, "text");
    }
    pumpMessages();
    CHECK(desk.main.text() == "main");
    CHECK(desk.b.text() == "b");
    CHECK_FALSE(has(desk.log, "main says text"));
}
