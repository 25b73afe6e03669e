#include "platform/OtherWindows.h"

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("what any window tells of itself") {
    Desk desk;
    const auto main = windowFacts(desk.main.native());
    REQUIRE(main);
    CHECK(main->caption == "main");
    CHECK(main->className == "ProbeMain");
    CHECK(main->process == currentProcessId());
    CHECK(main->visible);
    CHECK(main->parent == 0);
    CHECK(main->owner == 0);
    constexpr std::uint32_t kOverlapped = 0x00CF'0000;  // caption, system menu, thick frame, both boxes
    CHECK((main->style & kOverlapped) == kOverlapped);

    Probe dialog("dialog", desk.log);
    Probe list("list", desk.log);
    REQUIRE(dialog.createDialog(&desk.main));
    REQUIRE(list.createPopup(&desk.a, {200, 200, 300, 300}));
    for (const Window* owned : std::initializer_list<const Window*>{&dialog, &list}) {
        CAPTURE(owned->text());
        const auto facts = windowFacts(owned->native());
        REQUIRE(facts);
        CHECK_FALSE(facts->visible);
        CHECK(facts->owner == desk.main.native());
        CHECK(facts->parent == desk.main.native());
    }
    CHECK(windowFacts(dialog.native())->className == "#32770");

    desk.main.show(ShowCommand::Hide);
    desk.main.setText(std::string(1023, 'x') + "yz");
    const auto later = windowFacts(desk.main.native());
    REQUIRE(later);
    CHECK_FALSE(later->visible);
    CHECK(later->caption == std::string(1023, 'x'));

    const std::uintptr_t gone = desk.main.native();
    desk.main.destroy();
    CHECK_FALSE(windowFacts(gone));
    CHECK_FALSE(windowFacts(0));
}

TEST_CASE("a window is found by its class and its caption, in either case") {
    Desk desk;
    desk.main.setText("Kestrum 2 Contract Found");
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract Found") == desk.main.native());
    CHECK(findWindow("pROBEmAIN", "kestrum 2 contract FOUND") == desk.main.native());
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract") == 0);
    CHECK(findWindow("Probe", "Kestrum 2 Contract Found") == 0);
    desk.a.setText("Kestrum 2 Contract Inside");
    CHECK(findWindow("Probe", "Kestrum 2 Contract Inside") == 0);  // no top-level window

    Probe second("Kestrum 2 Contract Found", desk.log);
    REQUIRE(second.createMain());
    second.show(ShowCommand::Show);
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract Found") == second.native());
    desk.main.bringToFront();
    CHECK(waitFor([&] { return findWindow("ProbeMain", "Kestrum 2 Contract Found") == desk.main.native(); }));
    desk.main.show(ShowCommand::Hide);
    second.destroy();
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract Found") == desk.main.native());  // hidden or not
    desk.main.destroy();
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract Found") == 0);
}

TEST_CASE("a window asked to close is asked when messages run") {
    Desk desk;
    desk.main.keepOpen = true;
    postClose(desk.main.native());
    postClose(0);
    CHECK_FALSE(has(desk.log, "main close"));
    pumpMessages();
    CHECK(count(desk.log, "main close") == 1);
    desk.main.keepOpen = false;
    postClose(desk.main.native());
    postClose(desk.main.native());  // by then it is gone
    pumpMessages();
    CHECK_FALSE(desk.main.exists());
}
