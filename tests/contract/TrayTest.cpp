#include "platform/Tray.h"

#include "contract/Probe.h"

using contract::Desk;
using contract::Log;
using contract::Probe;
using platform::TrayEvent;

TEST_CASE("an icon in the notification area") {
    contract::freshMachine();
    Log log;
    Probe owner("owner", log);
    REQUIRE(owner.createMain());

    // Without the icon there is nothing to change.
    CHECK_FALSE(platform::trayModify(owner, 1, 0, "tip"));
    CHECK_FALSE(platform::trayBalloon(owner, 1, "title", "text", platform::BalloonIcon::Info));
    CHECK_FALSE(platform::trayDelete(owner, 1));

    CHECK(platform::trayAdd(owner, 1, 0, "tip"));
    CHECK_FALSE(platform::trayAdd(owner, 1, 0, "tip"));
    CHECK(platform::trayModify(owner, 1, 0, std::string(500, 't')));
    CHECK_FALSE(platform::trayModify(owner, 2, 0, "tip"));
    CHECK(platform::trayBalloon(owner, 1, "Kestrum 2", "text", platform::BalloonIcon::Warning));
    CHECK(platform::trayBalloon(owner, 1, std::string(500, 'a'), std::string(5000, 'b'),
                                platform::BalloonIcon::None));

    log.clear();
    for (const TrayEvent event :
         {TrayEvent::LeftUp, TrayEvent::LeftDoubleClick, TrayEvent::RightUp, TrayEvent::BalloonClicked}) {
        contract::trayEvent(owner, 1, event);
    }
    CHECK(log == Log{"owner tray left", "owner tray double", "owner tray right", "owner tray balloon"});

    CHECK(platform::trayDelete(owner, 1));
    CHECK_FALSE(platform::trayDelete(owner, 1));
}

TEST_CASE("a window that is shown keeps its mouse, though it owns an icon") {
    Desk desk;
    desk.main.notesPointer = true;
    REQUIRE(platform::trayAdd(desk.main, 1, 0, "tip"));
    contract::movePointer(desk.main, {200, 200});
    CHECK(contract::waitFor([&] { return contract::has(desk.log, "main move 200,200"); }));
    CHECK(platform::trayDelete(desk.main, 1));
}
