// A simulated machine with the program running on it.
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/Form1.h"
#include "app/MainToolBars.h"
#include "platform/sim/Sim.h"

namespace apptest {

namespace sim = platform::sim;
namespace key = platform::key;
using platform::ProcessId;
using MenuItems = std::vector<platform::MenuItem>;

inline constexpr const char* kSection = "Morvell\\Kestrum2";
inline constexpr const char* kHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";
inline constexpr const char* kProfile1 = "C:\\Kestrum\\My Favs 1";
inline constexpr std::uint32_t kNormal = 0x20, kHigh = 0x80;

inline void Store(const std::string& name, const std::string& value) {
    sim::putSetting(kSection, name, value);
}
inline std::optional<std::string> Stored(const std::string& name) {
    return sim::setting(kSection, name);
}

inline void HoldKeys(const std::vector<int>& codes) {
    for (const int code : codes) sim::holdKey(static_cast<std::uint16_t>(code));
}
inline void ReleaseKeys(const std::vector<int>& codes) {
    for (const int code : codes) sim::releaseKey(static_cast<std::uint16_t>(code));
}

// How often the machine was asked for something since the log was cleared.
inline int Logged(const std::string& beginning) {
    const std::vector<std::string> log = sim::log();
    return static_cast<int>(
        std::count_if(log.begin(), log.end(), [&](const auto& entry) { return entry.starts_with(beginning); }));
}

// The texts that a window shows, a line each.
inline std::string TextOf(platform::Window& window) {
    std::string text;
    for (const sim::Drawn& drawn : sim::paint(window, true)) {
        if (drawn.what == "text") text += (text.empty() ? "" : "\n") + drawn.text;
    }
    return text;
}

// Chooses from the next menu by caption, in the menu itself or in one inside it.
inline void ChooseNext(const std::string& caption, const std::string& inside = "") {
    sim::whenMenu([=](const MenuItems& items) {
        for (const platform::MenuItem& item : items) {
            if (item.text != caption) continue;
            if (inside.empty()) return item.id;
            for (const platform::MenuItem& inner : item.submenu) {
                if (inner.text == inside) return inner.id;
            }
        }
        FAIL("the menu does not offer it");
        return 0;
    });
}

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
        sim::whenMenu([command](const MenuItems&) { return command; });
        sim::trayEvent(platform::TrayEvent::RightUp);
    }
    static ProcessId Run(const std::string& path, double load = 0) {
        sim::Process process;
        process.path = path;
        process.load = load;
        return sim::addProcess(process);
    }
    static std::uint32_t& ClassOf(ProcessId id) { return sim::findProcess(id)->priorityClass; }
    static std::uint32_t& MaskOf(ProcessId id) { return sim::findProcess(id)->affinityMask; }
    static void PutProfile(const std::string& lines) { sim::putFile(kProfile1, kHeader + lines); }
    static void Tick(int count = 1) {
        for (int i = 0; i < count; ++i) sim::run(app::kRefreshMilliseconds);
    }

    controls::UcList1& Processes() { return form->ProcessList(); }
    controls::UcList1& Favorites() { return form->FavoritesListControl(); }
    // Display row of a process in the process list, -1 when it is not listed.
    int RowOf(ProcessId id) {
        for (int row = 0; row < Processes().ListCount(); ++row) {
            if (Processes().CellText(row, 3) == std::to_string(id)) return row;
        }
        return -1;
    }
    std::string Cell(ProcessId id, int column) {
        const int row = RowOf(id);
        return row < 0 ? "(not listed)" : std::string(Processes().CellText(row, column));
    }
    void Select(const std::vector<ProcessId>& ids) {
        for (int row = 0; row < Processes().ListCount(); ++row) Processes().SelectItem(row, false);
        for (const ProcessId id : ids) Processes().SelectItem(RowOf(id), true);
    }
    void SelectFavorites(const std::vector<int>& rows) {
        for (int row = 0; row < Favorites().ListCount(); ++row) Favorites().SelectItem(row, false);
        for (const int row : rows) Favorites().SelectItem(row, true);
    }
    static void ClickButtonOf(controls::ToolBar& bar, int index) {
        const platform::Rect area = bar.ButtonRect(index);
        sim::click(bar, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    }
    void ClickButton(int index) { ClickButtonOf(form->ToolBar1(), index); }
    void ClickButton2(int index) { ClickButtonOf(form->ToolBar2(), index); }
    // Answers the next message box with a key, and keeps its caption and texts.
    void Answer(std::uint16_t code) {
        sim::whenModal([this, code](platform::Window& box) {
            told.push_back(box.text() + "\n" + TextOf(box));
            sim::pressKey(code);
        });
    }

    std::unique_ptr<app::Form1> form;
    std::vector<std::string> told;
};

}  // namespace apptest
