// A simulated machine with the program running on it.
#pragma once

#include <doctest/doctest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/Form1.h"
#include "platform/sim/Sim.h"

namespace apptest {

namespace sim = platform::sim;

inline constexpr const char* kSection = "Morvell\\Kestrum2";
inline constexpr const char* kHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";
inline constexpr const char* kProfile1 = "C:\\Kestrum\\My Favs 1";

struct Machine {
    Machine() { sim::reset(); }
    ~Machine() {
        form.reset();
        CHECK(sim::openHandles() == 0);
    }

    app::Form1& Start() {
        sim::startAgain();
        form = std::make_unique<app::Form1>();
        REQUIRE(form->Start() == app::Form1::StartResult::Running);
        return *form;
    }
    // Ends the program the way the user does.
    void Exit() {
        ChooseInTray(tray::command::kExit);
        form.reset();
    }
    static void ChooseInTray(int command) {
        sim::whenMenu([command](const std::vector<platform::MenuItem>&) { return command; });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    static platform::ProcessId Run(const std::string& path, double load = 0) {
        sim::Process process;
        process.path = path;
        process.load = load;
        return sim::addProcess(process);
    }
    static void PutProfile(const std::string& lines) { sim::putFile(kProfile1, kHeader + lines); }
    static void Tick(int count = 1) {
        for (int i = 0; i < count; ++i) sim::run(app::kRefreshMilliseconds);
    }
    // Display row of a process in the process list, -1 when it is not listed.
    int RowOf(platform::ProcessId id) {
        controls::UcList1& list = form->ProcessList();
        for (int row = 0; row < list.ListCount(); ++row) {
            if (list.CellText(row, 3) == std::to_string(id)) return row;
        }
        return -1;
    }
    std::string Cell(platform::ProcessId id, int column) {
        const int row = RowOf(id);
        return row < 0 ? "(not listed)" : std::string(form->ProcessList().CellText(row, column));
    }
    void ClickButton(int index) {
        platform::Rect area = form->ToolBar1().ButtonRect(index);
        sim::click(form->ToolBar1(), {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    }

    std::unique_ptr<app::Form1> form;
};

}  // namespace apptest
