// What the simulated desktop says of holes in windows and of keys, for the tests that build on it.
#include "contract/Probe.h"
#include "platform/Keys.h"
#include "platform/sim/Sim.h"

using namespace contract;
using namespace platform;

namespace {

constexpr Color kHole = rgb(255, 0, 255);

// A gadget whose left half is a hole; asks for the keys as it gets one.
class HalfHole : public Probe {
public:
    explicit HalfHole(Log& log) : Probe("half", log, asGadget({200, 200, 300, 300})) {
        show(ShowCommand::Show);
        pumpMessages();
    }
    bool shiftDown = false;
    bool letterDown = false;

protected:
    void onPaint(Canvas& canvas, const Rect& dirty) override {
        canvas.fill(dirty, rgb(1, 2, 3));
        canvas.fill({0, 0, 50, 100}, kHole);
    }
    void onKey(const KeyEvent& event) override {
        if (!event.down) return;
        shiftDown = keyDown(key::kShift);
        letterDown = keyDown('X');
    }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "a click into the hole of a window meets what is behind it") {
    HalfHole gadget(log);
    const auto clickAt = [this](Point screen) {
        log.clear();
        sim::clickOnScreen(screen);
    };
    clickAt({210, 210});
    CHECK(has(log, "half up left 10,10"));
    REQUIRE(gadget.setTranslucency(255, kHole));
    clickAt({280, 210});
    CHECK(has(log, "half up left 80,10"));
    sim::movePointer({210, 210});
    CHECK(main.underPointer());
    CHECK_FALSE(gadget.underPointer());
    clickAt({210, 210});
    CHECK(main.focused());
    CHECK_FALSE(has(log, "half up left 10,10"));
    gadget.bringToFront();
    REQUIRE(gadget.setTranslucency(0));
    clickAt({280, 210});
    CHECK_FALSE(has(log, "half up left 80,10"));
}

TEST_CASE_FIXTURE(Desk, "a key that is pressed is down while the window hears of it, and so is what is held") {
    HalfHole gadget(log);
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
}
