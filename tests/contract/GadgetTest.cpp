// Windows that stand on the desktop by themselves: what they are told, being seen through, being dragged by any
// place.
#include "contract/Probe.h"
#include "platform/Instance.h"
#include "platform/Keys.h"
#include "platform/Menu.h"
#include "platform/OtherWindows.h"
#include "platform/Timer.h"
#include "platform/Tooltip.h"

using namespace contract;
using namespace platform;

namespace {

constexpr Rect kPlace{600, 200, 720, 280};

// A gadget, shown and painted, beside a main window that it has nothing to do with.
struct OnDesktop : Desk {
    Probe gadget{"gadget", log};

    OnDesktop() {
        REQUIRE(gadget.createGadget(kPlace, &main));
        gadget.show(ShowCommand::Show);
        REQUIRE(waitFor([this] { return has(log, "gadget paint") && gadget.focused(); }));
        log.clear();
    }
    // A pointer that is moved by a program may be reported where it was before, so it is clicked until it is there.
    bool click(Probe& window, Point at, const std::string& event) {
        return waitFor([&] {
            contract::clickOnScreen(window, at);
            pumpMessages();
            return has(log, event);
        });
    }
    // A display may still show the other window on top, and a click there raises that one: both are done anew.
    bool clickRaised(Probe& upper, Point at, const std::string& event, const std::string& other) {
        return waitFor([&] {
            upper.bringToFront();
            log.clear();
            contract::clickOnScreen(gadget, at);
            pumpMessages();
            return has(log, event) && !has(log, other);
        });
    }
};

bool isAbove(const Window& upper, const Window& lower) {
    const std::vector<std::uintptr_t> all = topLevelWindowNumbers();
    const auto at = [&all](const Window& window) { return std::find(all.begin(), all.end(), window.native()); };
    return at(upper) < at(lower);
}

}  // namespace

TEST_CASE("a gadget is all client area, hidden at first and nobody's") {
    Desk desk;
    Probe gadget("gadget", desk.log);
    REQUIRE(gadget.createGadget(kPlace, &desk.main));
    CHECK(desk.log == Log{"gadget size 120x80"});
    CHECK_FALSE(gadget.visible());
    CHECK(gadget.bounds() == kPlace);
    CHECK(gadget.normalBounds() == kPlace);
    CHECK(gadget.toScreen({0, 0}) == kPlace.origin());
    const auto facts = windowFacts(gadget.native());
    REQUIRE(facts);
    CHECK(facts->owner == 0);
    CHECK(facts->parent == 0);
    constexpr std::uint32_t kFrames = 0x40C4'0000;  // child, border or caption, thick frame
    CHECK((facts->style & kFrames) == 0);

    gadget.show(ShowCommand::Show);
    CHECK(waitFor([&] { return gadget.focused(); }));
    desk.main.show(ShowCommand::Hide);
    CHECK(gadget.visible());
    desk.main.destroy();
    CHECK(gadget.exists());
    gadget.destroy();
    CHECK(count(desk.log, "gadget destroyed") == 1);
}

TEST_CASE("a gadget is told what any window is told") {
    OnDesktop on;
    contract::pressKey(key::kF5);
    CHECK(on.log == Log{"gadget key 116", "gadget keyup 116"});
    on.main.focus();
    CHECK(on.click(on.gadget, {30, 40}, "gadget up left 30,40"));
    CHECK(has(on.log, "gadget down left held 30,40"));
    CHECK(waitFor([&] { return on.gadget.focused(); }));
    on.gadget.startTimer(3, 10);
    CHECK(waitFor([&] { return has(on.log, "gadget timer 3"); }));
    on.gadget.setBounds({600, 200, 650, 220});
    CHECK(has(on.log, "gadget size 50x20"));
    on.gadget.setTopmost(true);
    on.gadget.setTopmost(false);

    contract::answerMenu(1);
    CHECK(showMenu(on.gadget, on.gadget.toScreen({5, 5}), {{10, "Only"}}) == 10);
    const TooltipHandle tooltip = createTooltip();
    CHECK(addTool(tooltip, on.gadget, "text"));

    on.gadget.keepOpen = true;
    contract::closeBox(on.gadget);
    CHECK(waitFor([&] { return has(on.log, "gadget close"); }));
    CHECK(on.gadget.exists());
}

TEST_CASE("of gadgets that overlap the uppermost gets the mouse") {
    OnDesktop on;
    Probe second("second", on.log);
    REQUIRE(second.createGadget(kPlace.offset(40, 20)));
    second.show(ShowCommand::Show);
    CHECK(waitFor([&] { return isAbove(second, on.gadget); }));
    CHECK(on.clickRaised(second, {60, 50}, "second up left 20,30", "gadget up left 60,50"));
    on.gadget.bringToFront();
    CHECK(waitFor([&] { return isAbove(on.gadget, second); }));
    CHECK(on.clickRaised(on.gadget, {60, 50}, "gadget up left 60,50", "second up left 20,30"));
    second.setTopmost(true);
    CHECK(waitFor([&] { return isAbove(second, on.gadget); }));
    CHECK(on.click(on.gadget, {61, 51}, "second up left 21,31"));
    on.gadget.bringToFront();
    CHECK(waitFor([&] { return on.gadget.focused(); }));
    on.log.clear();
    CHECK(on.click(on.gadget, {62, 52}, "second up left 22,32"));
}

TEST_CASE("a window can be seen through and goes on painting") {
    OnDesktop on;
    const auto paintsAgain = [&on] {
        on.log.clear();
        on.gadget.invalidate();
        CHECK(contract::pixelAt(on.gadget, {100, 70}) == rgb(255, 255, 255));
        return count(on.log, "gadget paint") == 1;
    };
    CHECK(contract::shownThrough(on.gadget).alpha == 255);
    CHECK(on.gadget.setTranslucency(128));
    CHECK(contract::shownThrough(on.gadget).alpha == 128);
    CHECK_FALSE(contract::shownThrough(on.gadget).hole);
    CHECK(paintsAgain());
    CHECK(on.gadget.setTranslucency(255, rgb(255, 0, 255)));
    CHECK(contract::shownThrough(on.gadget).alpha == 255);
    CHECK(contract::shownThrough(on.gadget).hole == rgb(255, 0, 255));
    CHECK(paintsAgain());
    CHECK(on.gadget.setTranslucency(0, rgb(0, 0, 0)));
    CHECK(contract::shownThrough(on.gadget).alpha == 0);
    CHECK(contract::shownThrough(on.gadget).hole == rgb(0, 0, 0));  // no colour is none
    CHECK(on.gadget.setTranslucency(255));
    CHECK(contract::shownThrough(on.gadget).alpha == 255);
    CHECK_FALSE(contract::shownThrough(on.gadget).hole);
    CHECK(paintsAgain());
    CHECK(on.gadget.setTranslucency(200));
    CHECK(on.main.setTranslucency(200));  // any top-level window can
    CHECK(on.main.setTranslucency(255));
    CHECK_FALSE(on.a.setTranslucency(200));
    on.gadget.destroy();
    CHECK_FALSE(on.gadget.setTranslucency(200));
}

TEST_CASE("a gadget is dragged by any place of it, while timers go on") {
    OnDesktop on;
    on.gadget.dragsByPress = true;
    on.gadget.startTimer(3, 10);
    const auto dragged = [&on](Point at, Point delta) {
        return waitFor([&] {
            on.gadget.setBounds(kPlace);
            on.log.clear();
            contract::dragOnScreen(on.gadget, at, delta);
            return on.gadget.bounds() == kPlace.offset(delta.x, delta.y);
        });
    };
    CHECK(dragged({30, 40}, {70, 55}));
    CHECK(count(on.log, "gadget dragged") == 1);
    CHECK(has(on.log, "gadget timer 3"));
    CHECK_FALSE(has(on.log, "gadget up left 30,40"));  // the drag took it
    CHECK(dragged({119, 1}, {-200, 10}));
    SUBCASE("let go where it was pressed, it stays where it is") {
        CHECK(waitFor([&] {
            on.gadget.setBounds(kPlace);
            on.log.clear();
            contract::dragOnScreen(on.gadget, {50, 50}, {0, 0});
            return has(on.log, "gadget dragged");
        }));
        CHECK(on.gadget.bounds() == kPlace);
        CHECK_FALSE(has(on.log, "gadget up left 50,50"));
    }
    SUBCASE("without a button that is down nothing is dragged") {
        on.gadget.setBounds(kPlace);
        on.gadget.dragAsByCaption();
        CHECK(on.gadget.bounds() == kPlace);
    }
    SUBCASE("a capture ends with it") {
        on.gadget.capture();
        CHECK(dragged({30, 40}, {20, 20}));
        CHECK_FALSE(on.gadget.captured());
    }
}

TEST_CASE("a window may go while it is dragged") {
    OnDesktop on;
    on.gadget.dragsByPress = true;
    const TimerHandle timer = startTimer(20, [&on](std::uintptr_t) {
        if (has(on.log, "gadget down left held 30,40")) on.gadget.destroy();
    });
    CHECK(waitFor([&on] {
        on.log.clear();
        contract::dragOnScreen(on.gadget, {30, 40}, {50, 50});
        return !on.gadget.exists();
    }));
    CHECK(only(on.log, {"gadget destroyed", "gadget dragged"}) == Log{"gadget destroyed", "gadget dragged"});
}

TEST_CASE("a key is down from its press until it is let go, whoever has the focus") {
    OnDesktop on;
    CHECK_FALSE(keyDown(key::kShift));
    contract::moveKey(key::kShift, true);
    CHECK(waitFor([] { return keyDown(key::kShift); }));
    CHECK_FALSE(keyDown(key::kCtrl));
    contract::moveKey(key::kShift, false);
    CHECK(waitFor([] { return !keyDown(key::kShift); }));
}
