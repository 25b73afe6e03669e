// Mouse, keys and focus.
#include "contract/Probe.h"
#include "platform/Keys.h"
#include "platform/Menu.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Desk, "the mouse is held by one window, which is told when it loses it") {
    a.capture();
    a.capture();         // from nobody else
    b.releaseCapture();  // not its to release
    CHECK(a.captured());
    CHECK(log.empty());
    b.capture();
    CHECK(b.captured());
    CHECK_FALSE(a.captured());
    CHECK(log == Log{"a captureLost"});
    b.releaseCapture();
    b.releaseCapture();
    CHECK_FALSE(b.captured());
    CHECK(log == Log{"a captureLost", "b captureLost"});

    a.capture();
    log.clear();
    Probe dialog("dialog", log, asDialogOf(main));
    contract::runModal(dialog, [&] {  // which takes it away
        CHECK(has(log, "a captureLost"));
        CHECK_FALSE(a.captured());
        dialog.destroy();
    });

    a.capture();
    log.clear();
    a.show(ShowCommand::Hide);
    CHECK(a.captured());
    a.destroy();
    CHECK_FALSE(has(log, "a captureLost"));
    CHECK(has(log, "a destroyed"));
}

TEST_CASE_FIXTURE(Desk, "Tab moves the focus from tab stop to tab stop, in order of creation") {
    Probe box("box", log, asChildOf(main, {10, 70, 200, 150}));  // no tab stop itself
    Probe nested("nested", log, asChildOf(box, {0, 0, 50, 20}, true));
    Probe last("last", log, asChildOf(main, {10, 160, 60, 180}, true));
    const auto tab = [](bool backward = false) { contract::pressKey(key::kTab, {backward, false, false}); };

    a.focus();
    REQUIRE(a.focused());
    Probe none("none", log);
    none.focus();  // without a system window there is nothing to take it
    log.clear();
    tab();
    CHECK(log == Log{"a blur", "b focus"});
    for (const Probe* next : {&nested, &last, &a}) {
        tab();
        CHECK(next->focused());
    }
    for (const Probe* before : {&last, &nested}) {
        tab(true);
        CHECK(before->focused());
    }

    // From a window that is no tab stop it starts at an end.
    for (const bool backward : {false, true}) {
        main.focus();
        tab(backward);
        CHECK((backward ? last : a).focused());
    }
    // Hidden and disabled windows are left out, with all that is inside.
    b.enable(false);
    CHECK_FALSE(b.enabled());
    box.show(ShowCommand::Hide);
    a.focus();
    tab();
    CHECK(last.focused());

    // Other keys arrive, with what is held.
    log.clear();
    contract::pressKey(key::kEnter);
    contract::pressKey('A', {true, true, false});
    CHECK(log == Log{"last key 13", "last keyup 13", "last key shift ctrl 65", "last keyup shift ctrl 65"});
    last.show(ShowCommand::Hide);  // which gives the focus to its parent
    CHECK(main.focused());
}

TEST_CASE_FIXTURE(Desk, "buttons, wheel and double clicks are decoded") {
    contract::mouseDown(a, {3, 4}, MouseButton::Right, {true, true, false});
    contract::mouseUp(a, {3, 4}, MouseButton::Right);
    contract::mouseDown(a, {5, 6}, MouseButton::Middle);
    contract::mouseUp(a, {5, 6}, MouseButton::Middle);
    CHECK(log == Log{"a down right shift ctrl 3,4", "a up right 3,4", "a down middle 5,6", "a up middle 5,6"});

    log.clear();
    contract::doubleClick(a, {7, 8});
    CHECK(log == Log{"a down left held 7,8", "a up left 7,8", "a double left held 7,8", "a up left 7,8"});

    // The wheel goes where the pointer is, not where the focus is.
    a.focus();
    contract::wheel(b, {30, 20}, 120);
    contract::wheel(b, {30, 20}, -240);
    CHECK(only(log, {"b wheel 120 30,20", "b wheel -240 30,20"}).size() == 2);

    // Outside the window while it holds the mouse.
    a.capture();
    contract::mouseUp(a, {-20, -30}, MouseButton::Left);
    CHECK(has(log, "a up left -20,-30"));
}

TEST_CASE_FIXTURE(Desk, "a window is told that the pointer comes, moves and leaves") {
    for (Probe* probe : {&main, &a, &b}) probe->notesPointer = true;
    const auto reaches = [&](Probe& window, Point at, const std::string& event) {
        return handUntil(contract::setPointer, window, at,
                         [&] { return has(log, event) && window.underPointer(); });
    };
    CHECK(reaches(main, {300, 200}, "main move 300,200"));
    CHECK(reaches(a, {20, 30}, "a move 20,30"));
    CHECK(pointerPosition() == a.toScreen({20, 30}));
    CHECK_FALSE(has(log, "b move 20,30"));
    CHECK_FALSE(has(log, "b leave"));  // it was never there
    Probe over("over", log, asGadget(Rect::fromSize(a.toScreen({0, 0}), {50, 40})));
    over.setTopmost(true);
    over.show(ShowCommand::ShowInactive);
    const auto isUnderPointer = [&](Probe& window) {
        return handUntil(contract::setPointer, a, {20, 30}, [&] { return window.underPointer(); });
    };
    CHECK(isUnderPointer(over));
    CHECK_FALSE(a.underPointer());
    over.destroy();
    CHECK(isUnderPointer(a));

    const auto leaves = [&](Probe& from, Probe& to, const std::string& event) {
        log.clear();
        return handUntil(contract::setPointer, to, {20, 30}, [&] {
            if (has(log, event)) return true;
            contract::setPointer(from, {20, 30});
            pumpMessages();
            return false;
        });
    };
    CHECK(leaves(a, b, "a leave"));
    CHECK(leaves(b, a, "b leave"));
    // While it holds the mouse the pointer does not leave it.
    a.capture();
    log.clear();
    CHECK(handUntil(contract::setPointer, b, {20, 30}, [&] { return has(log, "a move 130,30"); }));
    CHECK_FALSE(has(log, "a leave"));
    a.releaseCapture();
}

TEST_CASE_FIXTURE(Desk,
                  "a key is down from its press until it is let go, whoever has the focus, and events say so") {
    a.focus();
    for (const auto& [code, name] : {std::pair{key::kShift, "shift"}, std::pair{key::kCtrl, "ctrl"}}) {
        CAPTURE(name);
        const std::string number = contract::number(code);
        const auto hears = [&](const std::string& event) { return waitFor([&] { return has(log, event); }); };
        CHECK_FALSE(keyDown(code));
        contract::moveKey(code, true);
        CHECK(waitFor([code = code] { return keyDown(code); }));
        CHECK_FALSE(keyDown(key::kAlt));
        CHECK(hears(std::string("a key ") + name + " " + number));
        // Again with each try: when the pointer moves Wine asks the real keyboard, which has the key up.
        CHECK(waitFor([&, code = code, name = name] {
            contract::moveKey(code, true);
            contract::clickOnScreen(b, {5, 6});
            pumpMessages();
            return has(log, std::string("b down left ") + name + " held 5,6");
        }));
        contract::moveKey(code, false);
        CHECK(waitFor([code = code] { return !keyDown(code); }));
        CHECK(hears("a keyup " + number));
        log.clear();
        CHECK(handUntil(contract::clickOnScreen, b, {5, 6}, [&] { return has(log, "b up left 5,6"); }));
        CHECK(has(log, "b down left held 5,6"));
        log.clear();
    }
}
