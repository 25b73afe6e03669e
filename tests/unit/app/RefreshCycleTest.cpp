#include "AppFixture.h"

using namespace apptest;

namespace {

int CountAsked(std::uint32_t access) {
    const std::vector<std::uint32_t> asked = sim::accessesAsked();
    return static_cast<int>(std::count(asked.begin(), asked.end(), access));
}

struct Crowd : Machine {
    void StartWith(int programs) {
        for (int i = 0; i < programs; ++i) Run("C:\\Apps\\p" + std::to_string(i) + ".exe");
        Start();
        Tick(6);
    }
};

}  // namespace

TEST_CASE_FIXTURE(Machine, "The process list shows each process's name, affinity, class, id, load and memory") {
    const ProcessId busy = Run("C:\\Apps\\BUSY.EXE", 1.0);
    MaskOf(busy) = 0x5;
    ClassOf(busy) = 0x8000;
    sim::findProcess(busy)->workingSet = 12'345 * 1024;
    const ProcessId native = Run("C:\\WINDOWS\\System32\\smss.exe");
    sim::findProcess(native)->path = "\\SystemRoot\\System32\\smss.exe";
    const ProcessId denied = Run("C:\\Apps\\denied.exe");
    sim::findProcess(denied)->deniedRights = 0x10;
    Start();

    CHECK(Cell(busy, 0) == "Busy.exe");
    CHECK(Cell(busy, 1) == "02");
    CHECK(Cell(busy, 2) == "Above");
    CHECK(Cell(busy, 5) == "12,345");
    CHECK(Cell(native, 0) == "Smss.exe");
    CHECK(RowOf(denied) == -1);
    CHECK(RowOf(4) == -1);
    CHECK(RowOf(platform::currentProcessId()) >= 0);
    CHECK(form->Status().Processes() == "Processes: 3 of 4");

    Tick(5);
    CHECK(Cell(busy, 4) == "25");  // one of four processors
    CHECK(Cell(native, 4) == "00");
}

TEST_CASE_FIXTURE(Crowd, "A change of the process set gives three full rebuilds, then only fast updates") {
    StartWith(5);
    const int shown = Processes().ListCount();
    sim::clearLog();
    Tick();
    CHECK(CountAsked(0x400) == shown);  // times
    CHECK(CountAsked(0x410) == shown);  // working set

    const ProcessId late = Run("C:\\Apps\\late.exe");
    for (int tick = 0; tick < 3; ++tick) {
        sim::clearLog();
        Tick();
        CHECK(CountAsked(0x410) > 2 * shown);  // path and affinity as well
    }
    CHECK(RowOf(late) >= 0);
    sim::clearLog();
    Tick();
    CHECK(CountAsked(0x410) == shown + 1);

    // What only a rebuild reads stays until the next one, which the user can ask for.
    ClassOf(late) = kHigh;
    Tick(2);
    CHECK(Cell(late, 2) == "Normal");
    SUBCASE("another program comes") {
        Run("C:\\Apps\\another.exe");
    }
    SUBCASE("F5") {
        Processes().focus();
        sim::pressKey(key::kF5);
    }
    Tick();
    CHECK(Cell(late, 2) == "High");
}

TEST_CASE_FIXTURE(Machine, "A selection follows its process, and row 0 takes over when that ends") {
    const ProcessId one = Run("C:\\Apps\\one.exe");
    const ProcessId two = Run("C:\\Apps\\two.exe");
    MaskOf(one) = 0x3;
    Start();
    Select({two});
    Run("C:\\Apps\\aaa.exe");  // sorts before them
    Tick();
    CHECK(Processes().SelectedRows() == std::vector<int>{RowOf(two)});

    sim::endProcess(two);
    sim::findProcess(one)->path = "C:\\Apps\\aa.exe";
    sim::putFile("C:\\Apps\\aa.exe", "");
    Tick();
    CHECK(RowOf(two) == -1);
    CHECK(Processes().SelectedRows() == std::vector<int>{0});
    CHECK(form->CpuAffinity().Text() == "01");
}

TEST_CASE_FIXTURE(Crowd,
                  "Every process is listed, however many, and refreshing repaints nothing that looks the same") {
    StartWith(4200);
    CHECK(Processes().ListCount() == 4201);
    CHECK(form->Status().Processes() == "Processes: 4201 of 4201");
    const ProcessId newest = Run("C:\\Apps\\newest.exe", 2.0);
    Tick(5);
    CHECK(Cell(newest, 4) == "50");
    Processes().SetTopIndex(3);
    Tick();
    sim::paint(Processes());
    const int top = Processes().TopIndex();
    Tick();
    CHECK(sim::invalidArea(Processes()).empty());
    CHECK(sim::invalidArea(*form).empty());
    CHECK(Processes().TopIndex() == top);
}

TEST_CASE_FIXTURE(Machine, "A program shows its own icon, also when that can be read only a tick after its start") {
    Start();
    Tick(3);
    const ProcessId early = Run("C:\\One\\setup.exe"), other = Run("C:\\Two\\setup.exe");
    for (int more = 0; more < 3; ++more) Run("C:\\One\\setup.exe");
    sim::setUnreadable("C:\\One\\setup.exe", true);
    const auto icon = [this](ProcessId id) { return Cell(id, 6); };
    Tick();
    const std::string usual = icon(early);
    REQUIRE(RowOf(early) >= 0);
    sim::setUnreadable("C:\\One\\setup.exe", false);
    Tick();
    CHECK(icon(early) != usual);
    CHECK(icon(early) != icon(other));
}

TEST_CASE_FIXTURE(Machine, "Icons of programs that come and go under ever new names don't gather") {
    Start();
    for (int number = 0; number < 700; ++number) {
        const ProcessId id = Run("C:\\Apps\\setup" + std::to_string(number) + ".exe");
        Tick(2);
        REQUIRE(RowOf(id) >= 0);
        sim::endProcess(id);
        Tick();
    }
    CHECK(sim::openHandles("icon") < 400);
}
