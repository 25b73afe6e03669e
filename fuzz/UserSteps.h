// The user of the program: mouse, keys, menus, the notification area, and time that passes.
#pragma once

#include <cstdint>
#include <vector>

#include "Bytes.h"
#include "app/Form1.h"
#include "platform/Menu.h"

namespace platform {
class Window;
}

namespace fuzz {

// Answers every question, menu and chooser that comes up with what the input says next.
class User {
public:
    User(app::Form1& form, Bytes& bytes) : form_(form), bytes_(bytes) {}

    // From now on there is somebody to answer.
    void Attend();
    void Do(const Step& step);
    // Something other than the program changed or failed its files or settings meanwhile.
    bool Meddled() const { return meddled_; }

private:
    void OnWindow(platform::Window& window, const Step& step);
    void OnDesktop(const Step& step);
    void InTray(const Step& step);
    void Meanwhile(const Step& step);
    void Press(const Step& step);
    void Befall(const Step& step);
    void Answer(platform::Window& dialog);
    int Choose(const std::vector<platform::MenuItem>& items);

    app::Form1& form_;
    Bytes& bytes_;
    bool meddled_ = false;
    int dialogs_ = 0;  // open, one over the other
};

}  // namespace fuzz
