// What windows owe to Windows' own ways, which the simulation does not have: update regions with gaps, mouse
// capture by the system, the messages of pointer tracking, and the code page of text.
#include "contract/Probe.h"
#include "platform/win32/WindowData.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Desk, "rows between two invalid ones need no paint") {
    std::vector<bool> needed;
    a.draws = [&needed](Canvas& canvas) {
        needed.clear();
        for (const int top : {0, 10, 20, 30}) needed.push_back(canvas.needsPaint({0, top, 100, top + 10}));
    };
    a.invalidate({0, 0, 100, 10});
    a.invalidate({0, 30, 100, 40});
    a.update();
    CHECK(needed == std::vector<bool>{true, false, false, true});
}

TEST_CASE_FIXTURE(Desk, "a key that is held down repeats") {
    std::vector<bool> repeats;
    b.keyPressed = [&] { repeats.push_back(b.lastKey.repeat); };
    constexpr LPARAM kWasDown = 0x40000000;
    for (const LPARAM before : {LPARAM{0}, kWasDown}) SendMessageA(hwndOf(b), WM_KEYDOWN, 'A', before | 1);
    CHECK(repeats == std::vector<bool>{false, true});
}

TEST_CASE_FIXTURE(Desk, "a control is brought to the front with the window it is in") {
    Probe above("above", log, asMain());
    above.show(ShowCommand::Show);
    pumpMessages();
    a.show(ShowCommand::Hide);
    a.bringToFront();
    CHECK(waitFor([&] { return GetForegroundWindow() == hwndOf(main); }));
}

TEST_CASE_FIXTURE(Desk, "an active window is brought above what was shown over it") {
    const Rect bounds = main.bounds();
    Probe gadget("gadget", log, asGadget(bounds));
    gadget.show(ShowCommand::ShowInactive);
    const auto above = [&] {
        return GetAncestor(WindowFromPoint({(bounds.left + bounds.right) / 2, bounds.bottom - 20}), GA_ROOT);
    };
    REQUIRE(waitFor([&] { return above() == hwndOf(gadget); }));
    main.bringToFront();
    CHECK(waitFor([&] { return above() == hwndOf(main); }));
}

TEST_CASE_FIXTURE(Desk, "a capture that was the system's is not reported as lost") {
    SetCapture(hwndOf(a));  // as Windows does while a frame is dragged or a caption button held
    ReleaseCapture();
    CHECK_FALSE(has(log, "a captureLost"));
}

TEST_CASE_FIXTURE(Desk, "a pointer that leaves during a drag has left when the drag ends") {
    a.notesPointer = true;
    a.capture();
    SendMessageA(hwndOf(a), WM_MOUSELEAVE, 0, 0);
    CHECK_FALSE(has(log, "a leave"));
    a.releaseCapture();
    CHECK(waitFor([&] { return has(log, "a leave"); }));
    CHECK(count(log, "a captureLost") == 1);
}

TEST_CASE("text is drawn in the code page of the process, one character for each, however long") {
    if (GetACP() != CP_UTF8) {
        MESSAGE("this system has no UTF-8 code page for a process");
        return;
    }
    const int u = textSize("u", Font::Normal).width;
    CHECK(textSize("\xC3\xBC", Font::Normal).width == u);  // the same letter with two dots
    std::string many;
    for (int i = 0; i < 300; ++i) many += "\xC3\xBC";
    CHECK(textSize(many, Font::Normal).width == 300 * u);
}
