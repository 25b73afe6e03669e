#include "settings/WindowPosition.h"

#include <doctest/doctest.h>

#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using platform::Rect;

namespace {

constexpr Rect kFirst{100, 100, 400, 300};

// A main window on one screen of 1280 x 800 with a work area of 1280 x 770.
struct MainWindow : platform::Window {
    MainWindow() {
        sim::reset();
        REQUIRE(create({platform::WindowKind::Main, "Form1", "Form1", nullptr, kFirst}));
        show(platform::ShowCommand::Show);
    }
    static std::string Text(const Rect& rect) { return settings::FormatWindowPosition(rect); }
    bool Restore(const char* text) {
        store.WritePosition("Form1", text);
        return settings::RestoreWindowPosition(*this, "Form1", store);
    }

    settings::Settings store;
};

}  // namespace

TEST_CASE_FIXTURE(MainWindow, "a stored position is applied as it is, and brought within reach when asked for") {
    const std::pair<const char*, Rect> cases[] = {
        {"10,20,800,600", {10, 20, 810, 620}},
        {"-200,-10,800,600", {-200, -10, 600, 590}},  // partly out, but can be caught
        {"1200,700,800,600", {1200, 700, 2000, 1300}},
        {"100,50,2000,900", {100, 50, 2100, 950}},     // for two screens once
        {"5000,5000,800,600", {480, 170, 1280, 770}},  // a screen that is gone
        {"-3000,100,800,600", {0, 100, 800, 700}},
        {"10,-590,800,600", {10, 0, 810, 600}},  // only the foot would be seen
        {"10,-9,800,3", {10, 0, 810, 3}},        // less than a caption high, and above the screen
        {"5000,0,4000,3000", {0, 0, 1280, 770}},
    };
    for (const auto& [text, wanted] : cases) {
        CHECK(Restore(text));
        CHECK(Text(bounds()) == text);
        for (const auto state : {platform::ShowCommand::Minimize, platform::ShowCommand::Maximize}) {
            show(state);
            settings::BringWithinReach(*this);
            CHECK(Text(normalBounds()) == text);
        }
        show(platform::ShowCommand::Normal);
        settings::BringWithinReach(*this);
        CHECK(Text(bounds()) == Text(wanted));
    }
    const std::pair<const char*, const char*> odd[] = {
        {"10,20,2000000000,2000000000", "0,0,1280,770"},  // nothing was ever as large
        {"2000000000,-2000000000,99999999999,600", "0,0,1280,600"},
        {"junk,20,800,600,5,6", "0,20,800,600"},
    };
    for (const auto& [text, wanted] : odd) {
        CHECK(Restore(text));
        CHECK(Text(bounds()) == wanted);
    }
    setBounds(kFirst);
    for (const char* text : {"", "10,20,800", "10,20,0,600", "10,20,800,-600", "10;20;800;600", ",,,"}) {
        CAPTURE(text);
        CHECK_FALSE(Restore(text));
        CHECK(bounds() == kFirst);
    }
}

TEST_CASE_FIXTURE(MainWindow, "a window on a second screen is within reach while that is there") {
    sim::setScreens({{0, 0, 1280, 800}, {1280, 0, 2560, 800}});
    CHECK(Restore("1500,100,600,400"));
    for (const Rect& wanted : {Rect{1500, 100, 2100, 500}, Rect{680, 100, 1280, 500}}) {
        settings::BringWithinReach(*this);
        CHECK(bounds() == wanted);
        sim::setScreens({{0, 0, 1280, 800}});
    }
}

TEST_CASE_FIXTURE(MainWindow, "what is saved is the restored rectangle, whatever the window's state") {
    setBounds({-20, 30, 780, 630});
    for (const auto state : {platform::ShowCommand::Maximize, platform::ShowCommand::Minimize}) {
        show(state);
        settings::SaveWindowPosition(*this, "Form1", store);
        CHECK(sim::setting(settings::kSection, "Form1_Pos") == "-20,30,800,600");
    }
}
