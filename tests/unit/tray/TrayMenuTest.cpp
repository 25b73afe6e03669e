#include "tray/TrayMenu.h"

#include <functional>
#include <string>

#include "TrayFixture.h"
#include "platform/Menu.h"

namespace sim = platform::sim;
using platform::Color;
using platform::MenuItem;
using platform::SysColor;

namespace {

constexpr int kSide = 13;
constexpr int kPictures = 5;

Color ColorOfPicture(int index) {
    return platform::rgb(10 + index, 20, 30);
}

// A machine with the menu's artwork: five squares of different colours, with three pixels of white around each.
struct Menu : FreshMachine {
    Menu() {
        std::vector<Color> pixels;
        for (int i = 0; i < kPictures * kSide * kSide; ++i) {
            const platform::Point at{i % kSide, i / kSide / kPictures};
            const bool inside = platform::Rect{3, 3, kSide - 3, kSide - 3}.contains(at);
            pixels.push_back(inside ? ColorOfPicture(i / kSide % kPictures) : platform::rgb(255, 255, 255));
        }
        sim::setPictureResource(204, {kPictures * kSide, kSide}, pixels);
    }
    int Show(const tray::TrayMenuState& state, const std::function<int(const std::vector<MenuItem>&)>& user) const {
        sim::whenMenu(user);
        return tray::TrayMenu().Show(owner, {5, 5}, state);
    }

    const IconOwner owner;
};

// That of a place on the diagonal.
Color PixelOf(const platform::PictureHandle& picture, int at) {
    REQUIRE(platform::pictureSize(picture) == platform::menuPictureSize());
    return PixelsOf(picture)[static_cast<std::size_t>(at * kSide + at)];
}

// Each item followed by "|": "text id state", state being any of g(reyed) and c(hecked); "-" for a separator.
std::string Described(const std::vector<MenuItem>& items) {
    std::string all;
    for (const MenuItem& item : items) {
        const std::string state = std::string(item.enabled ? "" : " g") + (item.checked ? " c" : "");
        all += (item.id == 0 ? "-" : item.text + " " + std::to_string(item.id) + state) + "|";
    }
    return all;
}

// Every command has its picture, which tells greyed and checked ones.
void CheckPictures(const std::vector<MenuItem>& items) {
    const Color ground = platform::systemColor(SysColor::Menu);
    int picture = 0;
    for (const MenuItem& item : items) {
        CAPTURE(item.text);
        REQUIRE((item.picture != nullptr) == (item.id != 0));
        REQUIRE((item.checkedPicture != nullptr) == item.checked);
        if (item.picture == nullptr) continue;
        const Color own = ColorOfPicture(picture++);
        const Color ink = item.enabled ? own : platform::systemColor(SysColor::GrayText);
        CHECK(PixelOf(*item.picture, 6) == ink);
        for (const int edge : {0, 1, 12}) CHECK(PixelOf(*item.picture, edge) == ground);
        if (!item.checked) continue;
        CHECK(PixelOf(*item.checkedPicture, 6) == ink);
        CHECK(PixelOf(*item.checkedPicture, 1) != ground);
        CHECK(PixelOf(*item.checkedPicture, 12) == platform::systemColor(SysColor::Highlight));
    }
    CHECK(picture == kPictures);
}

}  // namespace

TEST_CASE_FIXTURE(Menu, "the menu offers what can be done now, and gives what was chosen") {
    const struct {
        tray::TrayMenuState state;
        std::string shown;
        int choice;
    } cases[] = {
        {{false, false}, "Set Now 1|-|Auto Set 2|-|Options 4|Show CPU Graphs 5 g|-|Exit 7|", tray::command::kExit},
        {{true, false}, "Set Now 1 g|-|Auto Set 2 c|-|Options 4|Show CPU Graphs 5 g|-|Exit 7|", 0},
        {{true, true}, "Set Now 1 g|-|Auto Set 2 c|-|Options 4|Show CPU Graphs 5|-|Exit 7|", 5},
    };
    const int before = sim::openHandles();
    for (const auto& c : cases) {
        const auto choose = [&](const std::vector<MenuItem>& items) {
            CHECK(Described(items) == c.shown);
            CheckPictures(items);
            return c.choice;
        };
        CHECK(Show(c.state, choose) == c.choice);
        CHECK(sim::openHandles() == before);
    }
}

TEST_CASE_FIXTURE(Menu, "without artwork the menu has its check mark") {
    sim::setPictureResource(204, {0, 0});
    Show({true, false}, [](const std::vector<MenuItem>& items) {
        for (const MenuItem& item : items) CHECK((item.picture == nullptr && item.checkedPicture == nullptr));
        return 0;
    });
}
