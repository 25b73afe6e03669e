#include "settings/WindowPosition.h"

#include <doctest/doctest.h>

#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using platform::Rect;
using settings::Settings;

namespace {

const Rect kFirst = Rect::fromSize({100, 100}, {300, 200});

struct MainWindow : platform::Window {
    MainWindow() {
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = kFirst;
        REQUIRE(create(spec));
        show(platform::ShowCommand::Show);
    }
};

}  // namespace

TEST_CASE("a stored position is applied as it is, or not at all, or where it can be reached") {
    sim::reset();  // one screen of 1280 x 800, work area 1280 x 770
    MainWindow window;
    Settings store;
    struct Case {
        const char* text;
        bool restored;
        Rect bounds;
    };
    const Case cases[] = {
        {"10,20,800,600", true, {10, 20, 810, 620}},
        {"10,20,800,600,5,6", true, {10, 20, 810, 620}},
        {"-200,-10,800,600", true, {-200, -10, 600, 590}},  // partly out, but can be caught
        {"1200,700,800,600", true, {1200, 700, 2000, 1300}},
        {"100,50,2000,900", true, {100, 50, 2100, 950}},     // for two screens once
        {"5000,5000,800,600", true, {480, 170, 1280, 770}},  // a screen that is gone
        {"-3000,100,800,600", true, {0, 100, 800, 700}},
        {"10,-590,800,600", true, {10, 0, 810, 600}},  // only the foot would be seen
        {"10,-9,800,3", true, {10, 0, 810, 3}},        // less than a caption high, and above the screen
        {"5000,0,4000,3000", true, {0, 0, 1280, 770}},
        {"10,20,2000000000,2000000000", true, {0, 0, 1280, 770}},
        {"2000000000,-2000000000,99999999999,600", true, {0, 0, 1280, 600}},
        {"junk,20,800,600", true, {0, 20, 800, 620}},
        {"", false, kFirst},
        {"10,20,800", false, kFirst},
        {"10,20,0,600", false, kFirst},
        {"10,20,800,-600", false, kFirst},
        {"10;20;800;600", false, kFirst},
        {",,,", false, kFirst},
    };
    for (const Case& each : cases) {
        CAPTURE(each.text);
        window.setBounds(kFirst);
        store.WritePosition("Form1", each.text);
        CHECK(settings::RestoreWindowPosition(window, "Form1", store) == each.restored);
        const Rect at = window.bounds();
        CAPTURE(at.left);
        CAPTURE(at.top);
        CAPTURE(at.right);
        CAPTURE(at.bottom);
        CHECK(at == each.bounds);
    }
}

TEST_CASE("a window on a second screen comes back there, and to the first one when that is gone") {
    sim::reset();
    MainWindow window;
    Settings store;
    store.WritePosition("Form1", "1500,100,600,400");
    sim::setScreens({{0, 0, 1280, 800}, {1280, 0, 2560, 800}});
    CHECK(settings::RestoreWindowPosition(window, "Form1", store));
    CHECK(window.bounds() == Rect{1500, 100, 2100, 500});
    sim::setScreens({{0, 0, 1280, 800}});
    CHECK(settings::RestoreWindowPosition(window, "Form1", store));
    CHECK(window.bounds() == Rect{680, 100, 1280, 500});
}

TEST_CASE("what is saved is the restored rectangle, whatever the window's state") {
    sim::reset();
    MainWindow window;
    Settings store;
    window.setBounds({-20, 30, 780, 630});
    SUBCASE("normal") {}
    SUBCASE("maximised") {
        window.show(platform::ShowCommand::Maximize);
    }
    SUBCASE("minimised") {
        window.show(platform::ShowCommand::Minimize);
    }
    settings::SaveWindowPosition(window, "Form1", store);
    CHECK(sim::setting("Morvell\\Kestrum2", "Form1_Pos") == "-20,30,800,600");
}
