// One running copy of the program for each user: the copy that runs already, and how it is woken.
#pragma once

#include <functional>

#include "platform/Instance.h"
#include "platform/Window.h"

namespace app {

class SingleInstance {
public:
    // Another copy was started, has asked for this one's window to be shown and goes away again.
    std::function<void()> WakenUp;

    // Makes the mailbox `Text1`, a hidden child of the main window. False when there is no window.
    bool CreateMailbox(platform::Window& main);
    // True when another copy runs: its window has then been shown and it has been told, unless it has none (it is
    // just coming up, or going). Otherwise this copy is the one from now on, and can be found by its main window.
    // createMutex, windowProperty, showNormalAsync, sendText.
    bool AlreadyRunning(const platform::Window& main);
    bool Duplicate() const { return duplicate_; }
    // Lets a new copy start while this one still runs.
    void KillMutex();

private:
    // Whatever a new copy writes into it reaches this one, across processes and even while a menu is open.
    class Mailbox : public platform::Window {
    public:
        std::function<void()> WakenUp;

    protected:
        void onTextChanged() override;
    };

    Mailbox text1_;
    platform::MutexHandle mutex_;
    bool duplicate_ = false;
};

}  // namespace app
