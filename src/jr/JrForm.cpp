#include "jr/JrForm.h"

#include <utility>
#include <vector>

#include "controls/PictureMenu.h"
#include "controls/Resources.h"
#include "favorites/JrHandOff.h"
#include "favorites/Profiles.h"
#include "platform/Menu.h"
#include "platform/Shell.h"
#include "platform/Sound.h"
#include "process/PriorityClass.h"
#include "text/Numbers.h"

namespace jr {

namespace {

constexpr char kTitle[] = "Kestrum Jr.";
constexpr char kMutex[] = "KestrumJrMutex";
constexpr std::uint32_t kTickMilliseconds = 500;
// A copy that has been asked to close, so that this one can take its place, needs a moment for it.
constexpr std::uint32_t kWaitMilliseconds = 100;
constexpr int kMostWaits = 20;

constexpr char kUsage[] =
    "Kestrum Jr. applies one favorite profile.\r\n"
    "It expects the profile and, for Enforce,\r\n"
    "an interval in seconds:\r\n\r\n"
    "Kestrum_Jr.exe /My Favs 1\r\n"
    "Kestrum_Jr.exe /My Favs 1 /Enforce 60";

constexpr char kRunning[] =
    "Kestrum Jr. is running already.\r\n"
    "The menu of its icon changes the profile.";

}  // namespace

JrForm::JrForm() : baseFolder_(favorites::BaseFolder()), access_(errors_), trayIcon_(kTitle) {}

JrForm::~JrForm() {
    End();
}

bool JrForm::Start(const std::string& arguments) {
    if (!CreateFrame()) return false;
    const auto task = favorites::ParseJrTask(arguments);
    if (!task) {
        Tell(kUsage);
        End();
        return false;
    }
    profile_ = task->profile;
    enforce_.SetOn(task->enforceSeconds > 0);
    enforce_.SetIntervalSeconds(task->enforceSeconds);
    if (AloneNow()) {
        Begin();
    } else {
        timer_ = platform::startTimer(kWaitMilliseconds,
                                      [this](std::uintptr_t) { mutex_ ? StartTicking() : WaitForOther(); });
        if (!timer_) End();
    }
    return exists();
}

// Never shown. A main window all the same: only such a one is told that the shell has come back.
bool JrForm::CreateFrame() {
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "KestrumJr";
    spec.title = favorites::kJrCaption;
    spec.bounds = {0, 0, 1, 1};
    spec.iconResource = controls::kProgramIcon;
    trayIcon_.Notified = [this](platform::TrayEvent event) { Notified(event); };
    if (!create(spec) || !trayIcon_.Create(*this)) return false;
    platform::acceptFromUnelevated(*this, platform::Request::Close);  // of Kestrum 2, when that takes over
    return true;
}

// A name of its own: Kestrum Jr. may be started while the main program is still on its way out.
bool JrForm::AloneNow() {
    platform::CreatedMutex created = platform::createMutex(kMutex);
    if (created.existed) return false;
    mutex_ = std::move(created.handle);
    return true;
}

void JrForm::WaitForOther() {
    if (AloneNow()) {
        Begin();
    } else if (++waits_ == kMostWaits) {
        timer_.reset();
        Tell(kRunning);
        End();
    }
}

void JrForm::Begin() {
    access_.EnableDebugPrivilege(true);
    // It has to get its turn when a program takes all of the processors: that is what it is there for.
    access_.SetPriorityClass(platform::currentProcessId(), process::kAboveNormalPriority);
    trayIcon_.Add_Tray();
    UseProfile(profile_);
    StartTicking();
}

// When the system refuses the timer: again with the next tick of the one that waited, or when the user comes to the
// icon.
void JrForm::StartTicking() {
    platform::TimerHandle timer = platform::startTimer(kTickMilliseconds, [this](std::uintptr_t) { Tick(); });
    if (!timer) return;
    timer_ = std::move(timer);
    ticking_ = true;
}

void JrForm::End() {
    timer_.reset();
    trayIcon_.Remove();
    if (mutex_) platform::releaseMutex(mutex_);
    mutex_.reset();
    destroy();
}

void JrForm::UseProfile(int number) {
    profile_ = number;
    favorites_.Follow(favorites::ProfilePath(baseFolder_, favorites::ProfileName(number)));
    ShowTip();
    Tick();
}

void JrForm::Tick() {
    const bool reread = favorites_.Refresh();
    if (reread) {
        watch_.ForceChange();
        ShowTip();  // the profile may be empty now, or no longer
    }
    // Listing the processes is nearly all that this program costs. While nothing happens every second tick goes
    // without; a program that starts is still set within a second.
    resting_ = !resting_ && !reread && !watch_.Settling();
    if (!resting_) {
        snapshot_.Take();
        watch_.Observe(snapshot_);
    }
    if (watch_.Settling()) {
        SetFavs();
        watch_.TickDone();
    }
    if (enforce_.TickDue()) SetFavs();
}

void JrForm::SetFavs() {
    const favorites::ApplyResult result = favorites::ApplyFavorites(favorites_.Rows(), snapshot_, access_);
    enforce_.Reset();
    // Nobody asked for this run: what refused the last time and refuses again is not told again.
    const bool told =
        result.affinityErrors == last_.affinityErrors && result.priorityErrors == last_.priorityErrors;
    last_ = result;
    if (!result.Failed() || told) return;
    trayIcon_.TrayBalloon(favorites::ApplySummary(result), kTitle, platform::BalloonIcon::Warning);
}

// The user asks, and is told everything.
void JrForm::SetNow() {
    last_ = {};
    snapshot_.Take();
    SetFavs();
}

void JrForm::ShowTip() {
    std::string tip = std::string(kTitle) + " - " + favorites::ProfileCaption(baseFolder_, profile_) + ", Enforce ";
    tip += enforce_.On() ? "every " + text::Decimal(enforce_.IntervalSeconds()) + " seconds" : "off";
    trayIcon_.SetTip(tip);
}

void JrForm::onTaskbarCreated() {
    if (mutex_) trayIcon_.Add_Tray();  // else it is not this copy's turn
}

void JrForm::onDestroyed() {
    platform::postQuit(0);
}

// There is no window that a click on the icon could show: the left button, too, leads to the menu.
void JrForm::Notified(platform::TrayEvent event) {
    if (mutex_ && !ticking_) StartTicking();
    if (event != platform::TrayEvent::LeftUp && event != platform::TrayEvent::RightUp) return;
    if (msgBoxes_.Showing()) {
        platform::beep();
    } else if (!menuOpen_) {
        Run(ShowMenu());
    }
}

int JrForm::ShowMenu() {
    std::vector<controls::MenuEntry> entries{{command::kSetNow, "Set Now", controls::kMenuSetNow}, {}};
    for (int number = 1; number <= favorites::kProfileCount; ++number) {
        entries.push_back({command::kProfile + number, favorites::ProfileCaption(baseFolder_, number), -1, true,
                           number == profile_});
    }
    entries.push_back({});
    entries.push_back({command::kOpenMain, "Open Kestrum 2"});
    entries.push_back({command::kExit, "Exit", controls::kMenuExit});
    trayIcon_.bringToFront();  // so that the menu goes when the user clicks elsewhere
    menuOpen_ = true;
    const int id = controls::ShowPictureMenu(trayIcon_, platform::pointerPosition(), entries);
    menuOpen_ = false;
    return id;
}

void JrForm::Run(int id) {
    if (!exists()) return;  // asked to close while the menu was open
    if (id == command::kSetNow) {
        SetNow();
    } else if (id == command::kOpenMain) {
        OpenMain();
    } else if (id == command::kExit) {
        End();
    } else if (id > command::kProfile) {
        UseProfile(id - command::kProfile);
    }
}

// Only one of the two is to set favourites.
void JrForm::OpenMain() {
    if (platform::launch(*this, favorites::kMainProgram, std::nullopt, baseFolder_)) {
        End();
    } else {
        Tell(std::string(favorites::kMainProgram) + " could not be started.");
    }
}

void JrForm::Tell(const std::string& text) {
    msgBoxes_.Show(text, controls::MsgStyle::Information, kTitle, *this, false);
}

}  // namespace jr
