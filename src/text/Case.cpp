#include "text/Case.h"

#include <algorithm>
#include <vector>

#include "platform/CodePage.h"

namespace text {

namespace {

constexpr std::size_t kExtensionLength = 4;  // characters: a dot and three letters

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char LowerChar(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char UpperChar(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Bytes of the first character: the shortest beginning that the code page takes for whole characters. A byte that
// belongs to no character stands for itself.
std::size_t FirstCharacterLength(std::string_view name) {
    for (std::size_t length = 1; length <= 4 && length <= name.size(); ++length) {
        if (platform::isValidText(name.substr(0, length))) return length;
    }
    return name.empty() ? 0 : 1;
}

// Where the last `count` characters of the text begin; 0 when it has no more than that.
std::size_t LastCharacters(std::string_view text, std::size_t count) {
    if (IsAscii(text)) return text.size() - std::min(count, text.size());
    // A character's length shows only from its front, so the beginnings are collected from the start on.
    std::vector<std::size_t> beginnings;
    for (std::size_t at = 0; at < text.size(); at += FirstCharacterLength(text.substr(at)))
        beginnings.push_back(at);
    return beginnings.size() <= count ? 0 : beginnings[beginnings.size() - count];
}

std::string FirstUpperRestLower(std::string_view name) {
    const std::size_t first = FirstCharacterLength(name);
    return Upper(name.substr(0, first)) + Lower(name.substr(first));
}

bool OneCase(std::string_view name) {
    return name == Lower(name) || name == Upper(name);
}

}  // namespace

std::string Lower(std::string_view text) {
    if (!IsAscii(text)) return platform::lowerCase(text);
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), LowerChar);
    return result;
}

std::string Upper(std::string_view text) {
    if (!IsAscii(text)) return platform::upperCase(text);
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), UpperChar);
    return result;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) end += FirstCharacterLength(text.substr(end));
    return text.substr(0, end);
}

std::string_view FileNameOf(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string ProcessDisplayName(std::string_view fileName) {
    if (OneCase(fileName)) return FirstUpperRestLower(fileName);
    const std::size_t first = FirstCharacterLength(fileName);
    const std::string initial = Upper(fileName.substr(0, first));
    const std::size_t extension = LastCharacters(fileName, kExtensionLength);
    // Less than five characters hold no name with an extension: what follows the first one stays.
    if (extension < first) return initial + std::string(fileName.substr(first));
    return initial + std::string(fileName.substr(first, extension - first)) + Lower(fileName.substr(extension));
}

std::string FavoriteDisplayName(std::string_view fileName) {
    return OneCase(fileName) ? FirstUpperRestLower(fileName) : std::string(fileName);
}

}  // namespace text
