#include "tray/TrayMenu.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "TrayFixture.h"
#include "platform/Menu.h"

namespace sim = platform::sim;
using platform::Color;
using platform::MenuItem;
using platform::SysColor;
using tray::TrayMenuState;

namespace {

constexpr int kSide = 13;
constexpr int kPictures = 5;

Color ColorOfPicture(int index) {
    return platform::rgb(10 + index, 20, 30);
}

// Five squares of different colours, with three pixels of white around each.
void PutArtwork() {
    std::vector<Color> pixels;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kPictures * kSide; ++x) {
            const bool inside = platform::Rect{3, 3, kSide - 3, kSide - 3}.contains({x % kSide, y});
            pixels.push_back(inside ? ColorOfPicture(x / kSide) : platform::rgb(255, 255, 255));
        }
    }
    sim::setPictureResource(204, {kPictures * kSide, kSide}, pixels);
}

Color PixelOf(const platform::PictureHandle& picture, int x, int y) {
    REQUIRE(platform::pictureSize(picture) == platform::menuPictureSize());
    return PixelsOf(picture)[static_cast<std::size_t>(y * kSide + x)];
}

// "text id state", state being any of g(reyed) and c(hecked); "-" for a separator.
std::string Described(const MenuItem& item) {
    if (item.id == 0) return "-";
    return item.text + " " + std::to_string(item.id) + (item.enabled ? "" : " g") + (item.checked ? " c" : "");
}

}  // namespace

TEST_CASE("the menu offers what can be done now, and gives what was chosen") {
    sim::reset();
    PutArtwork();
    struct Case {
        TrayMenuState state;
        const char *setNow, *autoSet, *graphs;
    };
    const Case cases[] = {
        {{false, false}, "Set Now 1", "Auto Set 2", "Show CPU Graphs 5 g"},
        {{true, false}, "Set Now 1 g", "Auto Set 2 c", "Show CPU Graphs 5 g"},
        {{true, true}, "Set Now 1 g", "Auto Set 2 c", "Show CPU Graphs 5"},
    };
    const IconOwner owner;
    tray::TrayMenu menu;
    for (const Case& c : cases) {
        for (const int choice : {0, tray::command::kAutoSet, tray::command::kExit}) {
            std::vector<std::string> shown;
            sim::whenMenu([&](const std::vector<MenuItem>& items) {
                for (const MenuItem& item : items) shown.push_back(Described(item));
                return choice;
            });
            CHECK(menu.Show(owner, {5, 5}, c.state) == choice);
            const std::vector<std::string> expected{c.setNow,    "-",      c.autoSet, "-",
                                                    "Options 4", c.graphs, "-",       "Exit 7"};
            CHECK(shown == expected);
        }
    }
    CHECK(menu.Show(owner, {5, 5}, {}) == 0);
}

TEST_CASE("every command has its picture, which tells greyed and checked ones, for as long as the menu is open") {
    sim::reset();
    PutArtwork();
    const IconOwner owner;
    const int before = sim::openHandles();
    const Color menu = platform::systemColor(SysColor::Menu);
    for (const bool autoSet : {false, true}) {
        sim::whenMenu([&](const std::vector<MenuItem>& items) {
            int picture = 0;
            for (const MenuItem& item : items) {
                CHECK((item.picture != nullptr) == (item.id != 0));
                CHECK((item.checkedPicture != nullptr) == item.checked);
                if (item.picture == nullptr) continue;
                CAPTURE(item.text);
                const Color ink =
                    item.enabled ? ColorOfPicture(picture) : platform::systemColor(SysColor::GrayText);
                CHECK(PixelOf(*item.picture, 6, 6) == ink);
                CHECK(PixelOf(*item.picture, 1, 1) == menu);
                CHECK(PixelOf(*item.picture, 0, 12) == menu);
                if (item.checkedPicture != nullptr) {
                    const Color frame = platform::systemColor(SysColor::Highlight);
                    CHECK(PixelOf(*item.checkedPicture, 6, 6) == ink);
                    CHECK(PixelOf(*item.checkedPicture, 1, 1) != menu);
                    CHECK(PixelOf(*item.checkedPicture, 1, 1) != frame);
                    CHECK(PixelOf(*item.checkedPicture, 0, 12) == frame);
                    CHECK(PixelOf(*item.checkedPicture, 12, 0) == frame);
                }
                ++picture;
            }
            CHECK(picture == kPictures);
            return 0;
        });
        TrayMenuState state;
        state.autoSet = autoSet;
        tray::TrayMenu().Show(owner, {0, 0}, state);
        CHECK(sim::openHandles() == before);
    }
}

TEST_CASE("without artwork the menu has its check mark") {
    sim::reset();
    sim::setPictureResource(204, {0, 0});
    const IconOwner owner;
    sim::whenMenu([](const std::vector<MenuItem>& items) {
        const auto hasPicture = [](const MenuItem& item) { return item.picture || item.checkedPicture; };
        CHECK(std::none_of(items.begin(), items.end(), hasPicture));
        return tray::command::kAutoSet;
    });
    TrayMenuState state;
    state.autoSet = true;
    CHECK(tray::TrayMenu().Show(owner, {0, 0}, state) == tray::command::kAutoSet);
}
