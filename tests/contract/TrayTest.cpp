#include "platform/Tray.h"

#include <doctest/doctest.h>

#include "contract/Machine.h"
#include "platform/Window.h"

TEST_CASE("an icon in the notification area") {
    contract::freshMachine();
    platform::Window owner;
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "TrayContract";
    spec.bounds = {0, 0, 200, 100};
    REQUIRE(owner.create(spec));

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

    CHECK(platform::trayDelete(owner, 1));
    CHECK_FALSE(platform::trayDelete(owner, 1));
}
