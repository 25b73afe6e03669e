// What windows owe to Windows' own ways, which the simulation does not have: update regions with gaps, mouse
// capture by the system, and the messages of pointer tracking.
#include "contract/Probe.h"
#include "platform/win32/Win32.h"

using namespace contract;
using namespace platform;

namespace {

HWND hwndOf(const Window& window) {
    return reinterpret_cast<HWND>(window.native());
}

class Rows : public Window {
public:
    bool first = false;
    bool between = false;
    bool last = false;

protected:
    void onPaint(Canvas& canvas, const Rect& dirty) override {
        first = canvas.needsPaint({0, 0, 100, 10});
        between = canvas.needsPaint({0, 10, 100, 30});
        last = canvas.needsPaint({0, 30, 100, 40});
        canvas.fill(dirty, rgb(255, 255, 255));
    }
};

}  // namespace

TEST_CASE("rows between two invalid ones need no paint") {
    Desk desk;
    Rows rows;
    REQUIRE(rows.create({WindowKind::Child, "Rows", "rows", &desk.main, {10, 70, 110, 130}}));
    rows.update();
    rows.invalidate({0, 0, 100, 10});
    rows.invalidate({0, 30, 100, 40});
    rows.update();
    CHECK(rows.first);
    CHECK_FALSE(rows.between);
    CHECK(rows.last);
    rows.destroy();
}

TEST_CASE("a control is brought to the front with the window it is in") {
    Desk desk;
    Probe above("above", desk.log);
    REQUIRE(above.createMain());
    above.show(ShowCommand::Show);
    pumpMessages();
    desk.a.show(ShowCommand::Hide);
    desk.a.bringToFront();
    CHECK(waitFor([&] { return GetForegroundWindow() == hwndOf(desk.main); }));
}

TEST_CASE("a capture that was the system's is not reported as lost") {
    Desk desk;
    SetCapture(hwndOf(desk.a));  // as Windows does while a frame is dragged or a caption button held
    ReleaseCapture();
    CHECK_FALSE(has(desk.log, "a captureLost"));
}

TEST_CASE("a pointer that leaves during a drag has left when the drag ends") {
    Desk desk;
    desk.a.notesPointer = true;
    desk.a.capture();
    SendMessageA(hwndOf(desk.a), WM_MOUSELEAVE, 0, 0);
    CHECK_FALSE(has(desk.log, "a leave"));
    desk.a.releaseCapture();
    CHECK(waitFor([&] { return has(desk.log, "a leave"); }));
    CHECK(count(desk.log, "a captureLost") == 1);
}
