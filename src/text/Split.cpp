#include "text/Split.h"

namespace text {

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view by) {
    std::string result;
    for (;;) {
        const std::size_t at = text.find(what);
        result += text.substr(0, at);
        if (at == std::string_view::npos) return result;
        result += by;
        text.remove_prefix(at + what.size());
    }
}

}  // namespace text
