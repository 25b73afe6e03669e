#include "text/Case.h"

#include <algorithm>

#include "platform/CodePage.h"

namespace text {

namespace {

constexpr std::size_t kExtensionLength = 4;  // a dot and three letters

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char LowerChar(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char UpperChar(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The name split behind its first character, which may be several bytes long. In a single-byte code page a byte
// from 0x80 on is a whole character; a UTF-8 character is as long as it takes to be valid.
std::size_t FirstCharacterLength(std::string_view name) {
    for (std::size_t length = 1; length <= 4 && length <= name.size(); ++length) {
        if (platform::isValidText(name.substr(0, length))) return length;
    }
    return name.empty() ? 0 : 1;
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

std::string_view FileNameOf(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string ProcessDisplayName(std::string_view fileName) {
    if (OneCase(fileName)) return FirstUpperRestLower(fileName);
    const std::size_t first = FirstCharacterLength(fileName);
    std::string name = Upper(fileName.substr(0, first));
    const std::string_view rest = fileName.substr(first);
    if (rest.size() < kExtensionLength) return name + std::string(rest);
    const std::size_t kept = rest.size() - kExtensionLength;
    // An "extension" that would cut a character in two is none.
    if (platform::isValidText(fileName) && !platform::isValidText(rest.substr(kept)))
        return name + std::string(rest);
    return name + std::string(rest.substr(0, kept)) + Lower(rest.substr(kept));
}

std::string FavoriteDisplayName(std::string_view fileName) {
    return OneCase(fileName) ? FirstUpperRestLower(fileName) : std::string(fileName);
}

}  // namespace text
