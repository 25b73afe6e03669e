#include "favorites/JrHandOff.h"

#include <algorithm>

#include "favorites/Profiles.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

namespace favorites {

namespace {

constexpr char kEnforce[] = "/Enforce";

// A shell puts quotes around what holds blanks, around the profile or around all of it. As on any command line of
// Windows they only hold together what they enclose, which nothing here depends on. One alone stays, and is
// refused.
std::string WithoutQuotes(std::string_view arguments) {
    std::string text(arguments);
    if (std::count(text.begin(), text.end(), '"') % 2 == 0) std::erase(text, '"');
    return text;
}

// Takes `part`, whatever its letter case, off the front of `text`; what follows must be apart from it.
bool TakePart(std::string_view& text, const std::string& part) {
    if (text::Lower(text.substr(0, part.size())) != text::Lower(part)) return false;
    const std::string_view rest = text.substr(part.size());
    if (!rest.empty() && rest.front() != ' ') return false;
    text = text::Trim(rest);
    return true;
}

// 0 when it does not begin with a profile.
int TakeProfile(std::string_view& text) {
    for (int number = 1; number <= kProfileCount; ++number) {
        if (TakePart(text, "/" + ProfileName(number))) return number;
    }
    return 0;
}

}  // namespace

std::string FormatJrTask(const JrTask& task) {
    std::string text = "/" + ProfileName(task.profile);
    if (task.enforceSeconds > 0) text.append(" ").append(kEnforce).append(" " + text::Decimal(task.enforceSeconds));
    return text;
}

std::optional<JrTask> ParseJrTask(std::string_view arguments) {
    const std::string unquoted = WithoutQuotes(arguments);
    std::string_view rest = text::Trim(unquoted);
    JrTask task;
    task.profile = TakeProfile(rest);
    if (task.profile == 0) return std::nullopt;
    if (rest.empty()) return task;
    if (!TakePart(rest, kEnforce)) return std::nullopt;
    // A wrong interval is refused, not taken for another one: Enforce would not do what it was asked for.
    task.enforceSeconds = text::WholeNumber(rest).value_or(0);
    return task.enforceSeconds > 0 ? std::optional(task) : std::nullopt;
}

}  // namespace favorites
