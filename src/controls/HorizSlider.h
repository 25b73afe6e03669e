// A horizontal slider.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Window.h"

namespace controls {

// Moved by dragging the thumb, by pressing the track, where the thumb jumps to the pointer and can be dragged on,
// or by keys: arrows one step, Page Up and Page Down a page, Home and End all the way.
class HorizSlider : public platform::Window {
public:
    std::function<void()> Change;  // the user gave it another value; not raised by SetValue

    // Class "HorizSlider", a tab stop; `bounds` in client pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    std::uintptr_t hwnd() const { return native(); }

    // From `least` to `most`, which is above it, instead of 0 to 255, with pages of `page` steps instead of 16.
    void SetRange(int least, int most, int page);
    // The least, 0, at the left end to the most, 255, at the right; SetValue brings others to the nearer end.
    std::int16_t Value() const { return value_; }
    void SetValue(int value);
    bool Enabled() const { return enabled(); }
    void SetEnabled(bool enabled);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSize(platform::Size client, platform::WindowState state) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onCaptureLost() override;
    void onSystemColors() override { invalidate(); }
    void onDestroyed() override { dragging_ = false; }

private:
    int Travel() const;
    platform::Rect Thumb() const;
    void Press(platform::Point at);
    void MoveThumb(int left);
    void ChangeTo(int value);
    void SetHovered(bool hovered);

    int least_ = 0;
    int most_ = 255;
    int page_ = 16;
    std::int16_t value_ = 0;
    int thumbLeft_ = 0;  // pixels; may lie between the places of two values
    int grip_ = 0;       // from the thumb's left edge to the pointer that drags it
    bool dragging_ = false;
    bool hovered_ = false;  // the pointer is over the thumb
};

}  // namespace controls
