// The program's only message box: a note with an OK button, or a question with Yes and No.
#pragma once

#include <optional>
#include <string>

#include "platform/Window.h"

namespace controls {

enum class MsgStyle { Information = 0, Question = 4 };

// The answer of a question whose button has the focus at first: one Enter away. No where Yes ends or deletes
// something.
enum class Preset { Yes, No };

inline constexpr char kInfoTitle[] = "Kestrum - Info";  // of notes and questions without a title of their own

inline constexpr int kMsgYes = 6;
inline constexpr int kMsgNo = 7;  // also the answer of OK

// Shows message boxes and holds the last answer, which outlives each box. The program has one of these.
class MsgBoxes {
public:
    // Shows `text` in a dialog captioned `title` over `owner`, waits until it is closed, and gives kMsgYes or
    // kMsgNo. A box ended by the close box of its frame gives the answer given last, to any box (0 before the
    // first); one that cannot be made, or goes with its owner, gives kMsgNo. `sound`: with the default beep (a
    // note) or the sound "SystemQuestion". Timers go on firing while the box is open.
    int Show(const std::string& text, MsgStyle style, const std::string& title, platform::Window& owner,
             bool sound);
    // A question, asked the same way. True only when the user says Yes: closing the box by its frame is No here, as
    // what is asked about may be past mending.
    bool Confirm(const std::string& question, const std::string& title, platform::Window& owner, bool sound,
                 Preset preset = Preset::Yes);
    int LastAnswer() const { return lastAnswer_; }
    // True while a box waits for its answer: not the time for menus that would lead to another one.
    bool Showing() const { return box_ != nullptr; }
    // The box that waits, the last one if there are several, gets the keyboard. SetForegroundWindow.
    void BringToFront();

private:
    // The answer given to this box, whatever was asked while it was open; nullopt when its frame was closed.
    std::optional<int> Ask(const std::string& text, MsgStyle style, const std::string& title,
                           platform::Window& owner, bool sound, Preset preset);

    int lastAnswer_ = 0;
    // The box shown last; a timer may ask while one is open, and so may the user in another window.
    platform::Window* box_ = nullptr;
};

}  // namespace controls
