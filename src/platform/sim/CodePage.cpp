// The simulated machine's code page is UTF-8. Case is known for ASCII and the Latin-1 letters.
#include "platform/CodePage.h"

#include <algorithm>

#include "platform/sim/SimMachine.h"

namespace platform {

namespace {

// Bytes of the valid UTF-8 character at the start of `text`; 0 when there is none.
std::size_t characterLength(std::string_view text) {
    const auto byte = [text](std::size_t at) -> unsigned {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const auto follows = [&byte](std::size_t at) { return (byte(at) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    if (text.empty()) return 0;
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return follows(1) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const bool overlong = first == 0xE0 && byte(1) < 0xA0;
        const bool surrogate = first == 0xED && byte(1) > 0x9F;
        return follows(1) && follows(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const bool overlong = first == 0xF0 && byte(1) < 0x90;
        const bool tooHigh = first == 0xF4 && byte(1) > 0x8F;
        return follows(1) && follows(2) && follows(3) && !overlong && !tooHigh ? 4 : 0;
    }
    return 0;
}

// Moves the letters between `first` and `first` + 25 (ASCII), and their Latin-1 likes, by `step`.
std::string changeCase(std::string_view text, char first, int step) {
    std::string result(text);
    const auto latinFirst = static_cast<unsigned char>(step > 0 ? 0x80 : 0xA0);
    for (std::size_t at = 0; at < result.size(); ++at) {
        char& byte = result[at];
        if (byte >= first && byte <= first + 25) {
            byte = static_cast<char>(byte + step);
        } else if (static_cast<unsigned char>(byte) == 0xC3 && at + 1 < result.size()) {
            char& letter = result[++at];
            const int index = static_cast<unsigned char>(letter) - latinFirst;
            // 0x17 would be the multiplication or the division sign.
            if (index >= 0 && index <= 0x1E && index != 0x17) letter = static_cast<char>(letter + step);
        }
    }
    return result;
}

}  // namespace

bool isValidText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string_view sim::firstUnits(std::string_view text, std::size_t units) {
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t bytes = characterLength(text.substr(end));
        const std::size_t taken = bytes == 4 ? 2 : 1;  // characters of four bytes are pairs
        if (taken > units) break;
        units -= taken;
        end += std::max<std::size_t>(bytes, 1);
    }
    return text.substr(0, end);
}

std::string lowerCase(std::string_view text) {
    return changeCase(text, 'A', 0x20);
}
std::string upperCase(std::string_view text) {
    return changeCase(text, 'a', -0x20);
}

}  // namespace platform
