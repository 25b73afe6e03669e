// The toolbar's properties and input; ToolBarPaint.cpp draws it.
#include "controls/ToolBar.h"

#include <algorithm>
#include <utility>

namespace controls {

using platform::Color;
using platform::MouseAction;
using platform::MouseButton;
using platform::Rect;
using platform::SysColor;

namespace {

// While a button is hovered the window looks now and then whether the pointer is still there: it can get away
// without a message, to another program's window for example, or because the strip is hidden.
constexpr int kHoverWatch = 1;
constexpr std::uint32_t kHoverWatchPeriod = 100;  // ms

}  // namespace

ToolBar::ToolBar() {
    properties_.slots.resize(1);
    states_.resize(1);
    layout_ = properties_.Layout();
}

bool ToolBar::Create(platform::Window& parent, const std::string& instanceName, const Rect& bounds) {
    return createChild(parent, "ToolBar", instanceName, bounds, platform::TabStop::Yes);
}

// ---- properties ----

void ToolBar::SetImages(platform::PictureHandle strip, int count) {
    strip_ = std::move(strip);
    properties_.slots.resize(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < ImageCount(); ++i) {
        properties_.slots[static_cast<std::size_t>(i)].image = i;
        properties_.slots[static_cast<std::size_t>(i)].mask = kToolBarMask;
    }
    properties_.currentImage = properties_.ClampSlot(properties_.currentImage);
    RedrawControl();
    Changed("Image");
}

ToolBarSlot* ToolBar::CurrentSlot() {
    if (properties_.slots.empty()) return nullptr;
    return &properties_.slots[static_cast<std::size_t>(properties_.currentImage)];
}

const ToolBarSlot* ToolBar::CurrentSlot() const {
    return const_cast<ToolBar*>(this)->CurrentSlot();
}

void ToolBar::SetCurrentImage(int index) {
    properties_.currentImage = properties_.ClampSlot(index);
    Changed("CurrentImage");
}

int ToolBar::Image() const {
    return CurrentSlot() ? CurrentSlot()->image : -1;
}

void ToolBar::SetImage(int image) {
    if (properties_.slots.empty()) {
        properties_.slots.resize(1);
        properties_.currentImage = 0;
    }
    CurrentSlot()->image = image;
    CurrentSlot()->mask = kToolBarMask;
    RedrawControl();
    Changed("Image");
}

Color ToolBar::MaskColor() const {
    return CurrentSlot() ? CurrentSlot()->mask : 0;
}

void ToolBar::SetMaskColor(Color color) {
    if (ToolBarSlot* slot = CurrentSlot()) slot->mask = color;
    InvalidateButton(CurrentImage());
    Changed("Mask");
}

bool ToolBar::Seperator() const {
    return CurrentSlot() && CurrentSlot()->separator;
}

void ToolBar::SetSeperator(bool separator) {
    if (ToolBarSlot* slot = CurrentSlot()) slot->separator = separator;
    RedrawControl();
    Changed("Seperator");
}

bool ToolBar::CheckBox() const {
    return CurrentSlot() && CurrentSlot()->checkBox;
}

void ToolBar::SetCheckBox(bool checkBox) {
    if (ToolBarSlot* slot = CurrentSlot()) slot->checkBox = checkBox;
    Changed("CheckBox");
}

bool ToolBar::IsChecked(int index) const {
    return Valid(index) && State(index).down;
}

void ToolBar::SetChecked(int index, bool down) {
    if (!Valid(index) || State(index).down == down) return;
    State(index).down = down;
    InvalidateButton(index);
}

void ToolBar::EnableButton(int index, bool enabled) {
    if (index < 1 || !Valid(index) || State(index).enabled == enabled) return;
    State(index).enabled = enabled;
    AvailabilityChanged(index);
}

void ToolBar::SetUnavailable(int index, bool unavailable) {
    if (!Valid(index) || State(index).unavailable == unavailable) return;
    State(index).unavailable = unavailable;
    AvailabilityChanged(index);
}

bool ToolBar::IsEnabled(int index) const {
    return Valid(index) && State(index).enabled && !State(index).unavailable;
}

void ToolBar::AvailabilityChanged(int index) {
    if (pressed_ == index && !IsEnabled(index)) SetPressed(-1);
    InvalidateButton(index);
}

Color ToolBar::BackColor() const {
    return properties_.backColor.value_or(platform::systemColor(SysColor::ButtonFace));
}

void ToolBar::SetBackColor(Color color) {
    properties_.backColor = color;
    RedrawControl();
}

void ToolBar::SetLeftIndent(int pixels) {
    properties_.leftIndent = std::max(pixels, 0);
    RedrawControl();
}

void ToolBar::SetTransparency(bool transparency) {
    properties_.transparency = transparency;
    RedrawControl();
}

void ToolBar::SetHorizontal(bool horizontal) {
    properties_.horizontal = horizontal;
    RedrawControl();
}

void ToolBar::SetSize24(bool size24) {
    properties_.size24 = size24;
    RedrawControl();
}

void ToolBar::ReadProperties(const PropertyMap& map) {
    properties_ = ToolBarProperties::Read(map);
    RedrawControl();
}

void ToolBar::RedrawControl() {
    states_.resize(properties_.slots.size());
    const ToolBarLayout layout = properties_.Layout();
    if (layout != layout_) {
        // The buttons move away under the pointer; its next move finds the one it is over now.
        SetPressed(-1);
        SetHovered(-1);
        layout_ = layout;
        focusButton_ = properties_.ClampSlot(focusButton_);
    }
    if (exists()) invalidate();
}

void ToolBar::Changed(std::string_view property) {
    if (PropertyChanged) PropertyChanged(property);
}

// ---- hover and press ----

void ToolBar::InvalidateButton(int index) {
    if (exists() && Valid(index)) invalidate(layout_.Button(index));
}

int ToolBar::HitTest(platform::Point at) const {
    // While the mouse is captured it may be beyond the edge of a strip too short for its buttons.
    return Rect::fromSize({0, 0}, clientSize()).contains(at) ? layout_.HitTest(at) : -1;
}

void ToolBar::SetHovered(int index) {
    if (index == hovered_) return;
    InvalidateButton(hovered_);
    InvalidateButton(index);
    const bool start = hovered_ < 0;
    hovered_ = index;  // before the capture goes: its loss is then no news
    if (index < 0) {
        stopTimer(kHoverWatch);
        releaseCapture();
    } else if (start) {
        capture();
        startTimer(kHoverWatch, kHoverWatchPeriod);
    }
    if (Hover) Hover(index);
}

void ToolBar::SetPressed(int index, bool byKey) {
    keyPress_ = byKey && index >= 0;
    if (index == pressed_) return;
    InvalidateButton(pressed_);
    InvalidateButton(index);
    pressed_ = index;
}

void ToolBar::onMouse(const platform::MouseEvent& event) {
    if (event.action == MouseAction::Move) {
        MouseMove(event);
    } else if (event.button == MouseButton::Left && event.action == MouseAction::Up) {
        MouseUp(HitTest(event.at));
    } else if (event.button == MouseButton::Left) {
        MouseDown(HitTest(event.at), event.action == MouseAction::DoubleClick);
    } else if (HitTest(event.at) < 0) {
        SetHovered(-1);
    }
}

void ToolBar::MouseMove(const platform::MouseEvent& event) {
    int index = visible() ? HitTest(event.at) : -1;
    // With the button held only the pressed button takes part: a drag that passes by raises nothing.
    const bool mousePress = pressed_ >= 0 && !keyPress_;
    if (event.leftHeld && (!mousePress || index != pressed_)) index = -1;
    if (mousePress && index != pressed_) SetPressed(-1);
    SetHovered(index);
}

void ToolBar::MouseDown(int index, bool doubleClick) {
    SetHovered(index);
    // Two quick clicks on neighbours may come as a double click too; they are two clicks.
    doubleClick_ = doubleClick && index == lastClicked_;
    lastClicked_ = -1;
    SetPressed(IsEnabled(index) ? index : -1);
}

void ToolBar::MouseUp(int index) {
    const bool endsDoubleClick = std::exchange(doubleClick_, false);
    const bool pressed = !keyPress_ && pressed_ >= 0 && pressed_ == index;
    SetPressed(-1);
    SetHovered(-1);
    if (!pressed || endsDoubleClick) return;
    lastClicked_ = index;
    RaiseClick(index);
}

void ToolBar::onMouseLeave() {
    if (!captured()) SetHovered(-1);
}

void ToolBar::onCaptureLost() {
    if (!keyPress_) SetPressed(-1);
    SetHovered(-1);
}

void ToolBar::onTimer(int id) {
    if (id != kHoverWatch || (visible() && enabled() && underPointer())) return;
    onCaptureLost();
}

void ToolBar::onDestroyed() {
    // A window that dies with the capture is not told that it lost it.
    hovered_ = -1;
    pressed_ = -1;
    keyPress_ = false;
}

void ToolBar::RaiseClick(int index) {
    if (properties_.slots[static_cast<std::size_t>(index)].checkBox) SetChecked(index, !IsChecked(index));
    const auto click = Click;  // lives on when the receiver destroys the control
    if (click) click(index);
}

// ---- keyboard ----

void ToolBar::onFocus(bool gained) {
    if (!gained && keyPress_) SetPressed(-1);
    if (gained && !IsEnabled(focusButton_)) {
        const int first = NextEnabled(-1, 1);
        if (first >= 0) focusButton_ = first;
    }
    InvalidateButton(focusButton_);
}

int ToolBar::NextEnabled(int from, int step) const {
    int index = from + step;
    while (Valid(index) && !IsEnabled(index)) index += step;
    return Valid(index) ? index : -1;
}

void ToolBar::SetFocusButton(int index) {
    if (index < 0 || index == focusButton_) return;
    InvalidateButton(focusButton_);
    InvalidateButton(index);
    focusButton_ = index;
}

void ToolBar::onKey(const platform::KeyEvent& event) {
    const bool clicks = event.code == platform::key::kSpace || event.code == platform::key::kEnter;
    if (!clicks) {
        if (event.down) Arrow(event.code);
    } else if (event.down) {
        // The click comes when the key is let go: a key held down would click again and again, and answer the
        // question that the first click asks.
        if (pressed_ < 0 && IsEnabled(focusButton_)) SetPressed(focusButton_, true);
    } else if (keyPress_) {
        const int index = pressed_;
        SetPressed(-1);
        RaiseClick(index);
    }
}

void ToolBar::Arrow(std::uint16_t code) {
    namespace key = platform::key;
    if (keyPress_) return;
    if (code == key::kLeft || code == key::kUp) SetFocusButton(NextEnabled(focusButton_, -1));
    if (code == key::kRight || code == key::kDown) SetFocusButton(NextEnabled(focusButton_, 1));
    if (code == key::kHome) SetFocusButton(NextEnabled(-1, 1));
    if (code == key::kEnd) SetFocusButton(NextEnabled(ImageCount(), -1));
}

}  // namespace controls
