#include "process/ProcessDetails.h"

#include <doctest/doctest.h>

#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;

constexpr char kPath[] = "C:\\Apps\\app.exe";

platform::ProcessId Add(std::uint32_t denied = 0) {
    sim::Process process;
    process.path = kPath;
    process.deniedRights = denied;
    return sim::addProcess(process);
}

platform::WindowFacts MainWindow(platform::ProcessId id, const std::string& caption) {
    return {0, 0, true, 0, caption, "App", id};
}

}  // namespace

TEST_CASE("Uptimes") {
    sim::reset();
    const std::int64_t day = 86'400;
    CHECK(process::UptimeText(1000, 1000 + day + 2 * 3600 + 3 * 60 + 4) == "01:02:03:04");
    CHECK(process::UptimeText(0, 100 * day) == "100:00:00:00");
    CHECK(process::UptimeText(1002, 1000) == "00:00:00:00");
    CHECK(process::UptimeText(1003, 1000).empty());

    sim::setLocalBias(-120);  // two hours ahead of UTC
    const platform::ProcessId old = Add();
    sim::findProcess(old)->creation = 133'485'408'009'999'999;  // within the first second of 2024
    CHECK(process::StartTime(old) == 13'348'540'800 + 7200);
    CHECK(process::StartTime(Add()) == process::LocalNow());
    const platform::ProcessId young = Add();
    sim::advance(59'999);
    sim::setLocalBias(300);  // daylight saving time begins or ends: no uptime changes
    CHECK(process::RowTip("App.exe", young, kPath).text == "C:\\Apps\\app.exe\r\nUpTime: 00:00:00:59");
    CHECK(process::RowTip("App.exe", Add(0x400), kPath).text == "C:\\Apps\\app.exe\r\nUpTime: ");
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("The main window is the uppermost one that people take for the program") {
    sim::reset();
    const platform::ProcessId id = Add();
    const platform::WindowFacts good = MainWindow(id, "  Report - App ");
    const auto addAbove = [&good](auto change) {
        platform::WindowFacts window = good;
        change(window);
        return sim::addOtherWindow(window);
    };
    addAbove([](auto& window) { window.caption = "below"; });
    const std::uintptr_t main = sim::addOtherWindow(good);
    for (const char* caption : {"", "VBBubble tip"}) addAbove([=](auto& window) { window.caption = caption; });
    for (const char* name : {"Progman", "iCPU"}) addAbove([=](auto& window) { window.className = name; });
    addAbove([](auto& window) { window.parent = 7; });
    addAbove([](auto& window) { window.owner = 7; });
    addAbove([](auto& window) { window.visible = false; });
    addAbove([](auto& window) { window.process = 0; });
    CHECK(process::MainWindowOf(id) == main);
    CHECK(process::CaptionOf(id) == "Report - App");
    CHECK(process::CaptionOf(0).empty());
    addAbove([](auto& window) {
        window.className = "Progman2";
        window.style = 0x00080000;
        window.caption = std::string(255, 'x') + "y";
    });
    CHECK(process::CaptionOf(id) == std::string(255, 'x'));
}

TEST_CASE("Titles of the tips over rows") {
    std::string manyBytes;  // 64 characters
    while (manyBytes.size() < 64 * 3) manyBytes += "\u20AC";
    const struct {
        std::string caption, fileText, path, title;
    } cases[] = {
        {"Report\r\npage 1", "App.exe", kPath, "Report"},
        {"\npage 1", "App.exe", kPath, "App.exe"},
        {manyBytes, "App.exe", kPath, manyBytes},
        {manyBytes + "123456", "App.exe", kPath, manyBytes + "..."},
        {"C:\\", "Explorer", "C:\\WINDOWS\\EXPLORER.EXE", "Windows Explorer"},  // the list hides extensions
        {"C:\\", "Explorer.exe", "", "Windows Explorer"},
    };
    for (const auto& one : cases) {
        sim::reset();
        const platform::ProcessId id = Add();
        sim::addOtherWindow(MainWindow(id, one.caption));
        CAPTURE(one.caption);
        CHECK(process::RowTip(one.fileText, id, one.path).title == one.title);
        CHECK(process::TitleOf(one.fileText, id, one.path) == (one.title == "App.exe" ? "" : one.title));
    }
}
