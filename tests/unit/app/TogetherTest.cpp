// What the parts of the program do only together: hotkeys and favourites, keys and the list, icons and weeks.
#include "AppFixture.h"

using namespace apptest;
namespace key = platform::key;

namespace {

constexpr std::uint32_t kHigh = 0x80;

}  // namespace

TEST_CASE_FIXTURE(Machine, "Ctrl+Shift+S sets favourites that started after the last look at the processes") {
    sim::putFile("C:\\Apps\\fav.exe", "");
    PutProfile("Fav.exe\t01\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    sim::putSetting(kSection, "Hotkey", "1");
    Start();
    Tick(4);
    const platform::ProcessId id = Run("C:\\Apps\\fav.exe");
    for (const int code : {int{key::kCtrl}, int{key::kShift}, int{'S'}})
        sim::holdKey(static_cast<std::uint16_t>(code));
    sim::run(60);  // the next tick is farther away
    CHECK(sim::findProcess(id)->priorityClass == kHigh);
    CHECK(sim::findProcess(id)->affinityMask == 0x3);
}

TEST_CASE_FIXTURE(Machine, "F5 in the process list reads everything anew, what no tick would look at as well") {
    const platform::ProcessId id = Run("C:\\Apps\\a.exe");
    Start();
    Tick(4);
    const std::string before = Cell(id, 2);
    sim::findProcess(id)->priorityClass = kHigh;
    Tick();
    REQUIRE(Cell(id, 2) == before);
    form->ProcessList().focus();
    sim::pressKey(key::kF5);
    Tick();
    CHECK(Cell(id, 2) == "High");
}

TEST_CASE_FIXTURE(Machine, "Icons of programs that come and go under ever new names don't gather") {
    Start();
    for (int number = 0; number < 700; ++number) {
        const platform::ProcessId id = Run("C:\\Apps\\setup" + std::to_string(number) + ".exe");
        Tick(2);
        REQUIRE(RowOf(id) >= 0);
        sim::endProcess(id);
        Tick();
    }
    CHECK(sim::openHandles("icon") < 400);
}
