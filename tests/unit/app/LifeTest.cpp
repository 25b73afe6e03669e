// The life of the program as its machine sees it: the order of its way up and down, one copy at a time, in the
// notification area and back.
#include <array>

#include "AppFixture.h"

using namespace apptest;
using platform::TrayEvent;
using platform::WindowState;

namespace {

// What the machine was asked comes in this order, with anything in between.
void CheckOrder(const std::vector<std::string>& wanted) {
    const std::vector<std::string> log = sim::log();
    auto at = log.begin();
    for (const std::string& what : wanted) {
        const auto found = std::find_if(at, log.end(), [&](const auto& entry) { return entry.starts_with(what); });
        CHECK_MESSAGE(found != log.end(), what, " does not come here");
        if (found != log.end()) at = found + 1;
    }
}

}  // namespace

TEST_CASE_FIXTURE(Machine, "The way up and the way down keep their order") {
    Store("Shadow", "1");
    sim::clearLog();
    Start();
    CheckOrder({"createMutex KestrumMutex", "setProperty Kestrum_2", "adjustTokenPrivilege", "setPriorityClass 100",
                "addDropShadow Kestrum 2", "createFolder C:\\Kestrum\\Cache", "storeRead FavName", "trayAdd 1",
                "storeRead FavColSort", "trayModify 1", "storeRead Form1_Pos", "storeRead AutoSet",
                "startTimer 2333", "show Kestrum 2 Show", "startTimer 500", "startTimer 500"});
    CHECK(sim::hasDropShadow(*form));
    CHECK(sim::openHandles("timer") == 3);

    sim::setPointer(form->ToolBar1(), {5, 5});
    REQUIRE(sim::tips().size() == 1);
    sim::clearLog();
    SUBCASE("by the menu of the icon") {
        ChooseInTray(tray::command::kExit);
        CheckOrder({"stopTimer", "stopTimer", "stopTimer", "show Kestrum 2 Hide", "storeWrite"});
    }
    SUBCASE("by the end of the session") {
        sim::endSession();
    }
    SUBCASE("by a quit message of another program") {
        sim::failMessages(999);  // which are no end yet
        sim::quitFromOutside(0);
        CHECK(form->Run() == 0);
    }
    SUBCASE("by messages that cannot be got for good") {
        sim::failMessages(1000);
        sim::quitFromOutside(0);
        CHECK(form->Run() == 1);
    }
    SUBCASE("by a restart") {
        form->Restart();
        CheckOrder({"storeWrite Splitter=", "show Kestrum 2 Hide", "releaseMutex KestrumMutex",
                    "closeMutex KestrumMutex", "openDocument C:\\Kestrum\\Kestrum2.exe", "trayDelete 1"});
        CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Kestrum2.exe"});
        form->Run();
    }
    CheckOrder({"destroyTooltip", "storeWrite Form1_Pos=", "storeWrite Splitter=", "trayDelete 1", "destroyIcon",
                "destroyWindow Kestrum 2", "postQuit 0"});
    CHECK(Logged("storeWrite") == 10);  // each once
    CHECK(sim::openHandles("timer") == 0);
    CHECK(sim::quitCode() == 0);
}

TEST_CASE_FIXTURE(Machine, "A second copy wakes the first one and leaves no trace") {
    Store("Form1_Pos", "5000,5000,800,600");
    CHECK(Start().bounds() == platform::Rect{5000, 5000, 5800, 5600});
    for (const bool away : {true, false}) {
        form->setBounds({5000, 5000, 5800, 5600});
        if (away) sim::closeBox(*form);
        REQUIRE(form->visible() != away);
        sim::clearLog();
        CHECK(app::Form1().Start() == app::Form1::StartResult::Duplicate);
        CHECK(Logged("storeWrite") == 0);
        CHECK(Logged("trayAdd") == 0);
        CheckOrder({"createMutex", "releaseMutex", "closeMutex", "showNormalAsync Kestrum 2",
                    "bringToFront Kestrum 2", "sendText WakeUp", "trayBalloon Kestrum 2"});
        sim::run(0);
        CHECK(form->visible());
        CHECK(form->state() == WindowState::Normal);
        CHECK(form->bounds() == platform::Rect{480, 170, 1280, 770});  // within reach
        CHECK(sim::openHandles("timer") == 3);
        CHECK(sim::quitCode() == -1);
    }
    REQUIRE(sim::balloons().size() == 2);
    const sim::Balloon balloon = sim::balloons().front();
    CHECK(balloon.title == "Kestrum 2");
    CHECK(balloon.text == "A copy of Kestrum 2 is already running,\r\nand has been restored to the desktop.");
    CHECK(balloon.icon == platform::BalloonIcon::Info);

    // One that runs as administrator accepts nothing but the word, and shows itself.
    sim::closeBox(*form);
    sim::setElevated(true);
    CHECK(app::Form1().Start() == app::Form1::StartResult::Duplicate);
    sim::run(0);
    CHECK(form->visible());
    CHECK(sim::balloons().size() == 3);
    sim::setElevated(false);

    // Any other text is not meant for this program.
    const std::uintptr_t number = platform::windowProperty(form->native(), "Kestrum_2");
    REQUIRE(number != 0);
    platform::sendText(number, "wakeup");
    platform::sendText(number, std::string(70'000, 'x'));
    CHECK(sim::balloons().size() == 3);
}

TEST_CASE_FIXTURE(Machine, "A second copy that finds nobody to wake ends as quietly") {
    sim::holdMutex("KestrumMutex");
    platform::Window other;
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "Other";
    REQUIRE(other.create(spec));
    // The other one is just coming up, its mailbox went just now, another program pretends.
    for (const std::uintptr_t mailbox : {std::uintptr_t{0}, std::uintptr_t{123'456'789}, other.native()}) {
        if (mailbox != 0) platform::setWindowProperty(other, "Kestrum_2", mailbox);
        CHECK(app::Form1().Start() == app::Form1::StartResult::Duplicate);
    }
    for (const char* trace : {"trayBalloon", "trayAdd", "sendText", "storeWrite"}) CHECK(Logged(trace) == 0);
    CHECK(sim::quitCode() == -1);
}

TEST_CASE_FIXTURE(Machine, "The close box hides the window, and the icon brings it back in its normal state") {
    Start().setBounds({10, 20, 810, 620});
    sim::setPointer(form->ToolBar1(), {5, 5});
    SUBCASE("normal") {}
    SUBCASE("maximised") {
        form->show(platform::ShowCommand::Maximize);
    }
    const platform::Rect bounds = form->normalBounds();
    Tick(4);
    sim::closeBox(*form);
    CHECK_FALSE(form->visible());
    CHECK(form->state() == WindowState::Minimized);
    CHECK(sim::tips().empty());
    CHECK(sim::openHandles("timer") == 2);  // the memory gauge rests
    CHECK(sim::quitCode() == -1);
    const ProcessId late = Run("C:\\Apps\\late.exe");
    sim::clearLog();
    Tick(5);
    CHECK(sim::accessesAsked().empty());               // nobody looks at the list
    const ProcessId last = Run("C:\\Apps\\last.exe");  // after the last tick
    sim::trayEvent(TrayEvent::BalloonClicked);
    CHECK(Logged("bringToFront") == 0);  // only a shown window

    for (int times = 0; times < 2; ++times) {  // the second time it is there already, and stays as it is
        sim::trayEvent(TrayEvent::LeftDoubleClick);
        CHECK(form->visible());
        CHECK(form->bounds() == bounds);
        CHECK(RowOf(late) >= 0);
        CHECK(RowOf(last) >= 0);
        CHECK(sim::openHandles("timer") == 3);
    }
    platform::Window& splitter = *sim::findWindow("SplitBar");
    const int left = splitter.bounds().left;
    sim::mouseDown(splitter, {1, 50});
    sim::setPointer(splitter, {-19, 50});
    sim::mouseUp(splitter, {1, 50});
    CHECK(splitter.bounds().left == left - 20);
    sim::endProcess(last);
    sim::endProcess(late);  // which no tick has seen in the window
    Tick();
    CHECK(RowOf(late) == -1);
}

TEST_CASE_FIXTURE(Machine, "A timer that the system refuses is asked for again") {
    sim::refuseTimers(true);
    Start();
    CHECK(sim::openHandles("timer") == 0);
    sim::refuseTimers(false);
    SUBCASE("when the user asks for a look") {
        Processes().focus();
        sim::pressKey(key::kF5);
    }
    SUBCASE("when the user comes to the icon") {
        sim::trayEvent(TrayEvent::LeftUp);
    }
    CHECK(sim::openHandles("timer") == 3);

    sim::closeBox(*form);
    sim::refuseTimers(true);
    sim::trayEvent(TrayEvent::LeftDoubleClick);
    CHECK(sim::openHandles("timer") == 2);  // those it had go on
    const ProcessId late = Run("C:\\Apps\\late.exe", 1);
    Tick(5);
    CHECK(Cell(late, 4) == "25");
    sim::refuseTimers(false);
    Tick();
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE_FIXTURE(Machine, "Started into the notification area, before there is one") {
    sim::setShellRunning(false);
    Store("MiniMe", "1");
    Start();
    Tick(4);
    CHECK_FALSE(form->visible());
    CHECK(sim::trayIcons().empty());
    CHECK(sim::openHandles("timer") == 2);
    sim::setShellRunning(true);
    sim::restartShell();
    REQUIRE(sim::trayIcons().size() == 1);
    CHECK(sim::trayIcons()[0].source == "#1");  // the plain one, and at the next tick the meter
    Tick();
    CHECK(sim::trayIcons()[0].pixels.size() == 32 * 32);
    sim::trayEvent(TrayEvent::LeftDoubleClick);
    CHECK(form->visible());
    CHECK(form->bounds().size() == platform::Size{883, 445});
    CHECK(Processes().ListCount() == 1);
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE_FIXTURE(Machine, "What the user holds or has open does not go with the window") {
    Start();
    sim::whenModal([&](platform::Window&) {
        form->show(platform::ShowCommand::Minimize);
        CHECK(form->visible());  // in the task bar: the icon could not bring it back
        form->show(platform::ShowCommand::Restore);
        sim::pressKey(key::kEnter);
    });
    ClickButton(app::button::kRemoveFavorites);
    platform::Window* splitter = sim::findWindow("SplitBar");
    REQUIRE(splitter);
    sim::mouseDown(*splitter, {1, 50});
    sim::closeBox(*form);
    sim::movePointer({700, 300});
    sim::mouseUp(*splitter, {1, 50});
    Exit();
    CHECK(Stored("Splitter") == "474");
}

TEST_CASE_FIXTURE(Machine, "The menu of the icon sets favourites and switches Auto Set") {
    PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    const ProcessId favourite = Run("C:\\Apps\\fav.exe");
    Start();
    ChooseInTray(0);
    CHECK(MaskOf(favourite) == 0xF);
    ChooseInTray(tray::command::kSetNow);
    CHECK(MaskOf(favourite) == 2);
    MaskOf(favourite) = 0xF;
    ChooseInTray(tray::command::kAutoSet);
    CHECK(form->ToolBar1().IsChecked(app::button::kAutoSet));
    CHECK(MaskOf(favourite) == 2);

    sim::whenMenu([&](const MenuItems& items) {
        CHECK_FALSE(items[0].enabled);  // "Set Now"
        CHECK(items[2].checked);        // "Auto Set"
        return tray::command::kAutoSet;
    });
    sim::trayEvent(TrayEvent::RightUp);
    CHECK_FALSE(form->ToolBar1().IsChecked(app::button::kAutoSet));

    // While a question is open, of whichever window, the icon only calls for the answer.
    ClickButton(app::button::kSetOptions);
    for (const bool ofOptions : {false, true}) {
        int asked = 0;
        sim::whenModal([&](platform::Window&) {
            ++asked;
            sim::clearLog();
            for (const TrayEvent event :
                 {TrayEvent::RightUp, TrayEvent::LeftUp, TrayEvent::LeftDoubleClick, TrayEvent::BalloonClicked}) {
                sim::trayEvent(event);
            }
            CHECK(Logged("showMenu") == 0);
            CHECK(Logged("beep") == 2);
            CHECK(Logged("bringToFront Kestrum 2") == 2);
            // Neither window takes what would ask another one.
            ClickButton(app::button::kRemoveFavorites);
            sim::click(*sim::findWindow("Restore All"), {6, 6});
            sim::pressKey(key::kEscape);  // it has the keyboard still
        });
        if (ofOptions) {
            sim::click(*sim::findWindow("Column Widths"), {6, 6});
        } else {
            ClickButton(app::button::kRemoveFavorites);
        }
        CHECK(asked == 1);
    }
}

TEST_CASE_FIXTURE(Machine, "The meter follows the load, and stays as it is while there are no icons to be had") {
    Start();
    const auto barPixels = [] {
        const std::vector<platform::Color> icon = sim::trayIcons().at(0).pixels;
        return std::count(icon.begin(), icon.end(), platform::rgb(255, 0, 0));
    };
    const ProcessId busy = Run("C:\\Apps\\busy.exe", 2);
    Tick(2);
    CHECK(barPixels() == 29 * 14);  // half of the processors: rows 17 to 30
    sim::failIcons(true);
    sim::endProcess(busy);
    Tick(100);
    CHECK(barPixels() == 29 * 14);
    sim::failIcons(false);
    Tick(2);
    CHECK(barPixels() == 0);
}

TEST_CASE_FIXTURE(Machine, "A hundred thousand ticks of the meter leave nothing open") {
    Start();
    settings::DisplayOptions options;
    int icons = 0;
    for (int tick = 0; tick < 100'000; ++tick) {
        if (tick % 1000 == 0) {
            options.trayType = 1 + tick / 1000 % 3;
            form->Tray().Show(options);
            sim::advance(500);
        }
        form->Tray().TrayTimer();
        if (tick == 10) icons = sim::openHandles("icon");
    }
    CHECK(sim::openHandles("icon") == icons);
    CHECK(sim::openHandles("picture") <= 6);  // toolbars, buttons, digits
}

TEST_CASE_FIXTURE(Machine, "Tips explain buttons, rows and gauges, unless the user wants none") {
    PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t-x\r\n");
    Run("C:\\Apps\\fav.exe");
    Start();
    const auto over = [&](platform::Window& window, platform::Point at) {
        sim::setPointer(window, at);  // the toolbar, which holds the mouse, takes the first move
        sim::setPointer(window, at);
        return sim::tips().size() == 1 ? sim::tips()[0] : sim::Tip{};
    };
    const platform::Rect button = form->ToolBar1().ButtonRect(app::button::kEnforce);
    const sim::Tip enforce = over(form->ToolBar1(), {button.left + 4, button.top + 4});
    CHECK(enforce.title == "Enforce Auto Set");
    CHECK(enforce.text == "Checks favorites at set interval to make sure they are set!");
    CHECK(enforce.autoPop == 7000);
    const sim::Tip row = over(Favorites(), {40, 30});
    CHECK(row.title + "|" + row.text == "Fav.exe|C:\\Apps\\fav.exe\r\n-x");
    for (const auto& [name, shown, title] :
         {std::array<std::string, 3>{"ProgressBar1", "Mem Free: 50 %", "Physical Memory Available (K)"},
          std::array<std::string, 3>{"ProgressBar2", "CPU: 100 %", "Total CPU Usage"}}) {
        platform::Window& gauge = *sim::findWindow(name);
        CHECK(TextOf(gauge) == shown);
        CHECK(over(gauge, {5, 5}).title == title);
    }
    CHECK(over(*sim::findWindow("Status"), {5, 5}).title.empty());
    Exit();
    Store("ShowTips", "0");
    sim::setPointer(Start().ToolBar1(), {5, 5});
    CHECK(sim::tips().empty());
}
