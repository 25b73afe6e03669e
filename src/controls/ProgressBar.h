// A bar that shows a percentage as a length, as a colour, and in words.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Window.h"

namespace controls {

class ProgressBar : public platform::Window {
public:
    std::function<void()> Hover;  // the pointer moved over the bar
    std::function<void()> Left;   // the pointer left it

    // Class "ProgressBar", no tab stop; `bounds` in client pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    std::uintptr_t hwnd() const { return native(); }

    // Percent. Any value is kept, but the bar is never shorter than nothing or longer than the control, and the
    // text never falls below "00 %". Setting what is set already repaints nothing; so it is with all properties.
    std::int16_t Value() const { return value_; }
    void SetValue(std::int16_t percent);
    // What stands before the figure.
    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);
    // On at first: the bar turns orange from 80 and red from 90 percent on.
    bool TriColor() const { return triColor_; }
    void SetTriColor(bool triColor);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;

private:
    // The part of the control from one percentage to another.
    platform::Rect Part(int fromPercent, int toPercent) const;

    std::int16_t value_ = 0;
    std::string caption_;
    bool triColor_ = true;
};

}  // namespace controls
