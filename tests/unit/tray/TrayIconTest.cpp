#include "tray/TrayIcon.h"

#include <memory>
#include <string>
#include <vector>

#include "TrayFixture.h"

namespace sim = platform::sim;

namespace {

struct Icon {
    IconOwner main;
    std::unique_ptr<tray::TrayIcon> icon = std::make_unique<tray::TrayIcon>();
    Icon() { REQUIRE(icon->Create(main)); }
};

}  // namespace

TEST_CASE("the icon is there from Add_Tray until the end, through restarts of the shell") {
    sim::reset();
    {
        Icon at;
        CHECK_FALSE(at.icon->visible());
        CHECK(sim::trayIcons().empty());
        at.icon->Add_Tray();
        const auto shown = sim::trayIcons();
        REQUIRE(shown.size() == 1);
        CHECK(shown[0].id == 1);
        CHECK(shown[0].source == "#1");
        CHECK(shown[0].tip == "Kestrum 2 by Tam Orrin");

        at.icon->Add_Tray();  // twice is once
        CHECK(sim::trayIcons().size() == 1);
        sim::setShellRunning(false);
        at.icon->Add_Tray();
        at.icon->TrayBalloon("text", "title", platform::BalloonIcon::Info);
        sim::setShellRunning(true);
        at.icon->Add_Tray();
        CHECK(sim::trayIcons().size() == 1);
        at.icon.reset();
        CHECK(sim::trayIcons().empty());
    }
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("a picture put in the notification area stays through balloons, and the tip through both") {
    sim::reset();
    Icon at;
    at.icon->Add_Tray();
    {
        const platform::IconHandle made =
            platform::iconFromPicture(platform::drawPicture({2, 2}, 0x123456, [](platform::Canvas&) {}), 0);
        at.icon->Put(made);
    }
    const std::vector<platform::Color> pixels(4, 0x123456);
    sim::clearLog();
    at.icon->TrayBalloon("two\r\nlines", "Kestrum 2", platform::BalloonIcon::Warning);
    REQUIRE(sim::balloons().size() == 1);
    CHECK(sim::balloons()[0].title == "Kestrum 2");
    CHECK(sim::balloons()[0].text == "two\r\nlines");
    CHECK(sim::balloons()[0].icon == platform::BalloonIcon::Warning);
    CHECK(sim::log() == std::vector<std::string>{"trayBalloon Kestrum 2", "trayModify 1"});
    CHECK(sim::trayIcons()[0].pixels == pixels);
    CHECK(sim::trayIcons()[0].tip == "Kestrum 2 by Tam Orrin");

    at.icon->PutProgramIcon();
    CHECK(sim::trayIcons()[0].source == "#1");
}
