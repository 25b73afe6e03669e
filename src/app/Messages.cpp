#include "app/Messages.h"

namespace app {

void Messages::Tell(const std::string& text) {
    const BusyGuard guard(busy_);
    msgBoxes_.Show(text, controls::MsgStyle::Information, kInfoTitle, window_, options_.messageBeep);
}

bool Messages::Ask(const std::string& question) {
    const BusyGuard guard(busy_);
    return msgBoxes_.Show(question, controls::MsgStyle::Question, kInfoTitle, window_, options_.messageBeep) ==
           controls::kMsgYes;
}

}  // namespace app
