// The main window's way down: what it remembers first, then what it holds, then the window.
#include "app/Form1.h"
#include "favorites/JrHandOff.h"
#include "platform/Shell.h"
#include "settings/StartEntries.h"
#include "settings/WindowPosition.h"

namespace app {

using settings::Key;

// The user ends the program; the timers stand still already.
void Form1::Exit() {
    if (state() == platform::WindowState::Normal) {
        show(platform::ShowCommand::Hide);
        platform::pumpMessages();
    }
    Unload();
}

void Form1::StopTimers() {
    slots_.StopAll();
    platform::pumpMessages();
}

void Form1::Restart() {
    StopTimers();
    Save();  // before the next copy reads it
    StartAnew();
    Unload();
}

// The next copy must not take itself for a second one.
void Form1::StartAnew() {
    show(platform::ShowCommand::Hide);
    instance_.KillMutex();
    platform::pumpMessages();
    if (!exists()) return;  // ended by one of those messages
    // Always the program under its own name, also from a copy that goes by another one.
    if (platform::openDocument(*this, baseFolder_ + favorites::kMainProgram)) return;
    messages_.Tell(std::string(favorites::kMainProgram) + " could not be started.");
}

// Everything is forgotten, and nothing written any more. The question comes when all windows are out of sight; the
// main window, hidden, is there to ask it.
void Form1::RestoreDefaults() {
    StopTimers();
    if (!exists()) return;
    optionsCommands_.Close();
    CloseGraphs();  // which note where they stood
    settings_.DeleteSection();
    for (const std::string& name : {settings::OwnStartEntry(), std::string(settings::kJrStartEntry)}) {
        settings::SetStartEntry(name, baseFolder_, false, {});
    }
    saveOnExit_ = false;
    hotkeys_.Stop();
    show(platform::ShowCommand::Hide);
    trayIcon_.Remove();
    if (messages_.Ask("Do you want to restart Kestrum 2 now?") && exists()) StartAnew();
    Unload();
}

void Form1::CloseGraphs() {
    graphs_.CloseAll();
    totalGraph_.Close();
}

void Form1::SaveSettings() {
    CaptureColumns(maximized_);
    settings_.WriteNumber(Key::FavColSort, favorites_.SortColumn());
    settings_.WriteBool(Key::FavSortDir, favorites_.SortAscending());
    settings::SaveWindowPosition(*this, "Form1", settings_);
    settings_.WriteNumber(Key::TransLevel, settings_.Number(Key::TransLevel));  // for those who look for the key
    layouts_.Save(settings_);
}

// Once. What the user is changing is taken over, and what remembers its place goes.
void Form1::Save() {
    if (std::exchange(saved_, true)) return;
    tips_.Remove();
    FinishEdits();
    hotkeys_.Stop();
    optionsCommands_.Close();
    CloseGraphs();
    favorites_.SavePending();
    filter_.SavePending();
    if (saveOnExit_) SaveSettings();
}

// The quit message may come from another program, or no more messages: then nothing has been saved yet.
int Form1::Run() {
    const int code = platform::runMessageLoop();
    Unload();
    return code;
}

// Ends the program, once.
void Form1::Unload() {
    if (!started_) return;
    Save();
    started_ = false;
    slots_.StopAll();
    refresh_.ReleaseMeters();
    trayIcon_.Remove();
    refresh_.ReleaseIcons();
    destroy();
}

}  // namespace app
