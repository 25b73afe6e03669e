#include "MachineSteps.h"

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/sim/Sim.h"
#include "settings/SettingKeys.h"
#include "text/Numbers.h"

namespace fuzz {

namespace sim = platform::sim;

namespace {

// Kinds of steps.
constexpr int kSetting = 2, kFile = 3, kFailingFiles = 4, kKinds = 8;

constexpr const char* kPrograms[] = {
    "C:\\Apps\\fav.exe",   "C:\\Apps\\GAME.EXE",        "C:\\Apps\\a.exe",
    "C:\\Apps\\x",         "C:\\Apps\\MyTool.scr",      "C:\\Apps\\\xC3\xA4.exe",
    "C:\\Apps\\\xE4.exe",  "C:\\Apps\\gone.exe",        "\\??\\C:\\Apps\\odd.exe",
    "C:\\Kestrum\\b.exe",  "\\SystemRoot\\svc.exe",     "C:\\Apps\\a, b.exe",
    "C:\\Apps\\notes.txt", "C:\\WINDOWS\\Explorer.exe", "",
};

constexpr const char* kTexts[] = {
    "",
    "0",
    "1",
    "-1",
    "2",
    "5",
    "32767",
    "-32768",
    "99999",
    "2147483648",
    "1e9",
    "True",
    "False",
    "true",
    "x",
    " 7 ",
    "&H7F",
    "134,82,60,40,60,70,0",
    "0,0,0",
    "-5,9999999,1",
    "100,100,883,445",
    "-32000,-32000,160,28",
    "9,9,0,0",
    "40000,40000,1,1",
    "WakeUp",
    "\xC3\x84\xE4\xFF",
    "-fast /windowed \"C:\\A B\\c\"",
    "a\tb",
    "{,|,}",
    "My Favs 9",
};

constexpr const char* kSettingsBeside[] = {"Form1_Pos", "GraphTop1", "GraphLeft1", "GraphTop16", "GraphLeft16"};

constexpr const char* kHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";
constexpr const char* kContents[] = {
    "Fav.exe\t01\tHigh\tC:\\Apps\\fav.exe\t\r\nGame.exe\t3\tDefault\tC:\\Apps\\GAME.EXE\t-fast\r\n",
    "Fav.exe\t\t\tC:\\Apps\\fav.exe\r\n\r\n\t\t\t\t\r\n",
    "A.exe\t0123456789\tRealtime\tC:\\Apps\\a.exe\t\r\nA.exe\t9\tNone\tC:\\Apps\\a.exe\t\r\n",
    "Gone.exe\t0\tLow\tC:\\Apps\\gone.exe\t\r\nMyTool.scr\tx\tAbove Normal\tC:\\Apps\\MyTool.scr\t\"a\" \"b\"\r\n",
    "",
};
constexpr const char* kFilters[] = {"fav.exe,game.exe,x", ",,,", "a.exe\r\nb.exe\r\n", "fav.exe, , FAV.EXE", ""};
constexpr const char* kFiles[] = {"C:\\Kestrum\\My Favs 1", "C:\\Kestrum\\My Favs 2", "C:\\Kestrum\\My Favs 5",
                                  "C:\\Kestrum\\FileFilter", "C:\\Apps\\fav.exe"};
constexpr const char* kFolders[] = {"C:\\Kestrum", "C:\\Kestrum\\Cache", "C:\\Apps", "C:\\Kestrum\\New"};

std::vector<platform::ProcessId> OtherProcesses() {
    std::vector<platform::ProcessId> ids;
    platform::enumerateProcesses(ids);
    // Some go as soon as they have been listed.
    std::erase_if(ids, [](platform::ProcessId id) { return id <= 100 || sim::findProcess(id) == nullptr; });
    return ids;
}

void AddProcess(const Step& step) {
    sim::Process process;
    process.path = ProgramPath(step.a);
    process.load = step.b % 4 * 0.5;
    process.vanishAfterListing = step.Bit(0) && step.Bit(1);
    if (step.Bit(2) && step.Bit(3)) process.id = 104 + static_cast<platform::ProcessId>(step.c >> 4) * 4;
    if (process.id != 0 && sim::findProcess(process.id) != nullptr) process.id = 0;
    sim::addProcess(process);
}

void ChangeProcess(const Step& step) {
    std::vector<platform::ProcessId> ids = OtherProcesses();
    if (ids.empty()) return;
    const platform::ProcessId id = ids[static_cast<std::size_t>(step.a) % ids.size()];
    sim::Process& process = *sim::findProcess(id);
    switch (step.b % 6) {
        case 0:
        case 1:
            sim::endProcess(id);
            break;
        case 2: {
            constexpr std::uint32_t kRights[] = {0, 0x1, 0x10, 0x200, 0x400, 0x410, 0xFFFFFFFF};
            process.deniedRights = Pick(kRights, step.c);
            break;
        }
        case 3:
            process.workingSet = std::uint64_t{1} << step.c % 64;
            break;
        case 4:
            process.affinityMask = static_cast<std::uint32_t>(step.c);
            break;
        default:
            process.priorityClass = std::uint32_t{1} << step.c % 17;
            break;
    }
}

void PutSetting(const Step& step) {
    constexpr int kKeys = static_cast<int>(settings::Key::Count);
    const int key = step.a % (kKeys + static_cast<int>(std::size(kSettingsBeside)));
    const char* name =
        key < kKeys ? settings::InfoOf(static_cast<settings::Key>(key)).name : Pick(kSettingsBeside, key - kKeys);
    if (step.b == 255) {
        sim::putBinarySetting(settings::kSection, name);
    } else {
        // Small numbers matter most.
        sim::putSetting(settings::kSection, name, step.b < 128 ? text::Decimal(step.c % 9) : AnyText(step.b));
    }
}

void PutFile(const Step& step) {
    const bool filter = step.a % 5 == 3;
    std::string content = filter ? Pick(kFilters, step.b) : std::string(kHeader) + Pick(kContents, step.b);
    if (!content.empty())
        content[static_cast<std::size_t>(step.c) * 7 % content.size()] = static_cast<char>(step.b);
    sim::putFile(Pick(kFiles, step.a), content);
}

void FailFiles(const Step& step) {
    switch (step.a % 5) {
        case 0:
            if (platform::fileExists(Pick(kFiles, step.b))) sim::setUnreadable(Pick(kFiles, step.b), step.Bit(0));
            break;
        case 1:
            sim::setReadOnlyFolder(Pick(kFolders, step.b), step.Bit(0));
            break;
        case 2:
            sim::setDiskSpace(step.Bit(0) ? std::optional<std::size_t>(step.b) : std::nullopt);
            break;
        case 3:
            sim::stopFilesAfter(step.Bit(0) ? std::optional(step.b % 16) : std::nullopt);
            break;
        default:
            platform::deleteFile(step.Bit(0) ? Pick(kFiles, step.b) : ProgramPath(step.b));
            break;
    }
}

void FailCalls(const Step& step) {
    const bool fails = step.Bit(0);
    switch (step.a % 7) {
        case 0:
            sim::failEnumeration(fails);
            break;
        case 1:
            sim::failSystemFigures(fails);
            break;
        case 2:
            sim::failIcons(fails);
            break;
        case 3:
            sim::failTooltips(fails);
            break;
        case 4:
            sim::refuseRunEntries(fails);
            break;
        case 5:
            sim::setPerformanceFrequency(fails ? 0 : 10'000'000);
            break;
        default:
            sim::setShellRunning(!fails);
            break;
    }
}

void ChangeDesktop(const Step& step) {
    switch (step.a % 5) {
        case 0: {
            std::vector<platform::Rect> screens{{0, 0, 200 + step.b * 10, 150 + step.c * 8}};
            if (step.b % 3 == 0) screens.push_back({-step.c * 10 - 100, -300, 0, 500});
            sim::setScreens(screens);
            break;
        }
        case 1:
            sim::setSystemColor(static_cast<platform::SysColor>(step.b % 11),
                                static_cast<platform::Color>(step.c * 65793));
            break;
        case 2: {
            platform::WindowFacts facts;
            facts.visible = step.Bit(0);
            facts.caption = step.Bit(1) ? "  Kestrum Jr." : AnyText(step.b);
            facts.className = step.Bit(2) ? "#32770" : "KestrumJr";
            const std::vector<platform::ProcessId> ids = OtherProcesses();
            if (!ids.empty()) facts.process = ids[static_cast<std::size_t>(step.b) % ids.size()];
            sim::addOtherWindow(facts);
            break;
        }
        case 3:
            sim::setPhysicalMemory(std::uint64_t{1} << step.b % 64, std::uint64_t{1} << step.c % 64);
            break;
        default:
            sim::setLocalBias(step.b * 10 - step.c * 10);
            break;
    }
}

// What does not change under a running program.
void ChangeBeforeStart(const Step& step) {
    switch (step.a % 4) {
        case 0:
            sim::setProcessorCount(1 + step.b % 40);
            break;
        case 1:
            if (step.c % 8 == 0) sim::holdMutex(step.Bit(3) ? "KestrumMutex" : "KestrumJrMutex");
            break;
        case 2:
            sim::putRunEntry(step.Bit(0) ? "Kestrum2" : "Kestrum_Jr", AnyText(step.b));
            break;
        default:
            for (int count = step.b * 2; count > 0; --count) AddProcess({0, step.a + count, step.c, 0});
            break;
    }
}

}  // namespace

const char* ProgramPath(int number) {
    return Pick(kPrograms, number);
}

const char* AnyText(int number) {
    return Pick(kTexts, number);
}

void FurnishMachine() {
    sim::reset();
    for (const char* path : {"C:\\Apps\\fav.exe", "C:\\Apps\\game.exe", "C:\\Apps\\a.exe", "C:\\Apps\\MyTool.scr",
                             "C:\\Apps\\notes.txt", "C:\\Kestrum\\Help.htm"}) {
        sim::putFile(path, "MZ");
    }
    sim::putFile(Pick(kFiles, 0), std::string(kHeader) + kContents[0]);
}

void MendMachine() {
    for (const char* path : kFiles) {
        if (platform::fileExists(path)) sim::setUnreadable(path, false);
    }
    for (const char* path : kFolders) sim::setReadOnlyFolder(path, false);
    sim::setDiskSpace(std::nullopt);
    sim::stopFilesAfter(std::nullopt);
    for (int call = 0; call < 7; ++call) FailCalls({0, call, 0, 0});
}

bool Meddles(const Step& step) {
    const int kind = step.kind % kKinds;
    return kind == kSetting || kind == kFile || kind == kFailingFiles;
}

void ChangeMachine(const Step& step, When when) {
    switch (step.kind % kKinds) {
        case 0:
            AddProcess(step);
            break;
        case 1:
            ChangeProcess(step);
            break;
        case kSetting:
            PutSetting(step);
            break;
        case kFile:
            PutFile(step);
            break;
        case kFailingFiles:
            FailFiles(step);
            break;
        case 5:
            FailCalls(step);
            break;
        case 6:
            ChangeDesktop(step);
            break;
        default:
            if (when == When::BeforeStart) ChangeBeforeStart(step);
            break;
    }
}

}  // namespace fuzz
