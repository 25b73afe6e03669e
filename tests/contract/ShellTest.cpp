// Menus, balloons and the icon in the notification area.
#include "contract/Probe.h"
#include "platform/Menu.h"
#include "platform/Tooltip.h"
#include "platform/Tray.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Desk, "a menu gives the item that was chosen") {
    const Size size = menuPictureSize();
    REQUIRE_FALSE(Rect::fromSize({}, size).empty());
    const PictureHandle picture = drawPicture(size, rgb(255, 0, 0), {});
    const PictureHandle checked = drawPicture(size, rgb(0, 0, 255), {});
    MenuItem pictured{30, "Pictured", true, true};
    pictured.picture = &picture;
    pictured.checkedPicture = &checked;
    const std::vector<MenuItem> items{{10, "&First"}, {}, {20, "Grey", false}, pictured, {40, "Last", true, true}};
    const Point at = main.toScreen({20, 20});

    const auto chosen = [&](const std::vector<int>& downs, Point where, const std::vector<MenuItem>& offered) {
        contract::answerMenu(downs);
        return showMenu(main, where, offered);
    };
    // A pointer that rests on a menu would choose, too.
    REQUIRE(handUntil(contract::setPointer, main, {350, 200}, [this] { return main.underPointer(); }));
    a.startTimer(7, 10);
    CHECK(chosen({1}, at, items) == 10);
    CHECK(has(log, "a timer 7"));         // timers go on
    CHECK(chosen({3}, at, items) == 30);  // below a separator and a grey item
    CHECK(chosen({4}, {screenSize().width, screenSize().height}, items) == 40);  // moved in from the edge
    MenuItem outer{50, "More"};
    outer.submenu = items;
    CHECK(chosen({2, 3}, at, {{10, "First"}, outer}) == 30);
    CHECK(chosen({}, at, items) == 0);
    CHECK(showMenu(main, at, {}) == 0);
    for (const PictureHandle* lent : {&picture, &checked}) CHECK(pictureSize(*lent) == size);
}

TEST_CASE_FIXTURE(Desk, "a balloon may go before the window it explains, or after it") {
    TooltipHandle before = createTooltip();
    TooltipHandle after = createTooltip();
    for (const TooltipHandle* tooltip : {&before, &after}) {
        setTooltipTitle(*tooltip, std::string(98, 't') + "\xC3\xBC\xC3\xBC");  // a character across the limit
        CHECK(addTool(*tooltip, a, "first line\r\nsecond line"));
        CHECK(addTool(*tooltip, b, std::string(5000, 'x')));
    }
    before.reset();
    main.destroy();
    CHECK_FALSE(addTool(after, a, "too late"));
    pumpMessages();
    after.reset();
    CHECK_FALSE(addTool({}, a, "text"));
    setTooltipTitle({}, "title");
    setTooltipDelays({}, 1, 1);
}

TEST_CASE_FIXTURE(Fresh, "an icon in the notification area") {
    Log log;
    Probe owner("owner", log, asMain());

    // Without the icon there is nothing to change.
    CHECK_FALSE(trayModify(owner, 1, 0, "tip"));
    CHECK_FALSE(trayBalloon(owner, 1, "title", "text", BalloonIcon::Info));
    CHECK_FALSE(trayDelete(owner, 1));

    CHECK(trayAdd(owner, 1, 0, "tip"));
    CHECK_FALSE(trayAdd(owner, 1, 0, "tip"));
    CHECK(trayModify(owner, 1, 0, std::string(500, 't')));
    CHECK_FALSE(trayModify(owner, 2, 0, "tip"));
    CHECK(trayBalloon(owner, 1, std::string(500, 'a'), std::string(5000, 'b'), BalloonIcon::None));

    log.clear();
    for (int event = 0; event < 4; ++event) contract::trayEvent(owner, 1, static_cast<TrayEvent>(event));
    CHECK(log == Log{"owner tray left", "owner tray double", "owner tray right", "owner tray balloon"});

    CHECK(trayDelete(owner, 1));
    CHECK_FALSE(trayDelete(owner, 1));
}
