// What every control has that is clicked: it is followed by the pointer, pressed by mouse or key, and has a
// caption.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Window.h"

namespace controls {

// A click is press and release of the left button over the control, or press and release of a key while it has the
// focus: the space bar and, where it is asked for, Enter. Keys count when they are let go: a key held down would
// click again and again, and answer the question that the first click asks.
class ButtonBase : public platform::Window {
public:
    std::function<void()> Hover;  // the pointer moved over the control
    std::function<void()> Left;   // the pointer left it

    std::uintptr_t hwnd() const { return native(); }
    const std::string& Caption() const { return caption_; }
    // The caption is the window's text, too, where a screen reader finds it.
    void SetCaption(const std::string& caption);
    bool Enabled() const { return enabled(); }
    // A disabled control is greyed and takes no input.
    void SetEnabled(bool enabled);

protected:
    enum class EnterKey { Ignored, Clicks };
    explicit ButtonBase(EnterKey enter) : enter_(enter) {}

    // Class `className`, the window's text is `instanceName`; the caption only kept.
    bool CreateButton(platform::Window& parent, const std::string& className, const std::string& instanceName,
                      const std::string& caption, const platform::Rect& bounds);

    // Draws the whole control; `area` is its client area.
    virtual void Paint(platform::Canvas& canvas, const platform::Rect& area) = 0;
    // The user clicked it. The last thing done, so the control may be gone afterwards.
    virtual void Clicked() = 0;

    bool Hovered() const { return hovered_; }
    // It looks pressed: a key is down, or the mouse button is and the pointer is still over it.
    bool Pressed() const { return held_ == Held::ByKey || (held_ == Held::ByMouse && hovered_); }
    // The control goes back to its normal look, and to the one it would have without the pointer.
    void Reset();

    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onTimer(int id) override;
    void onCaptureLost() override;
    void onSystemColors() override { invalidate(); }
    void onDestroyed() override;

private:
    enum class Held { No, ByMouse, ByKey };
    void SetHovered(bool hovered);
    void SetHeld(Held held);
    void Release(bool inside);

    const EnterKey enter_;
    std::string caption_;
    bool hovered_ = false;
    Held held_ = Held::No;
    std::uint16_t heldKey_ = 0;
};

}  // namespace controls
