// The pages of the options dialog and the buttons that bring them up.
#pragma once

#include "controls/InDialog.h"
#include "controls/XPbutn.h"
#include "platform/Window.h"

namespace settings {

// The ground of one page, framed. Its controls are its children, so that a hidden page takes them along.
class OptionsPage : public platform::Window {
public:
    bool Create(platform::Window& parent, const std::string& instanceName);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSystemColors() override { invalidate(); }
};

// A push button that shows whether its page is the one in view.
class OptionsPageButton : public controls::InDialog<controls::XPbutn> {
public:
    bool Active() const { return active_; }
    void SetActive(bool active);

protected:
    void Paint(platform::Canvas& canvas, const platform::Rect& area) override;

private:
    bool active_ = false;
};

}  // namespace settings
