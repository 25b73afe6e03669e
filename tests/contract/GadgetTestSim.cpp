// What the simulated desktop says of holes in windows and of keys, for the tests that build on it.
#include "contract/Probe.h"
#include "platform/Keys.h"
#include "platform/sim/Sim.h"

using namespace contract;
using namespace platform;

namespace {

constexpr Color kHole = rgb(255, 0, 255);

// Left half hole, right half solid; asks for the keys as it gets one.
class HalfHole : public Window {
public:
    int presses = 0;
    bool shiftDown = false;
    bool letterDown = false;

protected:
    void onPaint(Canvas& canvas, const Rect&) override {
        canvas.fill({0, 0, 50, 100}, kHole);
        canvas.fill({50, 0, 100, 100}, rgb(1, 2, 3));
    }
    void onMouse(const MouseEvent& event) override {
        if (event.action == MouseAction::Down) ++presses;
    }
    void onKey(const KeyEvent& event) override {
        if (!event.down) return;
        shiftDown = keyDown(key::kShift);
        letterDown = keyDown('X');
    }
};

}  // namespace

TEST_CASE("a click brings the window up that it meets") {
    Desk desk;
    HalfHole first;
    HalfHole second;
    REQUIRE(first.create({WindowKind::Gadget, "HalfHole", "first", nullptr, {200, 200, 300, 300}}));
    REQUIRE(second.create({WindowKind::Gadget, "HalfHole", "second", nullptr, {250, 200, 350, 300}}));
    first.show(ShowCommand::Show);
    second.show(ShowCommand::Show);
    const Point both{275, 250};
    sim::clickOnScreen(both);
    CHECK(second.presses == 1);
    sim::clickOnScreen({210, 210});
    CHECK(first.focused());
    sim::clickOnScreen(both);
    CHECK(first.presses == 2);
    first.show(ShowCommand::Hide);
    sim::clickOnScreen(both);
    CHECK(second.presses == 2);
}

TEST_CASE("a click into the hole of a window meets what is behind it") {
    Desk desk;
    HalfHole gadget;
    REQUIRE(gadget.create({WindowKind::Gadget, "HalfHole", "gadget", nullptr, {200, 200, 300, 300}}));
    gadget.show(ShowCommand::Show);
    pumpMessages();
    CHECK(sim::pixelAt(gadget, {10, 10}) == kHole);
    sim::clickOnScreen({210, 210});
    CHECK(gadget.presses == 1);
    desk.log.clear();
    REQUIRE(gadget.setTranslucency(255, kHole));
    sim::clickOnScreen({280, 210});
    CHECK(gadget.presses == 2);
    CHECK(desk.log.empty());
    sim::movePointer({210, 210});
    CHECK(desk.main.underPointer());
    CHECK_FALSE(gadget.underPointer());
    sim::clickOnScreen({210, 210});
    CHECK(gadget.presses == 2);
    CHECK(desk.main.focused());
    gadget.bringToFront();
    REQUIRE(gadget.setTranslucency(0));
    sim::clickOnScreen({280, 210});
    CHECK(gadget.presses == 2);
}

TEST_CASE("a key that is pressed is down while the window hears of it, and so is what is held") {
    Desk desk;
    HalfHole gadget;
    REQUIRE(gadget.create({WindowKind::Gadget, "HalfHole", "gadget", nullptr, {200, 200, 300, 300}}));
    gadget.show(ShowCommand::Show);
    sim::pressKey('X', {true, false, false});
    CHECK(gadget.letterDown);
    CHECK(gadget.shiftDown);
    CHECK_FALSE(keyDown('X'));
    CHECK_FALSE(keyDown(key::kShift));
    sim::pressKey('Y');
    CHECK_FALSE(gadget.shiftDown);
    sim::holdKey(key::kShift);
    sim::pressKey('Y');
    CHECK(gadget.shiftDown);
    sim::releaseKey(key::kShift);
    CHECK_FALSE(keyDown(key::kShift));
}
