// The message loop, one message at a time; for the implementations of Window.h.
#pragma once

#include <functional>
#include <optional>

namespace platform {

struct NextMessage {
    enum class Kind { Dispatched, Quit, Failed };
    Kind kind = Kind::Dispatched;
    int quitCode = 0;
};
// Waits for a message and hands it to its window. GetMessageW, DispatchMessageW.
NextMessage dispatchNext();

// Dispatches messages while `goOn` holds; the code of the quit message that ended it, if one did. A message that
// cannot be got is no reason to end: only when there are a thousand of them in a row, that counts as one with
// code 1.
std::optional<int> dispatchWhile(const std::function<bool()>& goOn);

}  // namespace platform
