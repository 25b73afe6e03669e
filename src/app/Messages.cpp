#include "app/Messages.h"

namespace app {

void Messages::Tell(const std::string& text, const std::string& title) {
    const BusyGuard guard(busy_);
    msgBoxes_.Show(text, controls::MsgStyle::Information, title, window_, options_.messageBeep);
}

bool Messages::Ask(const std::string& question, const std::string& title) {
    const BusyGuard guard(busy_);
    return msgBoxes_.Confirm(question, title, window_, options_.messageBeep);
}

bool Messages::AskBeforeLoss(const std::string& question) {
    const BusyGuard guard(busy_);
    return msgBoxes_.Confirm(question, controls::kInfoTitle, window_, options_.messageBeep, controls::Preset::No);
}

}  // namespace app
