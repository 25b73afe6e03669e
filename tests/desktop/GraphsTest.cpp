// The CPU graphs: opened from the list, moved, remembered, gone with their processes; and the one of the whole
// machine.
#include <doctest/doctest.h>

#include <algorithm>

#include "desktop/Menu.h"
#include "desktop/Session.h"

using namespace desktop;

namespace {

constexpr int kGraphButton = 5;  // of ToolBar2
constexpr int kRememberItem = 4, kAverageItem = 1;
constexpr std::uint32_t kDarkGround = 0x141920;

Picture Shown(HWND window) {
    return {window, ClientRect(window)};
}

bool IsGraph(HWND window) {
    if (window == nullptr || !IsWindowVisible(window)) return false;
    const Picture picture = Shown(window);
    return picture.Background() == kDarkGround && !picture.Plain();
}

HWND Graph(const char* name) {
    return FindWindowA("iCPU", name);
}

// Opens graphs of what is selected, which does nothing to those that are open.
void ClickGraphButton(const Session& session, int aside) {
    session.ClickToolBar2(kGraphButton, aside / 4);
}

// Takes the graph by its body to where its upper left corner is `corner`.
bool MoveGraph(HWND graph, Point corner) {
    constexpr Point kGrip{50, 60};
    return Drag(
        graph,
        [&] {
            const Rect now = ScreenRect(graph);
            return Point{now.left + kGrip.x, now.top + kGrip.y};
        },
        {corner.x + kGrip.x, corner.y + kGrip.y},
        [&] {
            const Rect now = ScreenRect(graph);
            return now.left == corner.x && now.top == corner.y;
        });
}

bool ChooseInGraph(HWND graph, int item) {
    return ChooseInMenu(
        [&](int aside) {
            const Rect now = ScreenRect(graph);
            ClickScreen({now.left + 30 + aside, now.top + 60}, MouseKey::Right);
        },
        item);
}

bool Remembered(const std::string& slot, const Rect& place) {
    return ReadSetting("GraphTop" + slot) == std::to_string(place.top) &&
           ReadSetting("GraphLeft" + slot) == std::to_string(place.left);
}

struct Channels {
    explicit Channels(std::uint32_t pixel)
        : red(pixel >> 16 & 0xFF), green(pixel >> 8 & 0xFF), blue(pixel & 0xFF) {}
    std::uint32_t red, green, blue;
};

// Yellow, as the caption is at first; the bars have more blue.
bool IsInk(std::uint32_t pixel) {
    const Channels color(pixel);
    return color.blue < 45 && color.red > 120 && color.green > 120;
}

// From green to red; neither the ground and its grid, which are nearly grey, nor ink.
bool IsBar(std::uint32_t pixel) {
    const Channels color(pixel);
    const auto [low, high] = std::minmax({color.red, color.green, color.blue});
    return high - low > 60 && color.blue > 50;
}

int Count(const Picture& picture, bool (*is)(std::uint32_t pixel)) {
    int count = 0;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) count += is(picture.At(x, y)) ? 1 : 0;
    }
    return count;
}

}  // namespace

TEST_CASE("graphs: two at once, moved, remembered, gone with their process and back in place") {
    const Installation installation;
    FirstTwo company(installation);
    Session session(installation);
    REQUIRE(session.Started());
    REQUIRE(session.Processes().SelectFirstTwo());
    REQUIRE(Repeat([&](int aside) { ClickGraphButton(session, aside); },
                   [] { return IsGraph(Graph("Aaa")) && IsGraph(Graph("Aab")); }));
    const HWND first = Graph("Aaa"), second = Graph("Aab");
    CHECK_FALSE(ScreenRect(first).intersects(ScreenRect(second)));

    const Rect before = ScreenRect(first);
    CHECK(MoveGraph(first, {60, 440}));  // where its menu fits below the pointer, which selects nothing then
    const Rect moved = ScreenRect(first), other = ScreenRect(second);
    CHECK(moved.size() == before.size());
    CHECK_FALSE(ReadSetting("GraphTop1"));
    CHECK(ChooseInGraph(first, kRememberItem));
    CHECK(WaitFor([&] { return Remembered("1", moved) && Remembered("2", other); }));
    CHECK_FALSE(ReadSetting("GraphTop3"));

    company.first.Kill();
    CHECK(WaitFor([&] { return !IsWindow(first); }));
    CHECK(WaitFor([&] { return IsGraph(second); }));
    CHECK(ScreenRect(second) == other);

    const Process again(installation.Folder() + "Aaa.exe");
    CHECK(Repeat(
        [&](int aside) {
            session.Processes().ClickRowWith(MouseKey::Left, 0, aside);
            ClickGraphButton(session, aside);
        },
        [] { return IsGraph(Graph("Aaa")); }));
    CHECK(ScreenRect(Graph("Aaa")) == moved);
    CHECK(session.End());
}

TEST_CASE("graphs: that of the whole machine comes with the program, shows the load, and its average") {
    const Installation installation;
    WriteSetting("TtlOnStart", "1");
    Session session(installation);
    REQUIRE(session.Started());
    const HWND graph = WaitForWindow(session.Program(), "FrmColorMeter", "CPU usage");
    REQUIRE(WaitFor([&] { return IsGraph(graph); }));
    volatile unsigned work = 0;
    constexpr int kHighBars = 60;  // pixels; a machine that does nothing has some, too
    CHECK(WaitFor([&] {
        for (int i = 0; i < 3'000'000; ++i) work = work + 1;
        return Count(Shown(graph), IsBar) > kHighBars;
    }));
    CHECK(Count(Shown(graph), IsInk) == 0);

    CHECK(ChooseInGraph(graph, kAverageItem));
    CHECK(WaitFor([&] {
        const Picture picture = Shown(graph);
        return Count(picture, IsInk) > 0 && Count(picture, IsBar) == 0;
    }));
    const Picture average = Shown(graph);
    CHECK(WaitFor([&] {  // the time goes on
        const Picture picture = Shown(graph);
        return Count(picture, IsInk) > 0 && picture != average;
    }));

    const Rect place = ScreenRect(graph);
    CHECK(session.End());
    CHECK(ReadSetting("FrmColorMeter_Pos").value_or("").find(std::to_string(place.left)) != std::string::npos);
}
