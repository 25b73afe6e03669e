// What the simulated desktop says of holes in windows, of keys and of a shell that is away, for the tests that
// build on it.
#include "contract/Probe.h"
#include "platform/Files.h"
#include "platform/Keys.h"
#include "platform/Shell.h"

using namespace contract;
using namespace platform;

namespace {

constexpr Color kHole = rgb(255, 0, 255);

// A gadget whose left half is a hole.
struct HalfHole : Desk {
    Probe gadget{"half", log, asGadget({200, 200, 300, 300})};

    HalfHole() {
        gadget.draws = [](Canvas& canvas) { canvas.fill({0, 0, 50, 100}, kHole); };
        gadget.show(ShowCommand::Show);
        pumpMessages();
    }
    bool clickTells(Point screen, const std::string& event) {
        log.clear();
        sim::clickOnScreen(screen);
        return has(log, event);
    }
};

}  // namespace

TEST_CASE_FIXTURE(HalfHole, "a click into the hole of a window meets what is behind it") {
    CHECK(clickTells({210, 210}, "half up left 10,10"));
    REQUIRE(gadget.setTranslucency(255, kHole));
    CHECK(clickTells({280, 210}, "half up left 80,10"));
    sim::movePointer({210, 210});
    CHECK(main.underPointer());
    CHECK_FALSE(gadget.underPointer());
    CHECK_FALSE(clickTells({210, 210}, "half up left 10,10"));
    CHECK(main.focused());
    gadget.bringToFront();
    REQUIRE(gadget.setTranslucency(0));
    CHECK_FALSE(clickTells({280, 210}, "half up left 80,10"));
}

TEST_CASE_FIXTURE(Desk, "a key that is pressed is down while the window hears of it, and so is what is held") {
    bool letter = false;
    bool shift = false;
    a.keyPressed = [&] {
        letter = keyDown('X');
        shift = keyDown(key::kShift);
    };
    a.focus();
    sim::pressKey('X', {true, false, false});
    CHECK(letter);
    CHECK(shift);
    CHECK_FALSE(keyDown('X'));
    CHECK_FALSE(keyDown(key::kShift));
    sim::pressKey('Y');
    CHECK_FALSE(shift);
    sim::holdKey(key::kShift);
    sim::pressKey('Y');
    CHECK(shift);
}

TEST_CASE_FIXTURE(Desk, "what is launched must be in its folder or have its whole path, and needs a shell") {
    REQUIRE(writeNewFile(scratch + "run.bat", ""));
    CHECK(launch(main, "run.bat", "one two", scratch));
    CHECK(launch(main, scratch + "run.bat", std::nullopt, "C:\\"));
    CHECK_FALSE(launch(main, "missing.bat", std::nullopt, scratch));
    sim::setShellRunning(false);
    CHECK_FALSE(launch(main, "run.bat", std::nullopt, scratch));
}
