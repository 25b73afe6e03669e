// What a dialog needs of the controls it holds, whichever they are.
#pragma once

#include <functional>

#include "platform/Window.h"

namespace controls {

// A control that lets its dialog see the keys first, and tells it when it gets the focus.
template <class Control>
class InDialog : public Control {
public:
    std::function<bool(const platform::KeyEvent&)> KeyFirst;  // true: the control must not see the key
    std::function<void()> GotFocus;

protected:
    void onKey(const platform::KeyEvent& event) override {
        if (!KeyFirst || !KeyFirst(event)) Control::onKey(event);
    }
    void onFocus(bool gained) override {
        Control::onFocus(gained);
        if (gained && GotFocus) GotFocus();
    }
};

}  // namespace controls
