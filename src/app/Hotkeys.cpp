#include "app/Hotkeys.h"

#include <utility>

#include "controls/FrmMsgBox.h"
#include "platform/Event.h"
#include "platform/Keys.h"
#include "platform/OtherWindows.h"

namespace app {

namespace key = platform::key;

namespace {

constexpr std::uint32_t kPoll = 50;  // milliseconds
constexpr std::uint32_t kAfterHotkey = 1000;
constexpr int kProfiles = 5;
constexpr char kDialogClass[] = "#32770";

}  // namespace

Hotkeys::Hotkeys(Actions actions) : actions_(std::move(actions)) {}

Hotkeys::~Hotkeys() {
    if (gone_ != nullptr) *gone_ = true;
}

void Hotkeys::Start() {
    if (std::exchange(wanted_, true)) return;
    Arm(kPoll);
}

void Hotkeys::Stop() {
    wanted_ = false;
    timer_.reset();
}

void Hotkeys::Arm(std::uint32_t milliseconds) {
    timer_.reset();
    period_ = milliseconds;
    timer_ = platform::startTimer(milliseconds, [this](std::uintptr_t) { Tick(); });
}

// Nearly every time nobody holds Ctrl, and there is nothing that its release would end: one question is enough.
void Hotkeys::Tick() {
    if (!latch_ && period_ == kPoll && !platform::keyDown(key::kCtrl)) return;
    // The program waits for an answer, maybe to what a hotkey asked.
    if (platform::findWindow(kDialogClass, controls::kInfoTitle) != 0) return;
    if (period_ != kPoll) Arm(kPoll);
    const bool held = platform::keyDown(key::kCtrl) && platform::keyDown(key::kShift);
    if (!held) latch_ = false;
    // AltGr, with which some keyboards write letters, counts as Ctrl and Alt.
    if (held && !latch_ && !platform::keyDown(key::kAlt)) LookAtKeys();
}

void Hotkeys::LookAtKeys() {
    if (platform::keyDown('S')) return Act(actions_.SetNow);
    for (int number = 1; number <= kProfiles; ++number) {
        if (!platform::keyDown(static_cast<std::uint16_t>('0' + number))) continue;
        latch_ = true;
        return Act([action = actions_.SwitchProfile, number] { action(number); });
    }
}

// No tick comes while the action runs, which may show a message; afterwards the keys rest for a second.
void Hotkeys::Act(const std::function<void()>& action) {
    timer_.reset();
    bool gone = false;
    bool* const outer = std::exchange(gone_, &gone);  // of an action that started the hotkeys anew and still runs
    const auto copy = action;                         // the object may go with its actions
    copy();
    if (gone) {
        if (outer != nullptr) *outer = true;
        return;
    }
    gone_ = outer;
    if (wanted_) Arm(kAfterHotkey);
}

}  // namespace app
