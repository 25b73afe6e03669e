#include "tray/TrayIcon.h"

#include <doctest/doctest.h>

#include <memory>

#include "platform/sim/Sim.h"

namespace sim = platform::sim;

namespace {

struct Owner : platform::Window {
    Owner() {
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.bounds = {0, 0, 100, 100};
        REQUIRE(create(spec));
    }
};

}  // namespace

TEST_CASE("the icon is there from Add_Tray until the end, through restarts of the shell") {
    sim::reset();
    {
        Owner owner;
        auto icon = std::make_unique<tray::TrayIcon>(owner);
        CHECK(sim::trayIcons().empty());
        icon->Add_Tray();
        const auto shown = sim::trayIcons();
        REQUIRE(shown.size() == 1);
        CHECK(shown[0].id == 1);
        CHECK(shown[0].icon != 0);
        CHECK(shown[0].tip == "Kestrum 2 by Tam Orrin");

        icon->Add_Tray();  // twice is once
        CHECK(sim::trayIcons().size() == 1);
        sim::setShellRunning(false);
        icon->Add_Tray();
        icon->TrayBalloon("text", "title", platform::BalloonIcon::Info);
        sim::setShellRunning(true);
        icon->Add_Tray();
        CHECK(sim::trayIcons().size() == 1);
        icon.reset();
        CHECK(sim::trayIcons().empty());
    }
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("an icon that the shell had no place for appears when the shell is back, and goes again") {
    sim::reset();
    Owner owner;
    {
        tray::TrayIcon icon(owner);
        sim::setShellRunning(false);
        icon.Add_Tray();
        sim::setShellRunning(true);
        icon.Add_Tray();
        CHECK(sim::trayIcons().size() == 1);
        icon.Remove();
        CHECK(sim::trayIcons().empty());
        sim::clearLog();
    }
    CHECK(sim::log().empty());
}

TEST_CASE("a balloon leaves the icon as it was") {
    sim::reset();
    Owner owner;
    tray::TrayIcon icon(owner);
    icon.Add_Tray();
    const auto before = sim::trayIcons();
    sim::clearLog();
    icon.TrayBalloon("two\r\nlines", "Kestrum 2", platform::BalloonIcon::Warning);
    REQUIRE(sim::balloons().size() == 1);
    CHECK(sim::balloons()[0].title == "Kestrum 2");
    CHECK(sim::balloons()[0].text == "two\r\nlines");
    CHECK(sim::balloons()[0].icon == platform::BalloonIcon::Warning);
    CHECK(sim::log() == std::vector<std::string>{"trayBalloon Kestrum 2", "trayModify 1"});
    CHECK(sim::trayIcons()[0].icon == before[0].icon);
    CHECK(sim::trayIcons()[0].tip == before[0].tip);
}
