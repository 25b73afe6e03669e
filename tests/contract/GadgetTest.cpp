// Windows that stand on the desktop by themselves: gadgets, which are seen through and dragged by any place, and
// dropped lists, which stay out of the focus.
#include "contract/Probe.h"
#include "platform/Instance.h"
#include "platform/Menu.h"
#include "platform/OtherWindows.h"
#include "platform/Timer.h"

using namespace contract;
using namespace platform;

namespace {

constexpr Rect kPlace{600, 200, 720, 280};

// A gadget, shown and painted, beside a main window that it has nothing to do with.
struct OnDesktop : Desk {
    Probe gadget{"gadget", log, asGadget(kPlace, &main)};

    OnDesktop() {
        gadget.show(ShowCommand::Show);
        REQUIRE(waitFor([this] { return has(log, "gadget paint") && gadget.focused(); }));
        log.clear();
    }
    // A click at a point of the gadget reaches `told`, and only that. A display may still show another window than
    // `upper` on top, and a click there raises that one: both are done anew.
    bool clickReaches(Probe& upper, Point at, const std::string& told, const std::string& notTold) {
        return waitFor([&] {
            upper.bringToFront();
            log.clear();
            contract::clickOnScreen(gadget, at);
            waitFor([&] { return has(log, told) || has(log, notTold); }, 1000);
            return has(log, told) && !has(log, notTold);
        });
    }
};

// A control with the focus and its list, which hangs below it.
struct Dropped : Desk {
    Rect below;
    Probe list{"list", log};

    Dropped() {
        a.focus();
        log.clear();
        below = Rect::fromSize(a.toScreen({0, 50}), {100, 80});
        REQUIRE(list.createAs(asListOf(a, below)));
    }
};

bool isAbove(const Window& upper, const Window& lower) {
    const std::vector<std::uintptr_t> all = topLevelWindowNumbers();
    const auto at = [&all](const Window& window) { return std::find(all.begin(), all.end(), window.native()); };
    return at(upper) < at(lower);
}

}  // namespace

TEST_CASE_FIXTURE(Desk, "a gadget is all client area, hidden at first and nobody's") {
    Probe gadget("gadget", log, asGadget(kPlace, &main));
    CHECK(log == Log{"gadget size 120x80"});
    CHECK_FALSE(gadget.visible());
    CHECK(gadget.bounds() == kPlace);
    CHECK(gadget.normalBounds() == kPlace);
    CHECK(gadget.toScreen({0, 0}) == kPlace.origin());
    const WindowFacts facts = windowFacts(gadget.native()).value_or(WindowFacts{});
    CHECK(facts.owner == 0);
    CHECK(facts.parent == 0);
    constexpr std::uint32_t kFrames = 0x40C4'0000;  // child, border or caption, thick frame
    CHECK((facts.style & kFrames) == 0);

    gadget.show(ShowCommand::Show);
    CHECK(waitFor([&] { return gadget.focused(); }));
    main.show(ShowCommand::Hide);
    CHECK(gadget.visible());
    main.destroy();
    CHECK(gadget.exists());
    gadget.destroy();
    CHECK(count(log, "gadget destroyed") == 1);
}

TEST_CASE_FIXTURE(OnDesktop, "a gadget is told what any window is told") {
    contract::pressKey(key::kF5);
    CHECK(log == Log{"gadget key 116", "gadget keyup 116"});
    main.focus();
    CHECK(handUntil(contract::clickOnScreen, gadget, {30, 40}, [&] { return has(log, "gadget up left 30,40"); }));
    CHECK(has(log, "gadget down left held 30,40"));
    CHECK(waitFor([&] { return gadget.focused(); }));
    contract::answerMenu({1});
    CHECK(showMenu(gadget, gadget.toScreen({5, 5}), {{10, "Only"}}) == 10);
    gadget.keepOpen = true;
    contract::closeBox(gadget);
    CHECK(waitFor([&] { return has(log, "gadget close"); }));
    CHECK(gadget.exists());
}

TEST_CASE_FIXTURE(OnDesktop, "of gadgets that overlap the uppermost gets the mouse") {
    Probe second("second", log, asGadget(kPlace.offset(40, 20)));
    second.show(ShowCommand::Show);
    CHECK(waitFor([&] { return isAbove(second, gadget); }));
    const std::string toGadget = "gadget up left 60,50";
    const std::string toSecond = "second up left 20,30";
    CHECK(clickReaches(second, {60, 50}, toSecond, toGadget));
    gadget.bringToFront();
    CHECK(waitFor([&] { return isAbove(gadget, second); }));
    CHECK(clickReaches(gadget, {60, 50}, toGadget, toSecond));
    second.setTopmost(true);
    CHECK(waitFor([&] { return isAbove(second, gadget); }));
    CHECK(clickReaches(gadget, {60, 50}, toSecond, toGadget));
    second.show(ShowCommand::Hide);  // topmost as it is
    CHECK(clickReaches(gadget, {60, 50}, toGadget, toSecond));
}

TEST_CASE_FIXTURE(OnDesktop, "a window can be seen through and goes on painting") {
    CHECK(contract::translucency(gadget).alpha == 255);
    const struct {
        std::uint8_t alpha;
        std::optional<Color> hole;
    } looks[] = {{128, {}}, {255, rgb(255, 0, 255)}, {0, rgb(0, 0, 0)}, {255, {}}};  // no colour is none
    for (const auto& look : looks) {
        CAPTURE(look.alpha);
        CHECK(gadget.setTranslucency(look.alpha, look.hole));
        const contract::Translucency shown = contract::translucency(gadget);
        CHECK(shown.alpha == look.alpha);
        CHECK(shown.hole == look.hole);
        log.clear();
        gadget.invalidate();
        CHECK(contract::pixelAt(gadget, {100, 70}) == rgb(255, 255, 255));
        CHECK(count(log, "gadget paint") == 1);
    }
    CHECK(main.setTranslucency(200));  // any top-level window can
    CHECK_FALSE(a.setTranslucency(200));
    gadget.destroy();
    CHECK_FALSE(gadget.setTranslucency(200));
}

TEST_CASE_FIXTURE(OnDesktop, "a gadget is dragged by any place of it, while timers go on") {
    gadget.dragsByPress = true;
    gadget.startTimer(3, 10);
    gadget.capture();  // which ends with the drag
    const struct { Point at, delta; } drags[] = {{{30, 40}, {70, 55}}, {{119, 1}, {-200, 10}}, {{50, 50}, {0, 0}}};
    for (const auto& drag : drags) {
        CAPTURE(drag.at.x);
        CHECK(waitFor([&] {
            gadget.setBounds(kPlace);
            log.clear();
            contract::dragOnScreen(gadget, drag.at, drag.delta);
            return has(log, "gadget dragged") && gadget.bounds() == kPlace.offset(drag.delta.x, drag.delta.y);
        }));
        CHECK(count(log, "gadget dragged") == 1);
        CHECK_FALSE(has(log, "gadget up left " + place(drag.at)));  // the drag took it
        CHECK_FALSE(gadget.captured());
        if (drag.delta != Point{}) CHECK(has(log, "gadget timer 3"));
    }
    // Without a button that is down nothing is dragged.
    gadget.setBounds(kPlace);
    gadget.dragAsByCaption();
    CHECK(gadget.bounds() == kPlace);
}

TEST_CASE_FIXTURE(OnDesktop, "a window may go while it is dragged") {
    gadget.dragsByPress = true;
    const TimerHandle timer = startTimer(20, [this](std::uintptr_t) {
        // Not after a press that came too late for a drag.
        if (has(log, "gadget down left held 30,40") && !has(log, "gadget dragged")) gadget.destroy();
    });
    CHECK(waitFor([this] {
        log.clear();
        contract::dragOnScreen(gadget, {30, 40}, {50, 50});
        return !gadget.exists();
    }));
    CHECK(only(log, {"gadget destroyed", "gadget dragged"}) == Log{"gadget destroyed", "gadget dragged"});
}

TEST_CASE_FIXTURE(Dropped, "a dropped list shows and paints, but is never active and never has the focus") {
    CHECK_FALSE(list.visible());
    CHECK(log == Log{"list size 98x78"});
    CHECK(list.bounds() == below);
    CHECK(list.toScreen({0, 0}) == Point{below.left + 1, below.top + 1});

    list.show(ShowCommand::ShowInactive);
    CHECK(list.visible());
    CHECK(contract::pixelAt(list, {90, 70}) == rgb(255, 255, 255));
    REQUIRE(handUntil(contract::setPointer, list, {5, 6}, [this] { return list.underPointer(); }));
    CHECK(handUntil(contract::clickOnScreen, list, {5, 6}, [this] { return has(log, "list up left 5,6"); }));
    CHECK(has(log, "list down left held 5,6"));
    list.focus();
    list.bringToFront();
    for (const ShowCommand command : {ShowCommand::Show, ShowCommand::Hide, ShowCommand::Restore}) {
        list.show(command);
    }
    for (int i = 0; i < 2; ++i) contract::pressKey(key::kTab);  // from a to b and back
    pumpMessages();
    CHECK(list.visible());
    CHECK(a.focused());
    CHECK(count(log, "a blur") == 1);
    CHECK_FALSE(has(log, "list focus"));

    Probe other("other", log, asMain());
    other.show(ShowCommand::Show);
    CHECK_FALSE(a.focused());
    // It stays above a window that becomes active.
    CHECK(handUntil(contract::setPointer, list, {7, 8}, [this] { return list.underPointer(); }));
    main.destroy();
    CHECK_FALSE(list.exists());
    CHECK(count(log, "list destroyed") == 1);
}

TEST_CASE_FIXTURE(Dropped, "who holds the mouse gets moves and presses over a dropped list") {
    list.show(ShowCommand::ShowInactive);
    list.notesPointer = a.notesPointer = true;
    a.capture();
    CHECK(handUntil(contract::setPointer, list, {20, 30}, [this] { return has(log, "a move 21,81"); }));
    CHECK(handUntil(contract::clickOnScreen, list, {20, 30}, [this] { return has(log, "a up left 21,81"); }));
    CHECK(has(log, "a down left held 21,81"));
    CHECK_FALSE(has(log, "list move 20,30"));
    CHECK_FALSE(has(log, "list down left held 20,30"));
    CHECK(a.captured());
    CHECK(a.focused());

    // The shape of the pointer is the holder's, and changes without a move.
    for (const Pointer shape : {Pointer::NoDrop, Pointer::Drop, Pointer::Arrow}) {
        a.setPointer(shape);
        CHECK(contract::pointerShape() == shape);
    }
    a.releaseCapture();
}
