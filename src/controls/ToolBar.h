// The image-button strip. One window draws all its buttons: they are found by geometry (ToolBarGeometry).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ToolBarGeometry.h"
#include "controls/ToolBarProperties.h"
#include "platform/Window.h"

namespace controls {

// Flat buttons with pictures; the pointer raises the one it is over, pressing sinks it, and a checked check-box
// button stays sunk. With the keyboard: Tab reaches the strip, the arrows, Home and End choose a button, Space
// and Enter click it. Buttons are numbered from 0.
class ToolBar : public platform::Window {
public:
    // A button was clicked. The last thing an input handler does: the receiver may destroy the control.
    std::function<void(int index)> Click;
    // The pointer came over button `index` (disabled ones too: their tips are of use), or left it: -1.
    std::function<void(int index)> Hover;
    // A slot property was written: "CurrentImage", "Image", "Mask", "Seperator" or "CheckBox".
    std::function<void(std::string_view property)> PropertyChanged;

    ToolBar();
    // Class "ToolBar"; `bounds` in client pixels of the parent. False when there is no window.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    std::uintptr_t hwnd() const { return native(); }

    // Gives the strip's pictures: `count` square images side by side, of 24 or 16 pixels as Size24 says. Makes
    // `count` slots, slot i with image i and mask colour 16777215; their other properties stay.
    void SetImages(platform::PictureHandle strip, int count);
    int ImageCount() const { return static_cast<int>(properties_.slots.size()); }

    // The slot that Image, MaskColor, Seperator and CheckBox address. Writing brings it into
    // 0..ImageCount - 1.
    int CurrentImage() const { return properties_.currentImage; }
    void SetCurrentImage(int index);
    // Which picture of the strip the slot shows, -1 for none. Writing makes a slot when there is none, and
    // resets the slot's mask colour.
    int Image() const;
    void SetImage(int image);
    // 0 when there is no slot.
    platform::Color MaskColor() const;
    void SetMaskColor(platform::Color color);
    // A separator follows the button.
    bool Seperator() const;
    void SetSeperator(bool separator);
    bool CheckBox() const;
    void SetCheckBox(bool checkBox);

    // Down state of a button; false, and nothing happens, for a button that does not exist.
    bool IsChecked(int index) const;
    void SetChecked(int index, bool down);
    // Accepts 1..ImageCount - 1; button 0 and buttons that do not exist are ignored.
    void EnableButton(int index, bool enabled);
    // Greys a button, 0 as well, for a function that this build of the program does not have. Independent of
    // EnableButton: the button works only when both let it.
    void SetUnavailable(int index, bool unavailable);
    bool IsEnabled(int index) const;

    platform::Color BackColor() const;
    void SetBackColor(platform::Color color);
    int LeftIndent() const { return properties_.leftIndent; }
    void SetLeftIndent(int pixels);
    // The strip takes the colour of the form around it (button face) in place of BackColor.
    bool Transparency() const { return properties_.transparency; }
    void SetTransparency(bool transparency);
    bool Horizontal() const { return properties_.horizontal; }
    void SetHorizontal(bool horizontal);
    bool Size24() const { return properties_.size24; }
    void SetSize24(bool size24);

    // Lays the buttons out again and repaints all of them.
    void RedrawControl();
    // Size in pixels that shows every button.
    int PreferredWidth() const { return layout_.Preferred().width; }
    int PreferredHeight() const { return layout_.Preferred().height; }
    // In client pixels; empty when there is no such button.
    platform::Rect ButtonRect(int index) const { return layout_.Button(index); }

    void ReadProperties(const PropertyMap& map);
    void WriteProperties(PropertyMap& map) const { properties_.Write(map); }

protected:
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
    struct ButtonState {
        bool down = false;
        bool enabled = true;
        bool unavailable = false;
    };

    bool Valid(int index) const { return index >= 0 && index < ImageCount(); }
    ToolBarSlot* CurrentSlot();
    const ToolBarSlot* CurrentSlot() const;
    ButtonState& State(int index) { return states_[static_cast<std::size_t>(index)]; }
    const ButtonState& State(int index) const { return states_[static_cast<std::size_t>(index)]; }
    void Changed(std::string_view property);
    void InvalidateButton(int index);
    int HitTest(platform::Point at) const;
    void SetHovered(int index);
    void SetPressed(int index, bool byKey = false);
    void SetFocusButton(int index);
    int NextEnabled(int from, int step) const;
    void AvailabilityChanged(int index);
    void MouseMove(const platform::MouseEvent& event);
    void MouseDown(int index, bool doubleClick);
    void MouseUp(int index);
    void Arrow(std::uint16_t code);
    void RaiseClick(int index);
    void PaintButton(platform::Canvas& canvas, int index) const;
    void PaintPicture(platform::Canvas& canvas, int index) const;

    ToolBarProperties properties_;
    ToolBarLayout layout_;
    std::vector<ButtonState> states_;  // one per slot
    platform::PictureHandle strip_;
    int hovered_ = -1;
    int pressed_ = -1;
    int lastClicked_ = -1;      // where the first click of a double click was
    bool doubleClick_ = false;  // a double click was just seen: the release that ends it is no click
    int focusButton_ = 0;       // the button the keyboard clicks
    bool keyPress_ = false;     // the press comes from Space or Enter; letting the key go clicks
};

}  // namespace controls
