// The program's life in the notification area.
#include <doctest/doctest.h>

#include <functional>

#include "desktop/Session.h"
#include "desktop/Tray.h"

using namespace desktop;

namespace {

constexpr int kAutoSetButton = 6;
constexpr int kSetNowItem = 0, kAutoSetItem = 1, kExitItem = 4;

bool Shown(HWND window) {
    return IsWindowVisible(window) && !IsIconic(window);
}

int Pixels(const Picture& picture, std::uint32_t color) {
    int count = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) count += picture.At(x, y) == color ? 1 : 0;
    }
    return count;
}

std::uint64_t IdleTime() {
    FILETIME idle{}, kernel{}, user{};
    GetSystemTimes(&idle, &kernel, &user);
    return std::uint64_t{idle.dwHighDateTime} << 32 | idle.dwLowDateTime;
}

// Whether the meter comes to look different while a processor is used for a while, and then left alone for a while.
// On a machine that others keep busy all the time, a meter that stays full is right.
bool MeterMoves(const Picture& before, const std::function<bool(const Picture&)>& isMeter) {
    constexpr DWORD kPhase = 1000;
    constexpr std::uint64_t kPerMillisecond = 10000;
    const DWORD start = GetTickCount();
    const std::uint64_t idle = IdleTime();
    volatile unsigned work = 0;
    while (true) {
        const Picture now = TrayPicture();
        if (isMeter(now) && now != before) return true;
        const DWORD elapsed = GetTickCount() - start;
        if (elapsed > kBound) {
            const bool busy = (IdleTime() - idle) / kPerMillisecond < elapsed / 10;
            if (busy) MESSAGE("the machine was never idle");
            return busy && isMeter(now);
        }
        if (elapsed / kPhase % 2 == 0) {
            for (int i = 0; i < 3'000'000; ++i) work = work + 1;
        } else {
            Sleep(10);
        }
    }
}

}  // namespace

TEST_CASE("notification area: the window goes there and comes back; only Exit ends the program") {
    const Installation installation;
    Rect bounds, processList;
    {
        Session session(installation);
        REQUIRE(session.Started());
        REQUIRE(WaitFor(TrayHasIcon));
        MoveWindow(session.Main(), 40, 30, 960, 480, TRUE);

        session.ClickCloseBox();
        REQUIRE(WaitFor([&] { return !IsWindowVisible(session.Main()); }));
        CHECK(session.Running());

        // A second start brings the window of the first back, and goes.
        Process second(installation.Folder() + "Kestrum2.exe");
        CHECK(second.WaitForEnd());
        CHECK(WaitFor([&] { return Shown(session.Main()); }));
        CHECK(session.Running());

        ShowWindow(session.Main(), SW_MINIMIZE);
        REQUIRE(WaitFor([&] { return !IsWindowVisible(session.Main()); }));
        bounds = {40, 30, 1000, 510};
        CHECK(Repeat([](int) { DoubleClickTray(); },
                     [&] { return Shown(session.Main()) && ScreenRect(session.Main()) == bounds; }));
        processList = ScreenRect(session.Processes().Window());
        session.ClickCloseBox();
        REQUIRE(WaitFor([&] { return !IsWindowVisible(session.Main()); }));
        CHECK(ChooseInTray(kExitItem));
        REQUIRE(session.WaitForEnd());
        CHECK(WaitFor([] { return !TrayHasIcon(); }));
    }
    Session session(installation);
    REQUIRE(session.Started());
    CHECK(ScreenRect(session.Main()) == bounds);
    CHECK(ScreenRect(session.Processes().Window()) == processList);
    CHECK(session.End());
}

TEST_CASE("notification area: the menu switches Auto Set and sets favourites") {
    const Installation installation;
    WriteWholeFile(installation.ProfilePath(), kProfileHeader + FavoriteLine("1", "Below", installation.Target()));
    Session session(installation);
    REQUIRE(session.Started());
    REQUIRE(WaitFor(TrayHasIcon));
    Process early(installation.Target());
    const auto isSet = [](const Process& process) {
        return process.Affinity() == 2 && process.PriorityClass() == BELOW_NORMAL_PRIORITY_CLASS;
    };
    // The program has to have seen it before.
    CHECK(Repeat([](int) { ChooseInTray(kSetNowItem); }, [&] { return isSet(early); }));

    const Picture released = session.ToolBar1Button(kAutoSetButton);
    CHECK(ChooseInTray(kAutoSetItem));
    CHECK(WaitFor([&] { return session.ToolBar1Button(kAutoSetButton) != released; }));
    Process late(installation.Target());
    CHECK(WaitFor([&] { return isSet(late); }));
    CHECK(session.End());
}

TEST_CASE("notification area: the meter moves with the load, in its colours, and survives the shell") {
    const Installation installation;
    WriteSetting("MiniMe", "1");
    std::uint32_t color = 0xFF0000;
    SUBCASE("bar") {}
    SUBCASE("large digits") {
        WriteSetting("TrayNum", "2");
        WriteSetting("TrayForeColor", "1");
        color = 0x0000FF;
    }
    SUBCASE("small digits") {
        WriteSetting("TrayNum", "3");
        WriteSetting("TrayForeColor", "3");
        color = 0x00FF00;
    }
    Process program(installation.Folder() + "Kestrum2.exe");
    const auto colored = [color](const Picture& picture) { return Pixels(picture, color) > 0; };
    REQUIRE(WaitFor(TrayHasIcon));
    const Picture before = TrayPicture();
    CHECK(MeterMoves(before, colored));

    const HWND main = FindWindowA("Form1", "Kestrum 2");
    REQUIRE(main != nullptr);
    CHECK(WaitFor([&] { return !IsWindowVisible(main); }));  // the icon is there a little before
    LoseTrayIcon(main);
    CHECK(WaitFor([] { return !TrayHasIcon(); }));
    const Picture bare = TrayPicture();
    AnnounceShell();
    CHECK(MeterMoves(bare, colored));
    CHECK(ChooseInTray(kExitItem));
    CHECK(program.WaitForEnd());
}
