// The main window's way down: what it remembers first, then what it holds, then the window.
#include "app/Form1.h"
#include "platform/Shell.h"
#include "settings/WindowPosition.h"

namespace app {

using settings::Key;

namespace {
constexpr char kProgram[] = "Kestrum2.exe";
}

// The user ends the program; the timers stand still already.
void Form1::Exit() {
    if (state() == platform::WindowState::Normal) {
        show(platform::ShowCommand::Hide);
        platform::pumpMessages();
    }
    Unload();
}

void Form1::Restart() {
    for (const Slot slot : {Slot::Process, Slot::Tray, Slot::Memory, Slot::FavoritesPanel}) slots_.Stop(slot);
    platform::pumpMessages();
    show(platform::ShowCommand::Hide);
    instance_.KillMutex();
    platform::pumpMessages();
    if (!exists()) return;  // ended by one of those messages
    // Always the program under its own name, also from a copy that goes by another one.
    platform::openDocument(*this, baseFolder_ + kProgram);
    Unload();
}

void Form1::SaveSettings() {
    favorites_.SavePending();
    filter_.SavePending();
    CaptureColumns(maximized_);
    settings_.WriteNumber(Key::FavColSort, favorites_.SortColumn());
    settings_.WriteBool(Key::FavSortDir, favorites_.SortAscending());
    settings::SaveWindowPosition(*this, "Form1", settings_);
    settings_.WriteNumber(Key::TransLevel, settings_.Number(Key::TransLevel));
    layouts_.Save(settings_);
}

// Ends the program, once.
void Form1::Unload() {
    if (!started_) return;
    FinishEdits();
    started_ = false;
    for (const Slot slot : {Slot::Process, Slot::Tray, Slot::Memory, Slot::FavoritesPanel, Slot::TotalGraph}) {
        slots_.Stop(slot);
    }
    tips_.Remove();
    SaveSettings();
    refresh_.ReleaseMeters();
    trayIcon_.Remove();
    refresh_.ReleaseIcons();
    destroy();
}

}  // namespace app
