#include "tray/TrayIcon.h"

#include "TrayFixture.h"

namespace sim = platform::sim;

TEST_CASE("a picture put in the notification area stays through balloons, and the tip through both") {
    sim::reset();
    IconOwner main;
    tray::TrayIcon icon;
    REQUIRE(icon.Create(main));
    icon.Add_Tray();
    icon.Put(platform::iconFromPicture(platform::drawPicture({2, 2}, 0x123456, [](platform::Canvas&) {}), 0));
    sim::clearLog();
    icon.TrayBalloon("two\r\nlines", "Kestrum 2", platform::BalloonIcon::Warning);
    CHECK(sim::balloons().at(0).text == "two\r\nlines");
    CHECK(sim::log() == std::vector<std::string>{"trayBalloon Kestrum 2", "trayModify 1"});
    CHECK(sim::trayIcons()[0].pixels == std::vector<platform::Color>(4, 0x123456));
    CHECK(sim::trayIcons()[0].tip == "Kestrum 2 by Tam Orrin");
    icon.PutProgramIcon();
    CHECK(sim::trayIcons()[0].source == "#1");

    // A shell that said no may add the icon late: it is taken away all the same.
    icon.Remove();
    sim::setShellRunning(false);
    icon.Add_Tray();
    sim::setShellRunning(true);
    sim::clearLog();
    icon.Remove();
    CHECK(sim::log() == std::vector<std::string>{"trayDelete 1"});
}
