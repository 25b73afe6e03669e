// What icons, balloons and shadows owe to Windows' own ways: messages of the notification area that say nothing,
// the tooltip control's own view of its tools, and class styles.
#include "contract/Probe.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "platform/Tooltip.h"
#include "platform/Tray.h"
#include "platform/win32/WindowData.h"

#include <commctrl.h>

using namespace contract;
using namespace platform;

namespace {

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

TEST_CASE_FIXTURE(contract::Fresh, "of what the notification area says, only what the user did is told") {
    Log log;
    Probe owner("owner", log, asMain());
    owner.notesPointer = true;
    REQUIRE(trayAdd(owner, 5, 0, "tip"));
    const auto say = [&owner](WPARAM icon, LPARAM code) { SendMessageA(hwndOf(owner), WM_MOUSEMOVE, icon, code); };
    // Moves, presses, the balloon's coming and going, and an icon of nobody.
    for (const LPARAM code :
         {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONUP, WM_USER + 2, WM_USER + 4}) {
        say(5, code);
    }
    say(6, WM_LBUTTONUP);
    CHECK(log.empty());
    trayDelete(owner, 5);
    say(5, WM_LBUTTONUP);  // the icon is gone
    CHECK_FALSE(has(log, "owner tray left"));

    // A window that is shown takes it for the move that it looks like.
    REQUIRE(trayAdd(owner, 5, 0, "tip"));
    owner.show(ShowCommand::Show);
    log.clear();
    say(5, WM_LBUTTONUP);
    CHECK(has(log, "owner move shift held 514,0"));
    trayDelete(owner, 5);
}

TEST_CASE_FIXTURE(Desk, "a balloon has its tools, texts and times, and comes to a pointer that rests already") {
    a.notesPointer = true;
    REQUIRE(handUntil(contract::setPointer, a, {10, 10},
                      [this] { return has(log, "a move 10,10") && a.underPointer(); }));
    const TooltipHandle tooltip = createTooltip();
    const auto hwnd = reinterpret_cast<HWND>(tooltip.raw());
    setTooltipDelays(tooltip, 20000, 50);
    setTooltipTitle(tooltip, "Title");
    const std::string text = "one & two\r\nthree";
    REQUIRE(addTool(tooltip, a, text));
    CHECK(waitFor([&] {
        if (!a.underPointer()) contract::setPointer(a, {10, 10});  // reported elsewhere once more
        return IsWindowVisible(hwnd) != FALSE;
    }));

    CHECK(SendMessageA(hwnd, TTM_GETTOOLCOUNT, 0, 0) == 1);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0) == 20000);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_INITIAL, 0) == 50);
    CHECK(textOf(hwnd, a) == text);
    // A title is cut at 99 characters, however many bytes they take: seen by the width that the balloon wants.
    const auto widthWith = [&](const std::string& letter, int count) {
        std::string title;
        for (int i = 0; i < count; ++i) title += letter;
        setTooltipTitle(tooltip, title);
        TTTOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V2_SIZE;
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = hwndOf(a);
        tool.uId = a.native();
        return LOWORD(SendMessageA(hwnd, TTM_GETBUBBLESIZE, 0, reinterpret_cast<LPARAM>(&tool)));
    };
    CHECK(widthWith("\xD1\x8E", 99) > widthWith("\xD1\x8E", 98));
    CHECK(widthWith("\xD1\x8E", 100) == widthWith("\xD1\x8E", 99));
    const LONG style = GetWindowLongA(hwnd, GWL_STYLE);
    CHECK((style & (TTS_ALWAYSTIP | TTS_NOPREFIX | TTS_BALLOON)) == (TTS_ALWAYSTIP | TTS_NOPREFIX | TTS_BALLOON));
    CHECK((GetWindowLongA(hwnd, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
    setTooltipDelays(tooltip, 1000000, -1);  // more than there can be, and less
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0) == 32767);
    CHECK(SendMessageA(hwnd, TTM_GETDELAYTIME, TTDT_INITIAL, 0) == 0);
}

TEST_CASE_FIXTURE(Desk, "a shadow falls behind a window's class and the dialogs above it") {
    CHECK_FALSE(hasShadow(main));
    main.addDropShadow();
    Probe dialog("dialog", log, asDialogOf(main));
    CHECK(hasShadow(main));
    CHECK(hasShadow(dialog));
    CHECK_FALSE(hasShadow(a));
}

TEST_CASE_FIXTURE(Desk, "what is launched gets its parameters and works in its folder") {
    REQUIRE(writeNewFile(scratch + "run it.bat", "@echo %1-%2>started.txt\r\n"));
    REQUIRE(launch(main, "run it.bat", "one two", scratch));
    CHECK(waitFor([this] { return readFile(scratch + "started.txt") == "one-two\r\n"; }));
    for (const std::string& none :
         {std::string("missing.bat"), std::string(), std::string("run it.bat\0.txt", 15)}) {
        CHECK_FALSE(launch(main, none, std::nullopt, scratch));
    }
}
