#include "app/SingleInstance.h"

#include <utility>

namespace app {

namespace {

constexpr char kMutex[] = "KestrumMutex";
constexpr char kProperty[] = "Kestrum_2";  // on the main window: the number of its mailbox
constexpr char kWakeUp[] = "WakeUp";

std::uintptr_t FindMailbox() {
    for (const std::uintptr_t window : platform::topLevelWindowNumbers()) {
        // Any program can put this property on its windows; a mailbox is a child of the window that names it.
        const std::uintptr_t mailbox = platform::windowProperty(window, kProperty);
        if (mailbox != 0 && platform::parentWindow(mailbox) == window) return mailbox;
    }
    return 0;
}

void WakeOtherCopy() {
    const std::uintptr_t mailbox = FindMailbox();
    if (mailbox == 0) return;
    const std::uintptr_t main = platform::parentWindow(mailbox);
    platform::showNormalAsync(main);
    // Only this copy may give the foreground away: the user has just started it.
    platform::bringWindowToFront(main);
    platform::sendText(mailbox, kWakeUp);
}

}  // namespace

bool SingleInstance::CreateMailbox(platform::Window& main) {
    if (!text1_.createChild(main, "Text1", "", {0, 0, 1, 1}, platform::TabStop::No)) return false;
    text1_.show(platform::ShowCommand::Hide);
    platform::acceptFromUnelevated(text1_, platform::Request::Text);
    text1_.WakenUp = [this] {
        if (WakenUp) WakenUp();
    };
    return true;
}

bool SingleInstance::AlreadyRunning(const platform::Window& main) {
    platform::CreatedMutex created = platform::createMutex(kMutex);
    if (created.existed) {
        platform::releaseMutex(created.handle);
        created.handle.reset();
        duplicate_ = true;
        WakeOtherCopy();
        return true;
    }
    mutex_ = std::move(created.handle);
    platform::setWindowProperty(main, kProperty, text1_.native());
    return false;
}

void SingleInstance::KillMutex() {
    platform::releaseMutex(mutex_);
    mutex_.reset();
}

void SingleInstance::Mailbox::onTextChanged() {
    if (text() != kWakeUp) return;
    if (WakenUp) WakenUp();
    setText("");
}

}  // namespace app
