#include "filter/FilterFile.h"

#include <algorithm>

#include "text/Split.h"

namespace filter {

namespace {

constexpr std::string_view kSeparators = ",\r\n";  // a lone CR or LF ends a line, too

// The length of the field in double quotes that `line` begins with, blanks on both sides included; npos when it
// begins with none. A quote nobody closes on its line, or that is closed in the middle of a name, is an ordinary
// character: one stray quote must not swallow the names on the following lines.
std::size_t QuotedLength(std::string_view content) {
    const std::size_t open = content.find_first_not_of(' ');
    if (open == std::string_view::npos || content[open] != '"') return std::string_view::npos;
    const std::size_t close = content.find_first_of("\"\r\n", open + 1);
    if (close == std::string_view::npos || content[close] != '"') return std::string_view::npos;
    const std::size_t end = content.find_first_not_of(' ', close + 1);
    if (end == std::string_view::npos) return content.size();
    return kSeparators.find(content[end]) == std::string_view::npos ? std::string_view::npos : end;
}

std::string_view WithoutQuotes(std::string_view field) {
    field = text::Trim(field);
    return text::Trim(field.substr(1, field.size() - 2));
}

}  // namespace

std::vector<std::string_view> ParseFilter(std::string_view content) {
    std::vector<std::string_view> names;
    while (!content.empty()) {
        const std::size_t quoted = QuotedLength(content);
        const bool isQuoted = quoted != std::string_view::npos;
        const std::size_t end = isQuoted ? quoted : std::min(content.find_first_of(kSeparators), content.size());
        const std::string_view field = content.substr(0, end);
        const std::string_view name = isQuoted ? WithoutQuotes(field) : text::Trim(field);
        if (!name.empty()) names.push_back(name);
        content.remove_prefix(std::min(end + 1, content.size()));
    }
    return names;
}

std::string FormatFilter(const cList& names) {
    std::string content;
    for (int index = 0; index < names.ListCount(); ++index) {
        content += names.List(index);
        content += "\r\n";
    }
    return content;
}

}  // namespace filter
