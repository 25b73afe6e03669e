#include "UserSteps.h"

#include <algorithm>

#include "Fuzz.h"
#include "MachineSteps.h"
#include "platform/sim/Sim.h"
#include "platform/sim/SimDesktop.h"

namespace fuzz {

namespace sim = platform::sim;
namespace key = platform::key;

namespace {

constexpr int kDeepest = 4;       // dialogs over each other that the user still does more in than answer
constexpr int kMostInDialog = 8;  // steps before the answer
constexpr int kMeanwhile = 128;   // of 256: something else happens before a menu is answered

// Those that take input now, in the order in which they were made.
std::vector<std::uintptr_t> InputWindows() {
    std::vector<std::uintptr_t> windows;
    for (const auto& [native, record] : sim::machine().desktop.windows) {
        if (record->object != nullptr && sim::isVisible(*record) && sim::takesInput(*record)) {
            windows.push_back(native);
        }
    }
    return windows;
}

platform::Window* AnyWindow(int number) {
    const std::vector<std::uintptr_t> windows = InputWindows();
    if (windows.empty()) return nullptr;
    return sim::findRecord(windows[static_cast<std::size_t>(number) % windows.size()])->object;
}

platform::Modifiers ModifiersOf(const Step& step) {
    return {step.Bit(0) && step.Bit(1), step.Bit(2) && step.Bit(3), false};
}

// From a little outside the window to a little outside on the other side.
platform::Point PointIn(const platform::Window& window, const Step& step) {
    const platform::Size size = window.clientSize();
    return {step.b * (size.width + 8) / 256 - 4, step.c * (size.height + 8) / 256 - 4};
}

// Every pixel must have been painted.
void RequirePaintedWhole(platform::Window& window) {
    const std::uintptr_t native = window.native();
    sim::paint(window, true);
    const sim::WindowPointer record = sim::findRecord(native);
    Require(record != nullptr);
    const std::vector<platform::Color>& pixels = record->buffer;
    Require(std::find(pixels.begin(), pixels.end(), sim::kUnpainted) == pixels.end());
}

bool InTextBox() {
    const sim::WindowPointer focus = sim::findRecord(sim::machine().desktop.focus);
    return focus && focus->textBox && sim::takesInput(*focus);
}

}  // namespace

void User::Attend() {
    sim::whenModal([this](platform::Window& dialog) {
        Attend();
        Answer(dialog);
    });
    sim::whenMenu([this](const std::vector<platform::MenuItem>& items) {
        Attend();
        return Choose(items);
    });
}

void User::Answer(platform::Window& dialog) {
    const std::uintptr_t native = dialog.native();
    const Step how = NextStep(bytes_);
    ++dialogs_;
    for (int more = dialogs_ < kDeepest ? how.b % kMostInDialog : 0; more > 0 && !bytes_.Empty(); --more) {
        Do(NextStep(bytes_));
    }
    --dialogs_;
    constexpr std::uint16_t kKeys[] = {key::kEscape, key::kEnter, 'Y', 'N'};
    if (sim::findRecord(native)) sim::pressKey(Pick(kKeys, how.a));
    // The keys may have gone to another window.
    const sim::WindowPointer open = sim::findRecord(native);
    if (open && open->object != nullptr && sim::isVisible(*open)) sim::closeBox(*open->object);
}

int User::Choose(const std::vector<platform::MenuItem>& items) {
    const std::vector<platform::MenuItem>* level = &items;
    while (!level->empty()) {
        const int number = bytes_.Byte();
        if (number >= kMeanwhile) Meanwhile(NextStep(bytes_));
        const platform::MenuItem& item = (*level)[static_cast<std::size_t>(number) % level->size()];
        if (!item.enabled) return 0;
        if (item.submenu.empty()) return item.id;
        level = &item.submenu;
    }
    return 0;
}

// What can happen while a menu is open: time passes, the machine changes, another copy starts, keys are held for a
// hotkey, the session ends.
void User::Meanwhile(const Step& step) {
    switch (step.kind % 5) {
        case 0:
            Befall({step.kind, step.a, step.b, step.c});
            break;
        case 1:
            if (platform::Window* mailbox = sim::findWindow("Text1")) mailbox->setText("WakeUp");
            break;
        case 2:
            for (const std::uint16_t code :
                 {key::kCtrl, key::kShift, static_cast<std::uint16_t>('1' + step.a % 5)}) {
                sim::holdKey(code);
            }
            break;
        case 3:
            if (step.b % 8 == 0) sim::endSession();
            break;
        default:
            break;
    }
    sim::run(static_cast<std::uint32_t>(step.c * 8));
    for (std::uint16_t code = '1'; code <= '5'; ++code) sim::releaseKey(code);
}

void User::Press(const Step& step) {
    constexpr std::uint16_t kKeys[] = {key::kEnter, key::kEscape, key::kSpace,    key::kTab,    key::kUp,
                                       key::kDown,  key::kLeft,   key::kRight,    key::kHome,   key::kEnd,
                                       key::kApps,  key::kPageUp, key::kPageDown, key::kDelete, key::kF2,
                                       key::kF5,    key::kF1,     key::kBack,     'A',          'Y'};
    constexpr std::uint16_t kHeld[] = {key::kCtrl, key::kShift, 'S', '1', '3', '5', key::kAlt};
    const std::uint16_t code = step.a < 200 ? Pick(kKeys, step.a) : static_cast<std::uint16_t>(step.b);
    switch (step.b % 8) {
        case 0:
            sim::keyDown(code, ModifiersOf(step));
            break;
        case 1:
            sim::keyUp(code, ModifiersOf(step));
            break;
        case 2:
            sim::holdKey(Pick(kHeld, step.c));
            break;
        case 3:
            sim::releaseKey(Pick(kHeld, step.c));
            break;
        default:
            sim::pressKey(code, ModifiersOf(step));
            break;
    }
}

void User::OnWindow(platform::Window& window, const Step& step) {
    const platform::Point at = PointIn(window, step);
    switch (step.kind / 8 % 12) {
        case 0:
            sim::mouseDown(window, at);
            break;
        case 1:
            sim::mouseUp(window, at);
            break;
        case 2:
            sim::doubleClick(window, at);
            break;
        case 3:
            sim::wheel(window, at, step.Bit(0) ? 120 : -360);
            break;
        case 4:
            sim::click(window, at, platform::MouseButton::Right);
            break;
        case 5:
            sim::click(window, at, platform::MouseButton::Middle);
            break;
        case 6:
            sim::setPointer(window, at);
            break;
        case 7:
            sim::dropFiles(window, {ProgramPath(step.b), ProgramPath(step.c)});
            break;
        case 8:
            RequirePaintedWhole(window);
            break;
        case 9:
            sim::click(window, at, platform::MouseButton::Left, ModifiersOf(step));
            break;
        default:
            sim::click(window, at);
            break;
    }
}

void User::OnDesktop(const Step& step) {
    const platform::Point screen{step.b * 5, step.c * 3};
    switch (step.a % 13) {
        case 0:
            if (form_.visible())
                sim::dragFrame(form_, platform::Rect::fromSize({step.b, step.c}, {step.b * 6, step.c * 4}));
            break;
        case 1:
            if (form_.exists()) form_.show(static_cast<platform::ShowCommand>(step.b % 7));
            break;
        case 2:
            sim::loseCapture();
            break;
        case 3:
            sim::movePointer(screen);
            break;
        case 4:
            sim::clickOnScreen(screen);
            break;
        case 5:
            sim::whenDragged({step.b * 4 - 512, step.c * 4 - 512});
            break;
        case 6:
            sim::whenChoosingFile(step.Bit(0) ? std::optional<std::string>(ProgramPath(step.b)) : std::nullopt);
            break;
        case 7:
            if (InTextBox()) sim::typeText(AnyText(step.b));
            break;
        case 8:
            if (InTextBox()) sim::pasteText(AnyText(step.b));
            break;
        case 9:
            sim::restartShell();
            break;
        case 10:
            if (platform::Window* mailbox = sim::findWindow("Text1")) mailbox->setText(AnyText(step.b));
            break;
        case 11:
            if (platform::Window* window = AnyWindow(step.b)) sim::closeBox(*window);
            break;
        default:
            if (step.b == 1) sim::endSession();
            break;
    }
}

void User::InTray(const Step& step) {
    if (sim::trayIcons().empty()) return;
    sim::trayEvent(static_cast<platform::TrayEvent>(step.b % 4));
}

void User::Befall(const Step& step) {
    meddled_ = meddled_ || Meddles(step);
    ChangeMachine(step, When::Running);
}

void User::Do(const Step& step) {
    switch (step.kind % 8) {
        case 0:
            sim::run(static_cast<std::uint32_t>(step.b % 5 * 250 + step.c));
            break;
        case 1:
            Press(step);
            break;
        case 2:
            OnDesktop(step);
            break;
        case 3:
            Befall({step.kind / 8, step.a, step.b, step.c});
            break;
        case 4:
            InTray(step);
            break;
        default:
            if (platform::Window* window = AnyWindow(step.a)) OnWindow(*window, step);
            break;
    }
}

}  // namespace fuzz
