#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

int CountAsked(std::uint32_t access) {
    int count = 0;
    for (const std::uint32_t asked : sim::accessesAsked()) count += asked == access;
    return count;
}

}  // namespace

TEST_CASE("The process list shows each process's name, affinity, class, id, load and memory") {
    Machine machine;
    const auto busy = Machine::Run("C:\\Apps\\BUSY.EXE", 1.0);
    sim::findProcess(busy)->affinityMask = 0x5;
    sim::findProcess(busy)->priorityClass = 0x8000;
    sim::findProcess(busy)->workingSet = 12'345 * 1024;
    const auto native = Machine::Run("C:\\WINDOWS\\System32\\smss.exe");
    sim::findProcess(native)->path = "\\SystemRoot\\System32\\smss.exe";
    const auto denied = Machine::Run("C:\\Apps\\denied.exe");
    sim::findProcess(denied)->deniedRights = 0x10;
    machine.Start();

    CHECK(machine.Cell(busy, 0) == "Busy.exe");
    CHECK(machine.Cell(busy, 1) == "02");
    CHECK(machine.Cell(busy, 2) == "Above");
    CHECK(machine.Cell(busy, 5) == "12,345");
    CHECK(machine.Cell(native, 0) == "Smss.exe");
    CHECK(machine.RowOf(denied) == -1);
    CHECK(machine.RowOf(4) == -1);
    CHECK(machine.RowOf(platform::currentProcessId()) >= 0);
    CHECK(machine.form->Status().Processes() == "Processes: 3 of 4");

    Machine::Tick(5);
    CHECK(machine.Cell(busy, 4) == "25");  // one of four processors
    CHECK(machine.Cell(native, 4) == "00");
}

TEST_CASE("A change of the process set gives three full rebuilds, then only fast updates") {
    Machine machine;
    for (int i = 0; i < 5; ++i) Machine::Run("C:\\Apps\\p" + std::to_string(i) + ".exe");
    machine.Start();
    Machine::Tick(6);
    const int shown = machine.form->ProcessList().ListCount();

    sim::clearLog();
    Machine::Tick();
    CHECK(CountAsked(0x400) == shown);  // times
    CHECK(CountAsked(0x410) == shown);  // working set

    const auto late = Machine::Run("C:\\Apps\\late.exe");
    for (int tick = 0; tick < 3; ++tick) {
        sim::clearLog();
        Machine::Tick();
        CHECK(CountAsked(0x410) > 2 * shown);  // path and affinity as well
    }
    CHECK(machine.RowOf(late) >= 0);
    sim::clearLog();
    Machine::Tick();
    CHECK(CountAsked(0x410) == shown + 1);

    SUBCASE("values that only a rebuild reads stay until the next one") {
        sim::findProcess(late)->priorityClass = 0x80;
        Machine::Tick(2);
        CHECK(machine.Cell(late, 2) == "Normal");
        Machine::Run("C:\\Apps\\another.exe");
        Machine::Tick();
        CHECK(machine.Cell(late, 2) == "High");
    }
}

TEST_CASE("A selection follows its process, and row 0 takes over when that ends") {
    Machine machine;
    const auto one = Machine::Run("C:\\Apps\\one.exe");
    const auto two = Machine::Run("C:\\Apps\\two.exe");
    sim::findProcess(one)->affinityMask = 0x3;
    app::Form1& form = machine.Start();
    controls::UcList1& list = form.ProcessList();
    for (int row = 0; row < list.ListCount(); ++row) list.SelectItem(row, false);
    list.SelectItem(machine.RowOf(two), true);

    Machine::Run("C:\\Apps\\aaa.exe");  // sorts before them
    Machine::Tick();
    CHECK(list.Selected(machine.RowOf(two)));
    CHECK_FALSE(list.Selected(machine.RowOf(one)));

    sim::endProcess(two);
    sim::findProcess(one)->path = "C:\\Apps\\aa.exe";
    sim::putFile("C:\\Apps\\aa.exe", "");
    Machine::Tick();
    CHECK(machine.RowOf(two) == -1);
    CHECK(list.Selected(0));
    CHECK(form.CpuAffinity().Text() == std::string(list.CellText(0, 1)));
}

TEST_CASE("Refreshing repaints nothing that looks the same") {
    Machine machine;
    for (int i = 0; i < 40; ++i) Machine::Run("C:\\Apps\\p" + std::to_string(i) + ".exe");
    const auto grows = Machine::Run("C:\\Apps\\p0a.exe");
    app::Form1& form = machine.Start();
    controls::UcList1& list = form.ProcessList();
    Machine::Tick(6);
    list.SetTopIndex(3);
    Machine::Tick();
    sim::paint(list);
    const int top = list.TopIndex();

    Machine::Tick();
    CHECK(sim::invalidArea(list).empty());
    CHECK(list.TopIndex() == top);

    sim::findProcess(grows)->workingSet += 4096 * 1024;
    sim::advance(500);
    sim::run(0);
    CHECK(list.TopIndex() == top);
    CHECK(sim::invalidArea(form).empty());
}

TEST_CASE("The list stops at 256 rows and the status line tells the true count") {
    Machine machine;
    for (int i = 0; i < 300; ++i) Machine::Run("C:\\Apps\\p" + std::to_string(i) + ".exe");
    app::Form1& form = machine.Start();
    Machine::Tick(5);
    CHECK(form.ProcessList().ListCount() == 256);
    CHECK(form.Status().Processes() == "Processes: 256 of 301");
}

TEST_CASE("A minimised window works only for Auto Set") {
    Machine machine;
    Machine::PutProfile("App.exe\t0\tHigh\tC:\\Apps\\app.exe\t\r\n");
    sim::putFile("C:\\Apps\\app.exe", "");
    app::Form1& form = machine.Start();
    Machine::Tick(5);
    form.show(platform::ShowCommand::Minimize);

    SUBCASE("without it nothing is read") {
        const auto app = Machine::Run("C:\\Apps\\app.exe");
        sim::clearLog();
        Machine::Tick(3);
        CHECK(sim::accessesAsked().empty());
        CHECK(sim::findProcess(app)->priorityClass == 0x20);
    }
    SUBCASE("with it a new favourite is set and the list is left alone") {
        machine.form->ToolBar1().SetChecked(app::button::kAutoSet, true);
        const int shown = form.ProcessList().ListCount();
        const auto app = Machine::Run("C:\\Apps\\app.exe");
        Machine::Tick();
        CHECK(sim::findProcess(app)->priorityClass == 0x80);
        CHECK(sim::findProcess(app)->affinityMask == 1);
        CHECK(form.ProcessList().ListCount() == shown);
        Machine::Tick(5);
        form.show(platform::ShowCommand::Restore);
        CHECK(machine.Cell(app, 2) == "High");
    }
}
