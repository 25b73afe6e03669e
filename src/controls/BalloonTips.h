// The program's one balloon tip, which explains what the pointer rests on.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Tooltip.h"
#include "platform/Window.h"

namespace controls {

class BalloonTips {
public:
    // The user's option; on at first. Turning it off takes away the tip that is there.
    void SetEnabled(bool enabled);
    bool Enabled() const { return enabled_; }
    // Explains `target` from now on, in place of what was explained before: the balloon comes after 800 ms of
    // rest and goes after 7 seconds. Without effect when tips are off, unless with `force`; and when this target
    // has a tip already, whose words stay as they are until Remove. A tip that cannot be made is not tried again
    // for its target until then. An empty title leaves the title line out; lines of the text end in CR LF.
    void Show(const std::string& text, const platform::Window& target, const std::string& title, bool force);
    // Takes the tip away.
    void Remove();
    // Likewise when the user has clicked `target`: while the pointer stays over it nothing explains it again.
    void Dismiss(const platform::Window& target);
    // True from Show to Remove (or the next target): another Show for this target would do nothing.
    bool ShownFor(const platform::Window& target) const;

private:
    void Make(const std::string& text, const platform::Window& target, const std::string& title);

    bool enabled_ = true;
    bool created_ = false;          // or tried in vain
    std::uintptr_t target_ = 0;     // only ever compared: its window may be gone
    std::uintptr_t dismissed_ = 0;  // likewise
    platform::TooltipHandle tooltip_;
};

}  // namespace controls
