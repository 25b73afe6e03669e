// Mouse, keys and focus.
#include <string>

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("the mouse is held by one window, which is told when it loses it") {
    Desk desk;
    desk.a.capture();
    CHECK(desk.a.captured());
    SUBCASE("releasing") {
        desk.b.releaseCapture();  // not its to release
        CHECK(desk.a.captured());
        CHECK(desk.log.empty());
        desk.a.releaseCapture();
        CHECK_FALSE(desk.a.captured());
        CHECK(desk.log == Log{"a captureLost"});
        desk.a.releaseCapture();
        CHECK(desk.log == Log{"a captureLost"});
    }
    SUBCASE("another window takes it") {
        desk.b.capture();
        CHECK(desk.b.captured());
        CHECK_FALSE(desk.a.captured());
        CHECK(desk.log == Log{"a captureLost"});
    }
    SUBCASE("taking it again takes it from nobody") {
        desk.a.capture();
        CHECK(desk.a.captured());
        CHECK(desk.log.empty());
    }
    SUBCASE("hiding keeps it") {
        desk.a.show(ShowCommand::Hide);
        CHECK(desk.a.captured());
        CHECK_FALSE(has(desk.log, "a captureLost"));
    }
    SUBCASE("destroying tells nobody") {
        desk.a.destroy();
        CHECK_FALSE(has(desk.log, "a captureLost"));
        CHECK(has(desk.log, "a destroyed"));
    }
    SUBCASE("a modal dialog takes it away") {
        Probe dialog("dialog", desk.log);
        REQUIRE(dialog.createDialog(&desk.main));
        contract::runModal(dialog, desk.main, [&] {
            CHECK(has(desk.log, "a captureLost"));
            CHECK_FALSE(desk.a.captured());
            dialog.destroy();
        });
    }
}

TEST_CASE("Tab moves the focus from tab stop to tab stop, in order of creation") {
    Desk desk;
    Probe box("box", desk.log);
    Probe nested("nested", desk.log);
    Probe last("last", desk.log);
    REQUIRE(box.createIn(&desk.main, {10, 70, 200, 150}));  // no tab stop itself
    REQUIRE(nested.createIn(&box, {0, 0, 50, 20}, true));
    REQUIRE(last.createIn(&desk.main, {10, 160, 60, 180}, true));
    const auto tab = [](bool backward = false) { contract::pressKey(key::kTab, {backward, false, false}); };

    desk.a.focus();
    REQUIRE(desk.a.focused());
    desk.log.clear();
    tab();
    CHECK(desk.log == Log{"a blur", "b focus"});
    tab();
    CHECK(nested.focused());
    tab();
    CHECK(last.focused());
    tab();
    CHECK(desk.a.focused());
    tab(true);
    CHECK(last.focused());
    tab(true);
    CHECK(nested.focused());

    SUBCASE("hidden and disabled windows are left out, with all that is inside") {
        desk.b.enable(false);
        box.show(ShowCommand::Hide);
        desk.a.focus();
        tab();
        CHECK(last.focused());
        CHECK_FALSE(desk.b.enabled());
    }
    SUBCASE("from a window that is no tab stop it starts at an end") {
        desk.main.focus();
        tab();
        CHECK(desk.a.focused());
        desk.main.focus();
        tab(true);
        CHECK(last.focused());
    }
    SUBCASE("other keys arrive, with what is held") {
        desk.b.focus();
        desk.log.clear();
        contract::pressKey(key::kEnter);
        contract::pressKey('A', {true, true, false});
        CHECK(desk.log == Log{"b key 13", "b keyup 13", "b key shift ctrl 65", "b keyup shift ctrl 65"});
    }
}

TEST_CASE("a control that is hidden gives the focus to its parent") {
    Desk desk;
    desk.a.focus();
    desk.a.show(ShowCommand::Hide);
    CHECK(desk.main.focused());
}

TEST_CASE("buttons, wheel and double clicks are decoded") {
    Desk desk;
    contract::mouseDown(desk.a, {3, 4}, MouseButton::Right, {true, true, false});
    contract::mouseUp(desk.a, {3, 4}, MouseButton::Right);
    contract::mouseDown(desk.a, {5, 6}, MouseButton::Middle);
    contract::mouseUp(desk.a, {5, 6}, MouseButton::Middle);
    CHECK(desk.log == Log{"a down right shift ctrl 3,4", "a up right 3,4", "a down middle 5,6", "a up middle 5,6"});

    desk.log.clear();
    contract::doubleClick(desk.a, {7, 8});
    CHECK(desk.log == Log{"a down left held 7,8", "a up left 7,8", "a double left held 7,8", "a up left 7,8"});

    SUBCASE("outside the window while it holds the mouse") {
        desk.a.capture();
        desk.log.clear();
        contract::mouseUp(desk.a, {-20, -30}, MouseButton::Left);
        CHECK(has(desk.log, "a up left -20,-30"));
    }
    SUBCASE("the wheel goes where the pointer is, not where the focus is") {
        desk.a.focus();
        desk.log.clear();
        contract::wheel(desk.b, {30, 20}, 120);
        contract::wheel(desk.b, {30, 20}, -240);
        CHECK(only(desk.log, {"b wheel 120 30,20", "b wheel -240 30,20"}).size() == 2);
    }
}

TEST_CASE("a window is told that the pointer comes, moves and leaves") {
    Desk desk;
    for (Probe* probe : {&desk.main, &desk.a, &desk.b}) probe->notesPointer = true;
    // A pointer that is moved by a program may be reported where it was before, so it is moved until it is there.
    const auto reaches = [&](Probe& window, Point at, const std::string& event) {
        return waitFor([&] {
            contract::movePointer(window, at);
            pumpMessages();
            return has(desk.log, event) && window.underPointer();
        });
    };
    CHECK(reaches(desk.main, {300, 200}, "main move 300,200"));
    CHECK(reaches(desk.a, {20, 30}, "a move 20,30"));
    CHECK_FALSE(has(desk.log, "b move 20,30"));
    CHECK_FALSE(has(desk.log, "b leave"));  // it was never there

    const auto leaves = [&](Probe& from, Probe& to, const std::string& event) {
        desk.log.clear();
        return waitFor([&] {
            contract::movePointer(from, {20, 30});
            pumpMessages();
            contract::movePointer(to, {20, 30});
            pumpMessages();
            return has(desk.log, event);
        });
    };
    CHECK(leaves(desk.a, desk.b, "a leave"));
    CHECK(leaves(desk.b, desk.a, "b leave"));
    // While it holds the mouse the pointer does not leave it.
    desk.a.capture();
    desk.log.clear();
    CHECK(waitFor([&] {
        contract::movePointer(desk.b, {20, 30});
        pumpMessages();
        return has(desk.log, "a move 130,30");
    }));
    CHECK_FALSE(has(desk.log, "a leave"));
    desk.a.releaseCapture();
}
