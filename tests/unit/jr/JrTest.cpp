// Kestrum Jr. on the simulated machine, from its command line to its end.
#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <vector>

#include "favorites/JrHandOff.h"
#include "jr/JrForm.h"
#include "platform/sim/Sim.h"

namespace sim = platform::sim;
using favorites::JrTask;

namespace {

constexpr const char* kProfile3 = "C:\\Kestrum\\My Favs 3";
constexpr const char* kProfile4 = "C:\\Kestrum\\My Favs 4";
constexpr const char* kGame = "C:\\Games\\game.exe";
constexpr const char* kTool = "C:\\Tools\\tool.exe";
constexpr std::uint32_t kHigh = 0x80, kNormal = 0x20;

std::string Profile(const std::string& lines) {
    return "[Kestrum 2 - Morvell Software 2010]\r\n" + lines;
}
const std::string kGameLine = "Game.exe\t01\tHigh\tC:\\Games\\Game.exe\t-fast\r\n";
const std::string kToolLine = "Tool.exe\t2\tDefault\tC:\\Tools\\tool.exe\t\r\n";

struct Machine {
    Machine() {
        sim::reset();
        sim::putFile(kProfile3, Profile(kGameLine));
        sim::putFile(kProfile4, Profile(kToolLine));
    }
    ~Machine() {
        form.reset();
        CHECK(sim::openHandles() == 0);
        // Whatever happened: nothing was written, moved, deleted or stored.
        for (const std::string& entry : sim::log()) {
            for (const char* forbidden : {"writeNewFile", "moveFile", "deleteFile", "createFolders", "store"}) {
                CHECK_MESSAGE(!entry.starts_with(forbidden), entry);
            }
        }
    }
    void Start(const std::string& arguments = "/My Favs 3") {
        form = std::make_unique<jr::JrForm>();
        REQUIRE(form->Start(arguments));
    }
    static platform::ProcessId Run(const char* path) {
        sim::Process process;
        process.path = path;
        return sim::addProcess(process);
    }
    static void Tick(int count = 1) { sim::run(500U * static_cast<std::uint32_t>(count)); }
    static std::uint32_t& ClassOf(platform::ProcessId id) { return sim::findProcess(id)->priorityClass; }
    static std::uint32_t MaskOf(platform::ProcessId id) { return sim::findProcess(id)->affinityMask; }
    static void Choose(int command) {
        sim::whenMenu([command](const std::vector<platform::MenuItem>&) { return command; });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    // As the main program does it when the two change places.
    void AskToClose() const {
        platform::postClose(form->native());
        platform::pumpMessages();
    }
    static std::string Tip() { return sim::trayIcons().empty() ? "(no icon)" : sim::trayIcons()[0].tip; }

    std::unique_ptr<jr::JrForm> form;
};

}  // namespace

TEST_CASE("the command line: both spellings are understood, and nothing else") {
    sim::reset();
    CHECK(favorites::FormatJrTask({3, 0}) == "/My Favs 3");
    CHECK(favorites::FormatJrTask({3, 60}) == "/My Favs 3 /Enforce 60");
    CHECK(favorites::ParseJrTask(" /My Favs 3") == JrTask{3, 0});
    CHECK(favorites::ParseJrTask(" /My Favs 3 /Enforce 30") == JrTask{3, 30});  // as the run list has it
    CHECK(favorites::ParseJrTask("/my favs 5  /ENFORCE  32767 ") == JrTask{5, 32767});
    for (const char* quoted : {" \"/My Favs 3\" /Enforce 10", "/\"My Favs 3\" /Enforce 10",
                               "\"/My Favs 3 /Enforce 10\"", "\"/My Favs 3\" \"/Enforce\" \"10\""}) {
        CAPTURE(quoted);
        CHECK(favorites::ParseJrTask(quoted) == JrTask{3, 10});
    }
    for (const char* profile : {"", "/", "My Favs 1", "/My Favs", "/My Favs 0", "/My Favs 6", "/My Favs 12",
                                "/My Favs 3x", "/My Favs 3 60", "/My Favs 3/Enforce 60", "/Enforce 60",
                                "\"/My Favs 3", "\"/My Favs 3\"/Enforce 60", "\"\""}) {
        CAPTURE(profile);
        CHECK_FALSE(favorites::ParseJrTask(profile));
    }
    for (const char* interval : {"", "60", " 0", " -5", " 32768", " 99999999999999999999", " 60 x", " soon"}) {
        CAPTURE(interval);
        CHECK_FALSE(favorites::ParseJrTask(std::string("/My Favs 3 /Enforce") + interval));
    }
}

TEST_CASE_FIXTURE(Machine, "wrong arguments: one message says what is expected, and nothing is started") {
    const auto game = Run(kGame);
    int messages = 0;
    sim::whenModal([&](platform::Window& dialog) {
        ++messages;
        CHECK(dialog.text() == "Kestrum Jr.");
        sim::closeBox(dialog);
    });
    form = std::make_unique<jr::JrForm>();
    CHECK_FALSE(form->Start("/My Favs 7"));
    CHECK(messages == 1);
    CHECK_FALSE(form->exists());
    CHECK(sim::trayIcons().empty());
    CHECK(ClassOf(game) == kNormal);
}

TEST_CASE_FIXTURE(Machine, "favourites are set at the start, as they come, and for their first moments") {
    const auto before = Run(kGame);
    // A second line of the same program counts for nothing.
    sim::putFile(kProfile3, Profile(kGameLine + "Game.exe\t2\tLow\t C:\\GAMES\\game.exe\t\r\n"));
    Start();
    CHECK(form->text() == "  Kestrum Jr.");
    CHECK_FALSE(form->visible());
    CHECK(ClassOf(before) == kHigh);
    CHECK(MaskOf(before) == 3);

    Tick(6);
    const auto late = Run(kGame);
    Tick(2);
    CHECK(ClassOf(late) == kHigh);
    ClassOf(late) = kNormal;
    Tick();
    CHECK(ClassOf(late) == kHigh);
    Tick(3);
    ClassOf(late) = kNormal;
    Tick(200);  // without Enforce it is left alone from now on
    CHECK(ClassOf(late) == kNormal);
}

TEST_CASE_FIXTURE(Machine, "a timer that the system refuses is asked for again") {
    SUBCASE("when the user comes to the icon") {
        sim::refuseTimers(true);
        Start();
        sim::refuseTimers(false);
        Choose(0);
    }
    SUBCASE("with the next tick of the one that waited for another copy") {
        auto other = std::make_unique<jr::JrForm>();
        REQUIRE(other->Start("/My Favs 4"));
        Start();
        sim::refuseTimers(true);
        other.reset();
        sim::run(100);
        sim::refuseTimers(false);
        sim::run(100);
    }
    CHECK(sim::openHandles("timer") == 1);
    Tick(6);
    const auto late = Run(kGame);
    Tick(2);
    CHECK(ClassOf(late) == kHigh);
}

TEST_CASE_FIXTURE(Machine, "Enforce sets them again at its interval, measured from the last time") {
    const auto game = Run(kGame);
    Start("/My Favs 3 /Enforce 30");
    Tick(3);  // the settling of the start
    const auto ticksUntilSet = [&] {
        ClassOf(game) = kNormal;
        int ticks = 0;
        while (ClassOf(game) == kNormal && ++ticks < 100) Tick();
        return ticks;
    };
    ticksUntilSet();
    CHECK(ticksUntilSet() == 60);
    Tick(40);
    Choose(jr::command::kSetNow);
    CHECK(ticksUntilSet() == 60);
}

TEST_CASE_FIXTURE(Machine, "the profile is followed while its file is replaced, emptied, locked and deleted") {
    const auto game = Run(kGame);
    const auto tool = Run(kTool);
    Start();
    Tick(5);
    CHECK(MaskOf(tool) == 0xF);
    SUBCASE("replaced: programs that run already are set, too") {
        sim::putFile(kProfile3, Profile(kGameLine + kToolLine));
        Tick();
        CHECK(MaskOf(tool) == 4);
    }
    SUBCASE("deleted or emptied, it sets nothing; back again, it does") {
        SUBCASE("deleted") {
            CHECK(platform::deleteFile(kProfile3));
        }
        SUBCASE("no bytes") {
            sim::putFile(kProfile3, "");
        }
        SUBCASE("only a header") {
            sim::putFile(kProfile3, Profile(""));
        }
        sim::clearLog();
        ClassOf(game) = kNormal;
        const auto late = Run(kGame);
        Tick(10);
        CHECK(ClassOf(late) == kNormal);
        CHECK(ClassOf(game) == kNormal);
        if (!sim::file(kProfile3)) CHECK(Tip() == "Kestrum Jr. - My Favs 3 (Empty), Enforce off");
        sim::putFile(kProfile3, Profile(kGameLine));
        Tick();
        CHECK(ClassOf(late) == kHigh);
        CHECK(Tip() == "Kestrum Jr. - My Favs 3, Enforce off");
    }
    SUBCASE("unreadable: the last favourites stay, until it can be read") {
        sim::putFile(kProfile3, Profile(kToolLine));
        sim::setUnreadable(kProfile3, true);
        const auto late = Run(kGame);
        Tick(10);
        CHECK(ClassOf(late) == kHigh);
        CHECK(MaskOf(tool) == 0xF);
        sim::setUnreadable(kProfile3, false);
        Tick();
        CHECK(MaskOf(tool) == 4);
    }
}

TEST_CASE_FIXTURE(Machine, "the menu: five profiles of which one is checked, each at hand") {
    const auto tool = Run(kTool);
    Start("/My Favs 3 /Enforce 60");
    std::string texts;
    sim::whenMenu([&](const std::vector<platform::MenuItem>& items) {
        for (const platform::MenuItem& item : items) texts += item.text + (item.checked ? "*|" : "|");
        return jr::command::kProfile + 4;
    });
    sim::trayEvent(platform::TrayEvent::LeftUp);
    CHECK(texts ==
          "Set Now||My Favs 1 (Empty)|My Favs 2 (Empty)|My Favs 3*|My Favs 4|My Favs 5 (Empty)||"
          "Open Kestrum 2|Exit|");
    CHECK(MaskOf(tool) == 4);
    CHECK(Tip() == "Kestrum Jr. - My Favs 4, Enforce every 60 seconds");

    // Another profile that cannot be read has nothing of the one before.
    sim::putFile(kProfile3, Profile(kGameLine));
    sim::setUnreadable(kProfile3, true);
    Choose(jr::command::kProfile + 3);
    const auto second = Run(kTool);
    Tick(5);
    CHECK(MaskOf(second) == 0xF);
}

TEST_CASE_FIXTURE(Machine, "what refuses is told once, and again when the user asks") {
    sim::findProcess(Run(kGame))->deniedRights = 0x200;
    Start("/My Favs 3 /Enforce 10");
    Tick(100);
    CHECK(sim::balloons().size() == 1);
    Choose(jr::command::kSetNow);
    REQUIRE(sim::balloons().size() == 2);
    CHECK(sim::balloons()[1].title == "Kestrum Jr.");
    CHECK(sim::balloons()[1].text ==
          "Unable to make changes to some favorites.\r\nAffiniy Errors: 1\r\nPriority Errors :1");
}

TEST_CASE_FIXTURE(Machine, "the ways to its end leave nothing behind") {
    Start();
    sim::restartShell();
    CHECK(sim::trayIcons().size() == 1);
    SUBCASE("the session ends") {
        sim::endSession();
    }
    SUBCASE("Exit") {
        Choose(jr::command::kExit);
    }
    SUBCASE("asked to close while its menu is open") {
        sim::whenMenu([&](const std::vector<platform::MenuItem>&) {
            AskToClose();
            return jr::command::kSetNow;
        });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    SUBCASE("the main program takes over, once it can be started") {
        CHECK(platform::deleteFile("C:\\Kestrum\\Kestrum2.exe"));
        sim::clearLog();
        sim::whenModal([](platform::Window& dialog) {
            sim::trayEvent(platform::TrayEvent::RightUp);  // no menu while a message is open
            sim::closeBox(dialog);
        });
        Choose(jr::command::kOpenMain);
        const auto game = Run(kGame);
        Tick(2);
        CHECK(ClassOf(game) == kHigh);
        sim::putFile("C:\\Kestrum\\Kestrum2.exe", "");
        Choose(jr::command::kOpenMain);
        const sim::Launch launch = sim::launches().back();
        CHECK(launch.file == "Kestrum2.exe");
        CHECK_FALSE(launch.parameters);
        CHECK(launch.folder == "C:\\Kestrum\\");
    }
    CHECK_FALSE(form->exists());
    CHECK(sim::trayIcons().empty());
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openHandles("mutex") == 0);
}

TEST_CASE_FIXTURE(Machine, "a second copy sets nothing: it tells and goes, or takes over when the first one goes") {
    Start("/My Favs 4");
    jr::JrForm second;
    REQUIRE(second.Start("/My Favs 3"));
    const auto game = Run(kGame);
    CHECK(sim::trayIcons().size() == 1);
    SUBCASE("the first one stays") {
        int told = 0;
        sim::whenModal([&told](platform::Window& dialog) {
            ++told;
            Tick(6);  // nothing more comes of waiting
            sim::closeBox(dialog);
        });
        Tick(6);
        CHECK(told == 1);
        CHECK_FALSE(second.exists());
        CHECK(form->exists());
        CHECK(sim::quitCode() == 0);
        CHECK(ClassOf(game) == kNormal);
    }
    SUBCASE("the first one has been asked to close, by a program that is not elevated as it is") {
        sim::setElevated(true);
        AskToClose();
        Tick(6);
        CHECK(second.exists());
        CHECK(ClassOf(game) == kHigh);
        CHECK(Tip() == "Kestrum Jr. - My Favs 3, Enforce off");
    }
}
