#include "platform/Menu.h"

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("a menu gives the item that was chosen") {
    Desk desk;
    const Size size = menuPictureSize();
    REQUIRE(size.width > 0);
    REQUIRE(size.height > 0);
    const PictureHandle picture = drawPicture(size, rgb(255, 0, 0), {});
    const PictureHandle checked = drawPicture(size, rgb(0, 0, 255), {});
    MenuItem pictured{30, "Pictured", true, true};
    pictured.picture = &picture;
    pictured.checkedPicture = &checked;
    const std::vector<MenuItem> items{{10, "&First"}, {}, {20, "Grey", false}, pictured, {40, "Last", true, true}};
    const Point at = desk.main.toScreen({20, 20});

    SUBCASE("the first") {
        contract::answerMenu(1);
        CHECK(showMenu(desk.main, at, items) == 10);
    }
    SUBCASE("one with pictures, below a separator and a grey item, while timers go on") {
        desk.a.startTimer(7, 10);
        contract::answerMenu(3);
        CHECK(showMenu(desk.main, at, items) == 30);
        CHECK(has(desk.log, "a timer 7"));
    }
    SUBCASE("beyond the edge of the screen it is moved in") {
        contract::answerMenu(4);
        CHECK(showMenu(desk.main, {screenSize().width, screenSize().height}, items) == 40);
    }
    SUBCASE("one of a menu inside the menu, pictures and all") {
        MenuItem outer{50, "More"};
        outer.submenu = items;
        contract::answerSubmenu(2, 3);
        CHECK(showMenu(desk.main, at, {{10, "First"}, outer}) == 30);
    }
    SUBCASE("none when it is dismissed, and none of an empty menu") {
        contract::dismissMenu();
        CHECK(showMenu(desk.main, at, items) == 0);
        CHECK(showMenu(desk.main, at, {}) == 0);
    }
    // The pictures are still the caller's.
    CHECK(pictureSize(picture) == size);
    CHECK(pictureSize(checked) == size);
}

TEST_CASE("the pointer is where it was moved") {
    Desk desk;
    contract::movePointer(desk.a, {7, 9});
    CHECK(waitFor([&] { return pointerPosition() == desk.a.toScreen({7, 9}); }));
}
