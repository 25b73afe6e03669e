// The whole program over thousands of ticks on a restless machine: processes come, go, are denied and reuse ids,
// while mouse and keyboard do random things.
#include <random>

#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

class RestlessMachine {
public:
    explicit RestlessMachine(app::Form1& form) : form_(form) {}

    void Step() {
        ChangeProcesses();
        if (Chance(2)) Touch();
        sim::run(Chance(10) ? 2000 : 500);
        if (Chance(50)) sim::paint(form_.ProcessList(), true);
    }

private:
    bool Chance(int oneIn) { return Below(oneIn) == 0; }
    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

    void ChangeProcesses() {
        // Now and then so many that the list can't show them all.
        if (Chance(200)) most_ = Chance(8) ? 280 : 20 + static_cast<std::size_t>(Below(60));
        while (running_.size() < most_ && Chance(2)) Add();
        while (running_.size() > 10 && (Chance(4) || running_.size() > most_)) {
            const std::size_t index = static_cast<std::size_t>(Below(static_cast<int>(running_.size())));
            const platform::ProcessId id = running_[index];
            sim::endProcess(id);
            running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(index));
            if (Chance(3)) Add(id);  // the id is used again at once
        }
        if (!running_.empty() && Chance(5)) {
            if (sim::Process* process = sim::findProcess(running_.front())) {
                process->deniedRights = Chance(2) ? 0x200u : 0x10u;
                process->workingSet = std::uint64_t{1} << Below(40);
            }
        }
    }

    void Add(platform::ProcessId id = 0) {
        static const char* const kNames[] = {"fav.exe", "GAME.EXE", "a.exe", "MyTool.EXE", "x", "\xC3\xA4.exe"};
        sim::Process process;
        process.id = id;
        process.path = std::string("C:\\Apps\\") + kNames[Below(6)];
        process.load = Below(3);
        process.vanishAfterListing = Chance(8);
        running_.push_back(sim::addProcess(process));
    }

    platform::Window& AnyWindow() {
        static const char* const kNames[] = {"UcList11",     "UcList12",    "ToolBar1",     "ToolBar2",
                                             "SplitBar",     "Status",      "CpuAffinity0", "CpuAffinity1",
                                             "ProgressBar1", "ProgressBar2"};
        // Of the dialogs and graphs, which are there at times.
        static const char* const kCaptions[] = {
            "Misc",         "CPU Graphs",      "Start Up",    "Show ToolTips",   "HScrl",     "Transparent Graphs",
            "Show Shadows", "Show Total /Avg", "CboTrayType", "CmboFavPriority", "CPU usage", "Close"};
        if (Chance(3)) {
            if (platform::Window* graph = AnyGraph()) return *graph;
            platform::Window* window = sim::findWindow(kCaptions[Below(12)]);
            if (window && window->enabled() && window->visible()) return *window;
        }
        platform::Window* window = sim::findWindow(kNames[Below(10)]);
        REQUIRE(window);
        return *window;
    }

    platform::Window* AnyGraph() {
        platform::Window* graph = form_.Graphs().InSlot(1 + Below(16));
        return graph && graph->visible() ? graph : nullptr;
    }

    void Touch() {
        if (!form_.visible() || Chance(12)) {
            TouchTray();
            return;
        }
        platform::Window& window = AnyWindow();
        const platform::Size size = window.clientSize();
        const platform::Point at{Below(size.width + 20) - 10, Below(size.height + 20) - 10};
        const platform::Modifiers keys{Chance(4), Chance(4), false};
        switch (Below(12)) {
            case 0:
                sim::mouseDown(window, at, platform::MouseButton::Left, keys);
                break;
            case 1:
                sim::mouseUp(window, at, platform::MouseButton::Left, keys);
                break;
            case 2:
                sim::doubleClick(window, at);
                break;
            case 3:
                sim::wheel(window, at, Chance(2) ? 120 : -120);
                break;
            case 4:
                sim::click(window, at, Chance(2) ? platform::MouseButton::Right : platform::MouseButton::Middle);
                break;
            case 5:
                sim::pressKey(static_cast<std::uint16_t>(Below(0x50)), keys);
                break;
            case 6:
                sim::loseCapture();
                break;
            case 7:
                sim::dragFrame(form_,
                               platform::Rect::fromSize({Below(300), Below(300)}, {Below(1500), Below(900)}));
                break;
            case 8:
                form_.show(Chance(2) ? platform::ShowCommand::Minimize : platform::ShowCommand::Maximize);
                break;
            case 9:
                form_.show(platform::ShowCommand::Restore);
                break;
            case 10:
                sim::restartShell();
                break;
            default:
                sim::click(window, at, platform::MouseButton::Left, keys);
                break;
        }
    }

    // An item of a menu or of one inside it, 0 when that can't be chosen.
    int AnyOf(const std::vector<platform::MenuItem>& items) {
        const platform::MenuItem& item = items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
        if (!item.enabled || item.id == tray::command::kExit) return 0;
        return item.submenu.empty() ? item.id : AnyOf(item.submenu);
    }

    void TouchTray() {
        if (!Chance(4)) return;
        const bool choose = Chance(3);
        sim::whenMenu(
            [this, choose](const std::vector<platform::MenuItem>& items) { return choose ? AnyOf(items) : 0; });
        sim::trayEvent(static_cast<platform::TrayEvent>(Below(4)));
        if (Chance(3)) sim::trayEvent(platform::TrayEvent::LeftDoubleClick);
    }

    app::Form1& form_;
    std::mt19937 random_{20101};
    std::vector<platform::ProcessId> running_;
    std::size_t most_ = 40;
};

}  // namespace

TEST_CASE("Ten thousand ticks on a restless machine leave nothing open and nothing broken") {
    Machine machine;
    sim::putFile("C:\\Apps\\fav.exe", "");
    sim::putFile("C:\\Apps\\game.exe", "");
    sim::putFile("C:\\Kestrum\\Help.htm", "");
    Machine::PutProfile(
        "Fav.exe\t01\tHigh\tC:\\Apps\\fav.exe\t\r\n"
        "Game.exe\t3\tDefault\tC:\\Apps\\GAME.EXE\t\r\n");
    sim::putSetting(kSection, "AutoSet", "1");
    sim::putSetting(kSection, "ReEnforce", "1");
    sim::putSetting(kSection, "EnforceInterval", "0");
    app::Form1& form = machine.Start();
    // Whatever a stray click asks is answered with No.
    for (int i = 0; i < 20'000; ++i) {
        sim::whenModal([](platform::Window&) { sim::pressKey(platform::key::kEscape); });
    }
    const int windows = sim::openHandles("window");
    RestlessMachine restless(form);
    for (int tick = 0; tick < 10'000; ++tick) {
        restless.Step();
        REQUIRE(form.ProcessList().ListCount() <= 256);
        REQUIRE(sim::openHandles("process") == 0);
    }
    form.Graphs().CloseAll();
    for (const char* caption : {"Kestrum Options", "Favorite Settings", "CPU usage"}) {
        if (platform::Window* open = sim::findWindow(caption)) sim::closeBox(*open);
    }
    sim::run(10'000);
    CHECK(sim::openHandles("window") == windows);
    CHECK(sim::openHandles("timer") <= 10);
    CHECK(sim::openHandles("icon") < 30);
    CHECK(sim::openHandles("tooltip") <= 1);
    sim::endSession();
    CHECK(sim::quitCode() == 0);
}
