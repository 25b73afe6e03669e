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
            for (const char* forbidden : {"writeFile", "moveFile", "deleteFile", "createFolders", "store"}) {
                CHECK_MESSAGE(!entry.starts_with(forbidden), entry);
            }
        }
    }
    jr::JrForm& Start(const std::string& arguments = "/My Favs 3") {
        form = std::make_unique<jr::JrForm>();
        REQUIRE(form->Start(arguments));
        return *form;
    }
    static platform::ProcessId Run(const char* path) {
        sim::Process process;
        process.path = path;
        return sim::addProcess(process);
    }
    static void Tick(int count = 1) { sim::run(500U * static_cast<std::uint32_t>(count)); }
    static std::uint32_t ClassOf(platform::ProcessId id) { return sim::findProcess(id)->priorityClass; }
    static void Choose(int command) {
        sim::whenMenu([command](const std::vector<platform::MenuItem>&) { return command; });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    // As the main program does it when the two change places.
    static void AskToClose(const jr::JrForm& form) {
        platform::postClose(form.native());
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
    for (const char* wrong : {"",
                              " ",
                              "/",
                              "My Favs 1",
                              "/My Favs",
                              "/My Favs 0",
                              "/My Favs 6",
                              "/My Favs 12",
                              "/My Favs 3x",
                              "/My Favs 3/Enforce 60",
                              "/My Favs 3 /Enforce",
                              "/My Favs 3 /Enforce60",
                              "/My Favs 3 /Enforce 0",
                              "/My Favs 3 /Enforce -5",
                              "/My Favs 3 /Enforce 32768",
                              "/My Favs 3 /Enforce 99999999999999999999",
                              "/My Favs 3 /Enforce 60 x",
                              "/My Favs 3 60",
                              "/Enforce 60",
                              "/My Favs 3 /Enforce soon"}) {
        CAPTURE(wrong);
        CHECK_FALSE(favorites::ParseJrTask(wrong));
    }
}

TEST_CASE("wrong arguments: one message says what is expected, and nothing is started") {
    Machine machine;
    const auto game = Machine::Run(kGame);
    int messages = 0;
    sim::whenModal([&](platform::Window& dialog) {
        ++messages;
        CHECK(dialog.text() == "Kestrum Jr.");
        sim::closeBox(dialog);
    });
    machine.form = std::make_unique<jr::JrForm>();
    CHECK_FALSE(machine.form->Start("/My Favs 7"));
    CHECK(messages == 1);
    CHECK_FALSE(machine.form->exists());
    CHECK(sim::trayIcons().empty());
    CHECK(Machine::ClassOf(game) == kNormal);
}

TEST_CASE("favourites are set at the start, as they come, and for their first moments") {
    Machine machine;
    const auto before = Machine::Run(kGame);
    const jr::JrForm& form = machine.Start();
    CHECK(form.text() == "  Kestrum Jr.");
    CHECK_FALSE(form.visible());
    CHECK(Machine::ClassOf(before) == kHigh);
    CHECK(sim::findProcess(before)->affinityMask == 3);

    Machine::Tick(6);
    const auto late = Machine::Run(kGame);
    Machine::Tick(2);
    CHECK(Machine::ClassOf(late) == kHigh);
    sim::findProcess(late)->priorityClass = kNormal;
    Machine::Tick();
    CHECK(Machine::ClassOf(late) == kHigh);
    Machine::Tick(3);
    sim::findProcess(late)->priorityClass = kNormal;
    Machine::Tick(200);  // without Enforce it is left alone from now on
    CHECK(Machine::ClassOf(late) == kNormal);
}

TEST_CASE("Enforce sets them again at its interval, measured from the last time") {
    Machine machine;
    const auto game = Machine::Run(kGame);
    machine.Start("/My Favs 3 /Enforce 30");
    CHECK(Machine::Tip() == "Kestrum Jr. - My Favs 3, Enforce every 30 seconds");
    Machine::Tick(3);  // the settling of the start
    const auto ticksUntilSet = [&] {
        sim::findProcess(game)->priorityClass = kNormal;
        int ticks = 0;
        while (Machine::ClassOf(game) == kNormal && ++ticks < 100) Machine::Tick();
        return ticks;
    };
    ticksUntilSet();
    CHECK(ticksUntilSet() == 60);
    Machine::Tick(40);
    Machine::Choose(jr::command::kSetNow);
    CHECK(ticksUntilSet() == 60);
}

TEST_CASE("the profile is followed while its file is replaced, emptied, locked and deleted") {
    Machine machine;
    const auto game = Machine::Run(kGame);
    const auto tool = Machine::Run(kTool);
    machine.Start();
    Machine::Tick(5);
    CHECK(sim::findProcess(tool)->affinityMask == 0xF);

    SUBCASE("replaced: programs that run already are set, too") {
        sim::putFile(kProfile3, Profile(kGameLine + kToolLine));
        Machine::Tick();
        CHECK(sim::findProcess(tool)->affinityMask == 4);
    }
    SUBCASE("deleted or emptied, it sets nothing; back again, it does") {
        std::string kept = Profile(kGameLine);
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
        sim::findProcess(game)->priorityClass = kNormal;
        const auto late = Machine::Run(kGame);
        Machine::Tick(10);
        CHECK(Machine::ClassOf(late) == kNormal);
        CHECK(Machine::ClassOf(game) == kNormal);
        if (!sim::file(kProfile3)) CHECK(Machine::Tip() == "Kestrum Jr. - My Favs 3 (Empty), Enforce off");

        sim::putFile(kProfile3, kept);
        Machine::Tick();
        CHECK(Machine::ClassOf(late) == kHigh);
        CHECK(Machine::Tip() == "Kestrum Jr. - My Favs 3, Enforce off");
    }
    SUBCASE("unreadable: the last favourites stay, until it can be read") {
        sim::putFile(kProfile3, Profile(kToolLine));
        sim::setUnreadable(kProfile3, true);
        const auto late = Machine::Run(kGame);
        Machine::Tick(10);
        CHECK(Machine::ClassOf(late) == kHigh);
        CHECK(sim::findProcess(tool)->affinityMask == 0xF);
        sim::setUnreadable(kProfile3, false);
        Machine::Tick();
        CHECK(sim::findProcess(tool)->affinityMask == 4);
    }
}

TEST_CASE("the menu: five profiles of which one is checked, each at hand") {
    Machine machine;
    const auto tool = Machine::Run(kTool);
    machine.Start("/My Favs 3 /Enforce 60");
    sim::whenMenu([](const std::vector<platform::MenuItem>& items) {
        std::vector<std::string> texts;
        for (const platform::MenuItem& item : items) {
            texts.push_back(item.text + (item.checked ? " *" : ""));
        }
        CHECK(texts == std::vector<std::string>{"Set Now", "", "My Favs 1 (Empty)", "My Favs 2 (Empty)",
                                                "My Favs 3 *", "My Favs 4", "My Favs 5 (Empty)", "",
                                                "Open Kestrum 2", "Exit"});
        return jr::command::kProfile + 4;
    });
    sim::trayEvent(platform::TrayEvent::LeftUp);
    CHECK(sim::findProcess(tool)->affinityMask == 4);
    CHECK(Machine::Tip() == "Kestrum Jr. - My Favs 4, Enforce every 60 seconds");

    // Another profile that cannot be read has nothing of the one before.
    sim::putFile(kProfile3, Profile(kGameLine));
    sim::setUnreadable(kProfile3, true);
    Machine::Choose(jr::command::kProfile + 3);
    const auto second = Machine::Run(kTool);
    Machine::Tick(5);
    CHECK(sim::findProcess(second)->affinityMask == 0xF);
}

TEST_CASE("what refuses is told once, and again when the user asks") {
    Machine machine;
    sim::Process process;
    process.path = kGame;
    process.deniedRights = 0x200;
    sim::addProcess(process);
    machine.Start("/My Favs 3 /Enforce 10");
    Machine::Tick(100);
    CHECK(sim::balloons().size() == 1);
    Machine::Choose(jr::command::kSetNow);
    REQUIRE(sim::balloons().size() == 2);
    CHECK(sim::balloons()[1].title == "Kestrum Jr.");
    CHECK(sim::balloons()[1].text ==
          "Unable to make changes to some favorites.\r\nAffiniy Errors: 1\r\nPriority Errors :1");
}

TEST_CASE("the ways to its end leave nothing behind") {
    Machine machine;
    jr::JrForm& form = machine.Start();
    CHECK(sim::trayIcons().size() == 1);
    sim::restartShell();
    CHECK(sim::trayIcons().size() == 1);

    SUBCASE("asked to close by its window") {
        Machine::AskToClose(form);
    }
    SUBCASE("the session ends") {
        sim::endSession();
    }
    SUBCASE("Exit") {
        Machine::Choose(jr::command::kExit);
    }
    SUBCASE("asked to close while its menu is open") {
        sim::whenMenu([&](const std::vector<platform::MenuItem>&) {
            Machine::AskToClose(form);
            return jr::command::kSetNow;
        });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    SUBCASE("the main program takes over") {
        Machine::Choose(jr::command::kOpenMain);
        REQUIRE(sim::launches().size() == 1);
        CHECK(sim::launches()[0].file == "Kestrum2.exe");
        CHECK_FALSE(sim::launches()[0].parameters);
        CHECK(sim::launches()[0].folder == "C:\\Kestrum\\");
    }
    CHECK_FALSE(form.exists());
    CHECK(sim::trayIcons().empty());
    CHECK(sim::quitCode() == 0);
    CHECK(sim::openHandles("mutex") == 0);
}

TEST_CASE("a main program that cannot be started leaves it running") {
    Machine machine;
    const jr::JrForm& form = machine.Start();
    CHECK(platform::deleteFile("C:\\Kestrum\\Kestrum2.exe"));
    sim::clearLog();
    sim::whenModal([](platform::Window& dialog) {
        sim::trayEvent(platform::TrayEvent::RightUp);  // no menu while a message is open
        sim::closeBox(dialog);
    });
    Machine::Choose(jr::command::kOpenMain);
    CHECK(form.exists());
    const auto game = Machine::Run(kGame);
    Machine::Tick(2);
    CHECK(Machine::ClassOf(game) == kHigh);
}

TEST_CASE("a second copy sets nothing: it goes, or takes over when the first one does") {
    Machine machine;
    jr::JrForm& first = machine.Start("/My Favs 4");
    jr::JrForm second;
    REQUIRE(second.Start("/My Favs 3"));
    const auto game = Machine::Run(kGame);
    CHECK(sim::trayIcons().size() == 1);
    SUBCASE("the first one stays") {
        Machine::Tick(6);
        CHECK_FALSE(second.exists());
        CHECK(first.exists());
        CHECK(sim::quitCode() == 0);
        CHECK(Machine::ClassOf(game) == kNormal);
    }
    SUBCASE("the first one has been asked to close") {
        Machine::AskToClose(first);
        Machine::Tick(6);
        CHECK(second.exists());
        CHECK(Machine::ClassOf(game) == kHigh);
        CHECK(Machine::Tip() == "Kestrum Jr. - My Favs 3, Enforce off");
    }
}
