#include "controls/FrmMsgBox.h"

#include <utility>

#include "controls/DialogPlace.h"
#include "controls/MsgBoxLayout.h"
#include "controls/PushButton.h"
#include "controls/Resources.h"
#include "platform/Sound.h"

namespace controls {

using platform::Canvas;
using platform::Color;
using platform::Rect;
using platform::Size;

namespace {

constexpr Color kGroundTop = 10526880;     // RGB 160, 160, 160
constexpr Color kGroundBottom = 14737632;  // RGB 224, 224, 224
constexpr Color kInk = platform::rgb(0, 0, 0);
constexpr Color kIconMask = platform::rgb(255, 255, 255);
constexpr int kIconPixels = 32;

// The dialog itself. It lives as long as its box is shown.
class FrmMsgBox : public platform::Window {
public:
    bool Create(const std::string& text, MsgStyle style, const std::string& title, platform::Window& owner,
                Preset preset) {
        question_ = style == MsgStyle::Question;
        focusYes_ = presetYes_ = question_ && preset == Preset::Yes;
        if (!create(DialogSpec(title, owner))) return false;
        icons_ = platform::loadPictureResource(kMessageIcons);
        Fit(text, AreaOfOwner(owner));
        CreateButtons();
        setTopmost(true);  // an owner that stays on top must not cover its own question
        return true;
    }

    void FocusDefault() { (presetYes_ ? cmdYes_ : cmdOkNo_).focus(); }
    bool Closed() const { return closed_; }  // by the user, with the close box of the frame
    // By a button or a key; nullopt when it ended otherwise.
    std::optional<int> Answer() const { return answer_; }

protected:
    void onClose() override {
        closed_ = true;
        destroy();
    }
    void onPaint(Canvas& canvas, const Rect&) override {
        // Another program may have put itself on top meanwhile. But a box that waits for one asked later must not
        // rise above it.
        if (cmdYes_.focused() || cmdOkNo_.focused()) setTopmost(true);
        // Dark above, light below: the text and the buttons stand on the lighter part.
        canvas.gradient(Rect::fromSize({0, 0}, clientSize()), kGroundTop, kGroundBottom,
                        platform::Direction::Vertical);
        const Rect image = Rect::fromSize({question_ ? kIconPixels : 0, 0}, {kIconPixels, kIconPixels});
        if (icons_) canvas.maskedPicture(layout_.icon.origin(), icons_, image, kIconMask);
        for (std::size_t i = 0; i < layout_.lines.size(); ++i) {
            canvas.text(layout_.Line(static_cast<int>(i)), layout_.lines[i], kInk, platform::Font::Normal,
                        platform::kTextSingleLine | platform::kTextNoPrefix);
        }
    }

    // The frame got the focus (the user comes back from another window): it belongs to a button.
    void onFocus(bool gained) override {
        if (gained) (focusYes_ ? cmdYes_ : cmdOkNo_).focus();
    }

    void onKey(const platform::KeyEvent& event) override {
        if (!event.down) return;
        if (event.code == platform::key::kEnter) {
            AnswerWith(focusYes_ ? kMsgYes : kMsgNo);
        } else {
            ButtonKey(event);
        }
    }

private:
    void Fit(const std::string& text, const Rect& over) {
        const Rect work = platform::nearestWorkArea(over);
        const Size frame = FrameOf(*this);
        layout_ = MsgBoxLayout::For(text, question_, {work.width() - frame.width, work.height() - frame.height});
        const Size whole{layout_.client.width + frame.width, layout_.client.height + frame.height};
        setBounds(PlacedOver(over, whole));
    }

    void CreateButtons() {
        if (question_) CreateButton(cmdYes_, "Yes", layout_.yes, kMsgYes);
        CreateButton(cmdOkNo_, question_ ? "No" : "OK", layout_.okNo, kMsgNo);
    }

    void CreateButton(PushButton& button, const char* caption, const Rect& bounds, int answer) {
        button.Click = [this, answer] { AnswerWith(answer); };
        button.OtherKey = [this](const platform::KeyEvent& event) { ButtonKey(event); };
        button.GotFocus = [this, answer] { focusYes_ = answer == kMsgYes; };
        button.Create(*this, caption, bounds);
    }

    void ButtonKey(const platform::KeyEvent& event) {
        namespace key = platform::key;
        if (event.modifiers.ctrl) return;
        const bool first = event.code == key::kLeft || event.code == key::kUp;
        const bool last = event.code == key::kRight || event.code == key::kDown;
        if (event.code == key::kEscape) {
            AnswerWith(kMsgNo);
        } else if (question_ && event.code == 'Y') {
            AnswerWith(kMsgYes);
        } else if (event.code == (question_ ? 'N' : 'O')) {
            AnswerWith(kMsgNo);
        } else if (question_ && (first || last)) {
            (first ? cmdYes_ : cmdOkNo_).focus();
        }
    }

    void AnswerWith(int answer) {
        answer_ = answer;
        destroy();
    }

    std::optional<int> answer_;
    bool closed_ = false;
    bool question_ = false;
    bool presetYes_ = false;
    bool focusYes_ = false;
    platform::PictureHandle icons_;
    MsgBoxLayout layout_;
    PushButton cmdYes_;
    PushButton cmdOkNo_;
};

}  // namespace

std::optional<int> MsgBoxes::Ask(const std::string& text, MsgStyle style, const std::string& title,
                                 platform::Window& owner, bool sound, Preset preset) {
    FrmMsgBox box;
    if (!box.Create(text, style, title, owner, preset)) return kMsgNo;
    platform::beginModal(box);
    if (sound && style == MsgStyle::Information) platform::beep();
    if (sound && style == MsgStyle::Question) platform::playSound("SystemQuestion");
    if (!owner.visible()) {
        // No window of the program is in front then, from which the box would take that over.
        box.show(platform::ShowCommand::Show);
        box.bringToFront();
    }
    box.FocusDefault();
    platform::Window* const below = std::exchange(box_, &box);
    platform::runModal(box);
    box_ = below;
    if (box.Answer()) lastAnswer_ = *box.Answer();
    // A question that went with its owner was never answered; an old Yes must not stand in for it.
    return box.Answer() || box.Closed() ? box.Answer() : kMsgNo;
}

int MsgBoxes::Show(const std::string& text, MsgStyle style, const std::string& title, platform::Window& owner,
                   bool sound) {
    return Ask(text, style, title, owner, sound, Preset::Yes).value_or(lastAnswer_);
}

void MsgBoxes::BringToFront() {
    if (box_ != nullptr) box_->bringToFront();
}

bool MsgBoxes::Confirm(const std::string& question, const std::string& title, platform::Window& owner, bool sound,
                       Preset preset) {
    return Ask(question, MsgStyle::Question, title, owner, sound, preset) == kMsgYes;
}

}  // namespace controls
