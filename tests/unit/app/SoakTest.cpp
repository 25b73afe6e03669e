// The whole program over thousands of ticks on a restless machine: processes come, go, are denied and reuse ids,
// while mouse and keyboard do random things.
#include <cstdio>
#include <cstdlib>
#include <random>

#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t
__sanitizer_get_current_allocated_bytes();  // of its own header, which not all installations have
#endif

namespace {

class RestlessMachine {
public:
    // Something happens in about one of `calm` ticks.
    RestlessMachine(app::Form1& form, int calm) : form_(form), calm_(calm) {}

    void Step() {
        if (Chance(calm_)) ChangeProcesses();
        if (Chance(2 * calm_)) Touch();
        sim::run(Chance(10 * calm_) ? 2000 : 500);
        if (Chance(50 * calm_)) sim::paint(form_.ProcessList(), true);
    }

    void EndAll() {
        for (const platform::ProcessId id : running_) sim::endProcess(id);
        running_.clear();
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
    const int calm_;
    std::mt19937 random_{20101};
    std::vector<platform::ProcessId> running_;
    std::size_t most_ = 40;
};

// Whatever a stray click asks is answered with No.
void AnswerAll(platform::Window&) {
    sim::whenModal(AnswerAll);
    sim::pressKey(platform::key::kEscape);
}

void ExpectQuestions() {
    sim::whenModal(AnswerAll);
    sim::whenModal(AnswerAll);  // a question asked by a dialog
}

// Bytes in use by everything, the simulated machine included; 0 where nobody counts.
std::size_t HeapBytes() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return 0;
#endif
}

class Soak {
public:
    explicit Soak(int calm) : form_(Prepare()), restless_(form_, calm), windows_(sim::openHandles("window")) {}

    void Run(int ticks) {
        for (int tick = 0; tick < ticks; ++tick) {
            restless_.Step();
            REQUIRE(form_.ProcessList().ListCount() <= 256);
            REQUIRE(sim::openHandles("process") == 0);
        }
    }
    void CloseWindows() {
        form_.Graphs().CloseAll();
        for (const char* caption : {"Kestrum Options", "Favorite Settings", "CPU usage"}) {
            if (platform::Window* open = sim::findWindow(caption)) sim::closeBox(*open);
        }
        sim::run(10'000);
        CHECK(sim::openHandles("window") == windows_);
        CHECK(sim::openHandles("timer") <= 10);
        CHECK(sim::openHandles("icon") < 30);
        CHECK(sim::openHandles("tooltip") <= 1);
    }
    // Without what comes and goes with processes, recorded calls and the pixels of a larger window.
    std::size_t RestingBytes() {
        CloseWindows();
        restless_.EndAll();
        form_.show(platform::ShowCommand::Restore);
        form_.setBounds(platform::Rect::fromSize({100, 100}, {900, 450}));
        sim::forget();
        ExpectQuestions();
        sim::run(10'000);
        return HeapBytes();
    }

private:
    app::Form1& Prepare() {
        sim::putFile("C:\\Apps\\fav.exe", "");
        sim::putFile("C:\\Apps\\game.exe", "");
        sim::putFile("C:\\Kestrum\\Help.htm", "");
        Machine::PutProfile(
            "Fav.exe\t01\tHigh\tC:\\Apps\\fav.exe\t\r\n"
            "Game.exe\t3\tDefault\tC:\\Apps\\GAME.EXE\t\r\n");
        sim::putSetting(kSection, "AutoSet", "1");
        sim::putSetting(kSection, "ReEnforce", "1");
        sim::putSetting(kSection, "EnforceInterval", "0");
        ExpectQuestions();
        return machine_.Start();
    }

    Machine machine_;
    app::Form1& form_;
    RestlessMachine restless_;
    int windows_;
};

}  // namespace

TEST_CASE("Ten thousand ticks on a restless machine leave nothing open and nothing broken") {
    Soak soak(1);
    soak.Run(10'000);
    soak.CloseWindows();
    sim::endSession();
    CHECK(sim::quitCode() == 0);
}

// Takes six minutes: run by test.sh --long.
TEST_CASE("A week: 1.2 million ticks leave the memory as it was" *
          doctest::skip(std::getenv("KESTRUM_LONG") == nullptr)) {
    constexpr int kWeek = 7 * 24 * 60 * 60 * 2;
    Soak soak(8);
    soak.Run(kWeek / 14);  // until everything has happened once
    const std::size_t before = soak.RestingBytes();
    for (int day = 1; day <= 7; ++day) {
        soak.Run(kWeek / 7);
        const std::size_t now = soak.RestingBytes();
        std::printf("day %d: %zu KB in use, %zu before\n", day, now / 1024, before / 1024);
        CHECK(now < before + (256U << 10));
    }
    sim::endSession();
    CHECK(sim::quitCode() == 0);
}
