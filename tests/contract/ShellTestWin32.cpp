// What icons, balloons and shadows owe to Windows' own ways: messages of the notification area that say nothing,
// the tooltip control's own view of its tools, and class styles.
#include "contract/Probe.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/Tooltip.h"
#include "platform/Tray.h"
#include "platform/win32/Win32.h"

#include <commctrl.h>

using namespace contract;
using namespace platform;

namespace {

HWND hwndOf(const Window& window) {
    return reinterpret_cast<HWND>(window.native());
}

bool hasShadow(const Window& window) {
    return (GetClassLongA(hwndOf(window), GCL_STYLE) & CS_DROPSHADOW) != 0;
}

std::string textOf(HWND tooltip, const Window& target) {
    char text[200] = {};
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.hwnd = hwndOf(target);
    tool.uId = target.native();
    tool.lpszText = text;
    SendMessageA(tooltip, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    return text;
}

}  // namespace

TEST_CASE("of what the notification area says, only what the user did is told") {
    contract::freshMachine();
    Log log;
    Probe owner("owner", log);
    owner.notesPointer = true;
    REQUIRE(owner.createMain());
    REQUIRE(trayAdd(owner, 5, 0, "tip"));
    SUBCASE("moves, presses and the balloon's coming and going") {
        for (const LPARAM code :
             {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONUP, WM_USER + 2, WM_USER + 4}) {
            SendMessageA(hwndOf(owner), WM_MOUSEMOVE, 5, code);
        }
        SendMessageA(hwndOf(owner), WM_MOUSEMOVE, 6, WM_LBUTTONUP);  // an icon of nobody
        CHECK(log.empty());
    }
    SUBCASE("nothing any more when the icon is gone") {
        trayDelete(owner, 5);
        SendMessageA(hwndOf(owner), WM_MOUSEMOVE, 5, WM_LBUTTONUP);
        CHECK_FALSE(has(log, "owner tray left"));
    }
    SUBCASE("a window that is shown takes it for the move that it looks like") {
        owner.show(ShowCommand::Show);
        log.clear();
        SendMessageA(hwndOf(owner), WM_MOUSEMOVE, 5, WM_LBUTTONUP);
        CHECK(has(log, "owner move shift held 514,0"));
    }
    trayDelete(owner, 5);
}

TEST_CASE("a balloon has its tools, texts and times, and comes to a pointer that rests already") {
    Desk desk;
    // A pointer that is moved by a program may be reported where it was before, so it is moved until it is there.
    desk.a.notesPointer = true;
    REQUIRE(waitFor([&] {
        contract::movePointer(desk.a, {10, 10});
        pumpMessages();
        return has(desk.log, "a move 10,10") && desk.a.underPointer();
    }));
    const TooltipHandle tooltip = createTooltip();
    const auto hwnd = reinterpret_cast<HWND>(tooltip.raw());
    setTooltipDelays(tooltip, 20000, 50);
    setTooltipTitle(tooltip, "Title");
    const std::string text = "one & two\r\nthree";
    REQUIRE(addTool(tooltip, desk.a, text));
    CHECK(waitFor([&] {
        if (!desk.a.underPointer()) contract::movePointer(desk.a, {10, 10});  // reported elsewhere once more
        return IsWindowVisible(hwnd) != FALSE;
    }));

    CHECK(SendMessageA(hwnd, TTM_GETTOOLCOUNT, 0, 0) == 1);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0) == 20000);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_INITIAL, 0) == 50);
    CHECK(textOf(hwnd, desk.a) == text);
    const LONG style = GetWindowLongA(hwnd, GWL_STYLE);
    CHECK((style & (TTS_ALWAYSTIP | TTS_NOPREFIX | TTS_BALLOON)) == (TTS_ALWAYSTIP | TTS_NOPREFIX | TTS_BALLOON));
    CHECK((GetWindowLongA(hwnd, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
    setTooltipDelays(tooltip, 1000000, -1);  // more than there can be, and less
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0) == 32767);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_INITIAL, 0) == 0);
}

TEST_CASE("a shadow falls behind a window's class and the dialogs above it") {
    Desk desk;
    CHECK_FALSE(hasShadow(desk.main));
    desk.main.addDropShadow();
    Probe dialog("dialog", desk.log);
    REQUIRE(dialog.createDialog(&desk.main));
    CHECK(hasShadow(desk.main));
    CHECK(hasShadow(dialog));
    CHECK_FALSE(hasShadow(desk.a));
    Probe none("none", desk.log);
    none.addDropShadow();
    // Classes outlive their windows.
    for (const Window* window : {&desk.main, &dialog}) {
        const DWORD style = GetClassLongA(hwndOf(*window), GCL_STYLE);
        SetClassLongA(hwndOf(*window), GCL_STYLE, static_cast<LONG>(style & ~DWORD{CS_DROPSHADOW}));
    }
}

TEST_CASE("what is launched gets its parameters and works in its folder") {
    Desk desk;
    const std::string folder = contract::scratchFolder();
    const auto started = [&folder] { return readFile(folder + "started.txt").value_or(""); };
    REQUIRE(writeFile(folder + "run it.bat", "@echo %1-%2>started.txt\r\n"));
    REQUIRE(launch(desk.main, "run it.bat", "one two", folder));
    CHECK(waitFor([&] { return started() == "one-two\r\n"; }));
    CHECK_FALSE(launch(desk.main, "missing.bat", std::nullopt, folder));
    CHECK_FALSE(launch(desk.main, "", std::nullopt, folder));
    CHECK_FALSE(launch(desk.main, std::string("run it.bat\0.txt", 15), std::nullopt, folder));
}
