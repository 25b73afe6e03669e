// Dropped lists: popup windows that stay out of the focus, and the control that holds the mouse for one.
#include "contract/Probe.h"

using namespace contract;
using namespace platform;

namespace {

// A control with the focus and its list, which hangs below it.
struct Dropped {
    Desk desk;
    Rect place;
    Probe list{"list", desk.log};

    Dropped() {
        desk.a.focus();
        desk.log.clear();
        place = Rect::fromSize(desk.a.toScreen({0, 50}), {100, 80});
        REQUIRE(list.createPopup(&desk.a, place));
    }
    // A pointer that is moved by a program may be reported where it was before, so it is moved until it is there.
    bool pointAt(Point at) {
        return waitFor([&] {
            contract::movePointer(list, at);
            pumpMessages();
            return list.underPointer();
        });
    }
    // The same goes for a click.
    bool clickAt(Point at, const std::string& event) {
        return waitFor([&] {
            contract::clickOnScreen(list, at);
            pumpMessages();
            return has(desk.log, event);
        });
    }
};

}  // namespace

TEST_CASE("a dropped list shows and paints, but is never active and never has the focus") {
    Dropped dropped;
    Desk& desk = dropped.desk;
    Probe& list = dropped.list;
    CHECK_FALSE(list.visible());
    CHECK(desk.log == Log{"list size 98x78"});
    CHECK(list.bounds() == dropped.place);
    CHECK(list.toScreen({0, 0}) == Point{dropped.place.left + 1, dropped.place.top + 1});

    list.show(ShowCommand::ShowInactive);
    CHECK(list.visible());
    CHECK(contract::pixelAt(list, {90, 70}) == rgb(255, 255, 255));
    REQUIRE(dropped.pointAt({5, 6}));
    CHECK(dropped.clickAt({5, 6}, "list up left 5,6"));
    CHECK(has(desk.log, "list down left held 5,6"));
    list.focus();
    list.bringToFront();
    for (const ShowCommand command : {ShowCommand::Show, ShowCommand::Hide, ShowCommand::Restore}) {
        list.show(command);
    }
    pumpMessages();
    CHECK(list.visible());
    CHECK(desk.a.focused());
    CHECK_FALSE(has(desk.log, "a blur"));
    CHECK_FALSE(has(desk.log, "list focus"));

    SUBCASE("Tab does not know it") {
        contract::pressKey(key::kTab);
        contract::pressKey(key::kTab);
        CHECK(desk.a.focused());
    }
    SUBCASE("it stays above a window that becomes active") {
        Probe other("other", desk.log);
        REQUIRE(other.createMain());
        other.show(ShowCommand::Show);
        CHECK_FALSE(desk.a.focused());
        CHECK(dropped.pointAt({7, 8}));
    }
    SUBCASE("it goes with the window it belongs to") {
        desk.main.destroy();
        CHECK_FALSE(list.exists());
        CHECK(count(desk.log, "list destroyed") == 1);
    }
}

TEST_CASE("who holds the mouse gets moves and presses over a dropped list") {
    Dropped dropped;
    Desk& desk = dropped.desk;
    dropped.list.show(ShowCommand::ShowInactive);
    dropped.list.notesPointer = desk.a.notesPointer = true;
    desk.a.capture();
    REQUIRE(dropped.pointAt({20, 30}));
    CHECK(waitFor([&] {
        contract::movePointer(dropped.list, {20, 30});
        return has(desk.log, "a move 21,81");
    }));
    CHECK(dropped.clickAt({20, 30}, "a up left 21,81"));
    CHECK(has(desk.log, "a down left held 21,81"));
    CHECK_FALSE(has(desk.log, "list move 20,30"));
    CHECK_FALSE(has(desk.log, "list down left held 20,30"));
    CHECK(desk.a.captured());
    CHECK(desk.a.focused());

    // The shape of the pointer is the holder's, and changes without a move.
    for (const Pointer shape : {Pointer::NoDrop, Pointer::Drop, Pointer::Arrow}) {
        desk.a.setPointer(shape);
        CHECK(contract::shownPointer() == shape);
    }
    desk.a.releaseCapture();
}
