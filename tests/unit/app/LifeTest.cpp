// The life of the program as its machine sees it: the order of its way up and down, one copy at a time, in the
// notification area and back.
#include <algorithm>

#include "AppFixture.h"
#include "app/MainToolBars.h"
#include "settings/Settings.h"

using namespace apptest;
using platform::TrayEvent;
using platform::WindowState;

namespace {

// Where the first entry that begins with `what` stands, at or behind `from`; the log's size when there is none.
std::size_t Find(const std::vector<std::string>& log, const std::string& what, std::size_t from = 0) {
    const auto found = std::find_if(log.begin() + static_cast<std::ptrdiff_t>(std::min(from, log.size())),
                                    log.end(), [&](const std::string& entry) { return entry.starts_with(what); });
    return static_cast<std::size_t>(found - log.begin());
}

// What the machine was asked comes in this order, with anything in between.
void CheckOrder(const std::vector<std::string>& wanted) {
    const std::vector<std::string> log = sim::log();
    std::size_t at = 0;
    for (const std::string& what : wanted) {
        const std::size_t found = Find(log, what, at);
        CHECK_MESSAGE(found < log.size(), what, " does not come here");
        if (found < log.size()) at = found + 1;
    }
}

int Count(const std::string& what) {
    const std::vector<std::string> log = sim::log();
    return static_cast<int>(
        std::count_if(log.begin(), log.end(), [&](const std::string& entry) { return entry.starts_with(what); }));
}

}  // namespace

TEST_CASE("The way up and the way down keep their order") {
    Machine machine;
    sim::putSetting(kSection, "Shadow", "1");
    sim::clearLog();
    app::Form1& form = machine.Start();
    CheckOrder({"createMutex KestrumMutex",
                "setProperty Kestrum_2",
                "adjustTokenPrivilege",
                "setPriorityClass 100",
                "storeRead Shadow",
                "addDropShadow Kestrum 2",
                "createFolder C:\\Kestrum\\Cache",
                "storeRead FavName",
                "trayAdd 1",
                "storeRead FavColSort",
                "storeRead FavSortDir",
                "storeRead TrayNum",
                "storeRead ShowTips",
                "storeRead MsgBeep",
                "storeRead TrayForeColor",
                "storeRead TrayBrdrIdx",
                "trayModify 1",
                "storeRead Form1_Pos",
                "storeRead FileColWide",
                "storeRead Splitter",
                "storeRead FileColWideMax",
                "storeRead ReEnforce",
                "storeRead EnforceInterval",
                "storeRead AutoSet",
                "storeRead MiniMe",
                "startTimer 2333",
                "show Kestrum 2 Show",
                "startTimer 500",
                "startTimer 500"});
    CHECK(sim::hasDropShadow(form));
    CHECK(sim::openHandles("timer") == 3);

    sim::setPointer(form.ToolBar1(), {5, 5});
    REQUIRE(sim::tips().size() == 1);
    sim::clearLog();
    const std::vector<std::string> wayDown = {"destroyTooltip",
                                              "storeWrite FavColSort=",
                                              "storeWrite FavSortDir=",
                                              "storeWrite Form1_Pos=",
                                              "storeWrite TransLevel=",
                                              "storeWrite FileColWideMax=",
                                              "storeWrite FavColWideMax=",
                                              "storeWrite SplitterMax=",
                                              "storeWrite FileColWide=",
                                              "storeWrite FavColWide=",
                                              "storeWrite Splitter=",
                                              "trayDelete 1",
                                              "destroyIcon",
                                              "destroyWindow Kestrum 2",
                                              "postQuit 0"};
    SUBCASE("by the menu of the icon") {
        Machine::ChooseInTray(tray::command::kExit);
        CheckOrder({"stopTimer", "stopTimer", "stopTimer", "show Kestrum 2 Hide", "storeWrite"});
    }
    SUBCASE("by the end of the session") {
        sim::endSession();
    }
    SUBCASE("by a restart") {
        form.Restart();
        CheckOrder({"storeWrite Splitter=", "show Kestrum 2 Hide", "releaseMutex KestrumMutex",
                    "closeMutex KestrumMutex", "openDocument C:\\Kestrum\\Kestrum2.exe", "trayDelete 1"});
        CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Kestrum2.exe"});
    }
    CheckOrder(wayDown);
    CHECK(Count("storeWrite") == 10);
    CHECK(sim::openHandles("timer") == 0);
    CHECK(sim::quitCode() == 0);
}

TEST_CASE("A second copy wakes the first one and leaves no trace") {
    Machine machine;
    app::Form1& first = machine.Start();
    for (const auto& state : {WindowState::Minimized, WindowState::Normal}) {
        if (state == WindowState::Minimized) sim::closeBox(first);
        REQUIRE(first.visible() == (state == WindowState::Normal));
        sim::clearLog();
        {
            app::Form1 second;
            CHECK(second.Start() == app::Form1::StartResult::Duplicate);
        }
        CHECK(Count("storeWrite") == 0);
        CHECK(Count("trayAdd") == 0);
        CHECK(Count("createMutex") == 1);
        CheckOrder({"createMutex", "releaseMutex", "closeMutex", "showNormalAsync Kestrum 2",
                    "bringToFront Kestrum 2", "sendText WakeUp", "trayBalloon Kestrum 2"});
        sim::run(0);
        CHECK(first.visible());
        CHECK(first.state() == WindowState::Normal);
        CHECK(sim::openHandles("timer") == 3);
        CHECK(sim::quitCode() == -1);
    }
    REQUIRE(sim::balloons().size() == 2);
    const sim::Balloon balloon = sim::balloons().front();
    CHECK(balloon.title == "Kestrum 2");
    CHECK(balloon.text == "A copy of Kestrum 2 is already running,\r\nand has been restored to the desktop.");
    CHECK(balloon.icon == platform::BalloonIcon::Info);

    // Any other text is not meant for this program.
    const std::uintptr_t number = platform::windowProperty(first.native(), "Kestrum_2");
    REQUIRE(number != 0);
    platform::sendText(number, "wakeup");
    platform::sendText(number, std::string(70'000, 'x'));
    CHECK(sim::balloons().size() == 2);
}

TEST_CASE("A second copy that finds nobody to wake ends as quietly") {
    Machine machine;
    sim::holdMutex("KestrumMutex");
    platform::Window other;
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "Other";
    REQUIRE(other.create(spec));
    SUBCASE("the other one is just coming up") {}
    SUBCASE("its mailbox went just now") {
        platform::setWindowProperty(other, "Kestrum_2", 123'456'789);
    }
    SUBCASE("another program pretends") {
        platform::setWindowProperty(other, "Kestrum_2", other.native());
    }
    {
        app::Form1 second;
        CHECK(second.Start() == app::Form1::StartResult::Duplicate);
    }
    CHECK(Count("trayBalloon") == 0);
    CHECK(Count("sendText") == 0);
    CHECK(Count("storeWrite") == 0);
    CHECK(sim::trayIcons().empty());
    CHECK(sim::quitCode() == -1);
    other.destroy();
}

TEST_CASE("The close box hides the window, and the icon brings it back as it was") {
    Machine machine;
    app::Form1& form = machine.Start();
    form.setBounds({10, 20, 810, 620});
    sim::setPointer(form.ToolBar1(), {5, 5});
    const bool maximized = [] {
        SUBCASE("normal") {
            return false;
        }
        SUBCASE("maximised") {
            return true;
        }
        return false;
    }();
    if (maximized) form.show(platform::ShowCommand::Maximize);
    const platform::Rect bounds = form.bounds();

    sim::closeBox(form);
    CHECK_FALSE(form.visible());
    CHECK(form.state() == WindowState::Minimized);
    CHECK(sim::tips().empty());
    CHECK(sim::openHandles("timer") == 2);  // the memory gauge rests
    CHECK(sim::quitCode() == -1);
    const platform::ProcessId late = Machine::Run("C:\\Apps\\late.exe");
    Machine::Tick(5);
    CHECK(machine.RowOf(late) == -1);  // nobody looks at the list

    sim::trayEvent(TrayEvent::LeftDoubleClick);
    CHECK(form.visible());
    CHECK(form.bounds() == bounds);
    CHECK(machine.RowOf(late) >= 0);
    CHECK(sim::openHandles("timer") == 3);
    sim::trayEvent(TrayEvent::LeftDoubleClick);  // there already: it stays as it is
    CHECK(form.bounds() == bounds);
}

TEST_CASE("Started into the notification area there is no window, until it is asked for") {
    Machine machine;
    sim::putSetting(kSection, "MiniMe", "1");
    app::Form1& form = machine.Start();
    CHECK_FALSE(form.visible());
    CHECK(sim::trayIcons().size() == 1);
    CHECK(sim::openHandles("timer") == 2);
    sim::trayEvent(TrayEvent::BalloonClicked);  // brings only a shown window to the front
    CHECK_FALSE(form.visible());
    sim::trayEvent(TrayEvent::LeftDoubleClick);
    CHECK(form.visible());
    CHECK(form.bounds().size() == platform::Size{883, 445});
    CHECK(form.ProcessList().ListCount() == 1);
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE("The menu of the icon sets favourites and switches Auto Set") {
    Machine machine;
    Machine::PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    const platform::ProcessId favourite = Machine::Run("C:\\Apps\\fav.exe");
    app::Form1& form = machine.Start();
    const auto mask = [&] { return sim::findProcess(favourite)->affinityMask; };

    Machine::ChooseInTray(0);
    CHECK(mask() == 0xF);
    Machine::ChooseInTray(tray::command::kSetNow);
    CHECK(mask() == 2);
    sim::findProcess(favourite)->affinityMask = 0xF;
    Machine::ChooseInTray(tray::command::kAutoSet);
    CHECK(form.ToolBar1().IsChecked(app::button::kAutoSet));
    CHECK(mask() == 2);

    bool looked = false;
    sim::whenMenu([&](const std::vector<platform::MenuItem>& items) {
        looked = true;
        CHECK_FALSE(items[0].enabled);  // "Set Now"
        CHECK(items[2].checked);        // "Auto Set"
        return tray::command::kAutoSet;
    });
    sim::trayEvent(TrayEvent::RightUp);
    CHECK(looked);
    CHECK_FALSE(form.ToolBar1().IsChecked(app::button::kAutoSet));
    CHECK(sim::openHandles("picture") <= 8);
}

TEST_CASE("While a question is open the icon only calls for the answer") {
    Machine machine;
    app::Form1& form = machine.Start();
    sim::whenModal([&](platform::Window&) {
        sim::clearLog();
        sim::trayEvent(TrayEvent::RightUp);
        sim::trayEvent(TrayEvent::LeftUp);
        sim::trayEvent(TrayEvent::LeftDoubleClick);
        sim::trayEvent(TrayEvent::BalloonClicked);
        CHECK(Count("showMenu") == 0);
        CHECK(Count("beep") == 2);
        CHECK(Count("bringToFront Kestrum 2") == 2);
        sim::pressKey(platform::key::kEnter);
    });
    machine.ClickButton(app::button::kRemoveFavorites);
    CHECK(form.exists());
}

TEST_CASE("The meter follows the load; without icons or shell the program goes on and recovers") {
    Machine machine;
    app::Form1& form = machine.Start();
    const auto pixels = [] { return sim::trayIcons().at(0).pixels; };
    const auto barPixels = [&] {
        const std::vector<platform::Color> icon = pixels();
        return std::count(icon.begin(), icon.end(), platform::rgb(255, 0, 0));
    };
    Machine::Tick(2);
    CHECK(barPixels() == 0);
    const platform::ProcessId busy = Machine::Run("C:\\Apps\\busy.exe", 2);
    Machine::Tick(2);
    CHECK(barPixels() == 29 * 14);  // half of the processors: rows 17 to 30
    CHECK(sim::findWindow("ProgressBar2") != nullptr);

    const std::vector<platform::Color> half = pixels();
    sim::failIcons(true);
    sim::endProcess(busy);
    Machine::Tick(100);
    CHECK(pixels() == half);  // as it was
    sim::failIcons(false);
    Machine::Tick(2);
    CHECK(barPixels() == 0);

    sim::setShellRunning(false);
    Machine::Tick(10);
    CHECK(sim::trayIcons().empty());
    sim::setShellRunning(true);
    sim::restartShell();
    REQUIRE(sim::trayIcons().size() == 1);
    CHECK(sim::trayIcons()[0].source == "#1");  // the plain one, and at the next tick the meter
    Machine::Tick();
    CHECK(barPixels() == 0);
    CHECK(pixels().size() == 32 * 32);

    form.Tray().TrayIconOff();
    CHECK(sim::trayIcons()[0].source == "#1");
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE("No shell at the start, damaged settings: the program comes up and shows itself when it can") {
    Machine machine;
    sim::setShellRunning(false);
    sim::putSetting(kSection, "MiniMe", "1");
    for (const char* name : {"TrayNum", "TrayForeColor", "TrayBrdrIdx", "ShowTips", "MsgBeep", "Shadow"}) {
        sim::putSetting(kSection, name, std::string(70'000, '7'));
    }
    sim::putSetting(kSection, "Form1_Pos", std::string(70'000, ','));
    SUBCASE("absurd") {}
    SUBCASE("colours that there are not") {
        sim::putSetting(kSection, "TrayNum", "1");
        sim::putSetting(kSection, "TrayForeColor", "-3");
        sim::putSetting(kSection, "TrayBrdrIdx", "-3");
    }
    machine.Start();
    Machine::Tick(4);
    CHECK(sim::trayIcons().empty());
    sim::setShellRunning(true);
    sim::restartShell();
    Machine::Tick(2);
    REQUIRE(sim::trayIcons().size() == 1);
    sim::trayEvent(TrayEvent::LeftDoubleClick);
    CHECK(machine.form->visible());
}

TEST_CASE("Tips explain buttons, rows and gauges, unless the user wants none") {
    Machine machine;
    Machine::PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t-x\r\n");
    Machine::Run("C:\\Apps\\fav.exe");
    SUBCASE("wanted") {
        app::Form1& form = machine.Start();
        const auto over = [&](platform::Window& window, platform::Point at) {
            sim::setPointer(window, at);  // the toolbar, which holds the mouse, takes the first move
            sim::setPointer(window, at);
            return sim::tips().size() == 1 ? sim::tips()[0] : sim::Tip{};
        };
        const auto button = [&](int index) {
            const platform::Rect area = form.ToolBar1().ButtonRect(index);
            return over(form.ToolBar1(), {area.left + 4, area.top + 4});
        };
        CHECK(button(app::button::kAutoSet).title == "Auto Set Favorites");
        CHECK(button(app::button::kEnforce).text == "Checks favorites at set interval to make sure they are set!");
        CHECK(button(app::button::kEnforce).autoPop == 7000);
        const sim::Tip row = over(form.FavoritesListControl(), {40, 30});
        CHECK(row.title == "Fav.exe");
        CHECK(row.text == "C:\\Apps\\fav.exe\r\n-x");
        CHECK(over(form.ProcessList(), {40, 30}).text.find("C:\\") == 0);
        CHECK(over(*sim::findWindow("ProgressBar1"), {5, 5}).title == "Physical Memory Available (K)");
        CHECK(over(*sim::findWindow("ProgressBar2"), {5, 5}).title == "Total CPU Usage");
        CHECK(over(*sim::findWindow("Status"), {5, 5}).title.empty());
    }
    SUBCASE("not wanted") {
        sim::putSetting(kSection, "ShowTips", "0");
        app::Form1& form = machine.Start();
        sim::setPointer(form.ToolBar1(), {5, 5});
        CHECK(sim::tips().empty());
    }
}

TEST_CASE("A hundred thousand ticks of the meter leave nothing open") {
    Machine machine;
    app::Form1& form = machine.Start();
    settings::DisplayOptions options;
    options.trayColor = platform::rgb(0, 255, 0);
    int icons = 0;
    for (int tick = 0; tick < 100'000; ++tick) {
        if (tick % 1000 == 0) {
            options.trayType = 1 + tick / 1000 % 3;
            form.Tray().Show(options);
            sim::advance(500);
        }
        form.Tray().TrayTimer();
        if (tick == 10) icons = sim::openHandles("icon");
    }
    CHECK(sim::openHandles("icon") == icons);
    CHECK(sim::openHandles("picture") <= 6);  // toolbars, buttons, digits
    CHECK(form.Tray().Totals().samples > 100'000);
}
