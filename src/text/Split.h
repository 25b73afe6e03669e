// Taking texts apart and putting them together.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace text {

// The pieces between the separators, in order; n separators give n + 1 pieces. They point into `text`.
std::vector<std::string_view> Split(std::string_view text, char separator);
// Without the blanks at both ends.
std::string_view Trim(std::string_view text);
// Every occurrence of `what` (not empty, case-sensitive) replaced.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by);

}  // namespace text
