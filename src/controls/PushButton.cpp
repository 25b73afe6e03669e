#include "controls/PushButton.h"

namespace controls {

using platform::Color;
using platform::Rect;
using platform::rgb;

namespace {

// The message box has a grey ground of its own on every desktop, so its buttons have their own colours too.
constexpr Color kInk = rgb(0, 0, 0);
constexpr Color kBorder = rgb(112, 112, 112);
constexpr Color kActiveBorder = rgb(60, 127, 177);
constexpr int kFocusInset = 3;

struct Face {
    Color top, bottom;
};
constexpr Face kPlain{rgb(246, 246, 246), rgb(214, 214, 214)};
constexpr Face kHover{rgb(234, 246, 253), rgb(190, 221, 242)};
constexpr Face kDown{rgb(160, 200, 226), rgb(196, 224, 242)};

}  // namespace

bool PushButton::Create(platform::Window& parent, const std::string& caption, const Rect& bounds) {
    return CreateButton(parent, "PushButton", caption, caption, bounds);
}

void PushButton::Paint(platform::Canvas& canvas, const Rect& area) {
    const Face& face = Pressed() ? kDown : Hovered() ? kHover : kPlain;
    canvas.gradient(area, face.top, face.bottom, platform::Direction::Vertical);
    canvas.frame(area, focused() || Hovered() ? kActiveBorder : kBorder);
    canvas.text(
        Pressed() ? area.offset(1, 1) : area, Caption(), kInk, platform::Font::Normal,
        platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine | platform::kTextNoPrefix);
    if (focused()) canvas.focusRect(area.inset(kFocusInset, kFocusInset));
}

void PushButton::Clicked() {
    const auto click = Click;  // lives on when the receiver destroys the button
    if (click) click();
}

void PushButton::onFocus(bool gained) {
    ButtonBase::onFocus(gained);
    if (gained && GotFocus) GotFocus();
}

void PushButton::onKey(const platform::KeyEvent& event) {
    if (event.code == platform::key::kSpace || event.code == platform::key::kEnter) {
        ButtonBase::onKey(event);
    } else if (event.down && OtherKey) {
        const auto otherKey = OtherKey;
        otherKey(event);
    }
}

}  // namespace controls
