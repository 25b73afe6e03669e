#include "platform/CodePage.h"

#include <algorithm>
#include <climits>

#include "platform/win32/CharacterCut.h"
#include "platform/win32/Win32.h"

namespace platform {

namespace {

// Bytes of the longest character of any ANSI code page (UTF-8).
constexpr std::size_t kLongestCharacter = 4;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Maps valid text. LCMapStringA rather than CharLowerBuffA, which works in place: in UTF-8 the other case of a
// character may take fewer or more bytes. Text that cannot be mapped stays.
std::string mapValid(std::string_view text, DWORD mapping) {
    const int length = static_cast<int>(text.size());
    const DWORD flags = mapping | LOCALE_USE_CP_ACP;
    const int needed = LCMapStringA(LOCALE_USER_DEFAULT, flags, text.data(), length, nullptr, 0);
    if (needed <= 0) return std::string(text);
    std::string mapped(static_cast<std::size_t>(needed), '\0');
    const int got = LCMapStringA(LOCALE_USER_DEFAULT, flags, text.data(), length, mapped.data(), needed);
    if (got <= 0) return std::string(text);
    mapped.resize(static_cast<std::size_t>(got));
    return mapped;
}

// Bytes of the valid character at the start of `text`; 0 when its first byte belongs to none.
std::size_t characterLength(std::string_view text) {
    for (std::size_t length = 1; length <= std::min(kLongestCharacter, text.size()); ++length) {
        if (isValidText(text.substr(0, length))) return length;
    }
    return 0;
}

std::string mapCase(std::string_view text, DWORD mapping, char first, char last) {
    // Most text is ASCII, which is the same in every ANSI code page; it is mapped hundreds of times a second.
    if (isAscii(text)) {
        std::string mapped(text);
        for (char& c : mapped) {
            if (c >= first && c <= last) c = static_cast<char>(c ^ 0x20);
        }
        return mapped;
    }
    if (isValidText(text)) return mapValid(text, mapping);
    // Damaged text is rare and may be slow: character by character, so that invalid bytes stay as they are.
    std::string mapped;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) {
            mapped += text.front();
        } else {
            mapped += mapValid(text.substr(0, length), mapping);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return mapped;
}

}  // namespace

bool isValidText(std::string_view text) {
    if (text.empty()) return true;
    if (text.size() > INT_MAX) return false;
    return MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(text.size()), nullptr,
                               0) > 0;
}

std::string lowerCase(std::string_view text) {
    return mapCase(text, LCMAP_LOWERCASE, 'A', 'Z');
}

std::string upperCase(std::string_view text) {
    return mapCase(text, LCMAP_UPPERCASE, 'a', 'z');
}

std::string cutAtCharacter(const std::string& text, std::size_t maxBytes) {
    if (text.size() <= maxBytes) return text;
    for (std::size_t back = 0; back < kLongestCharacter && back <= maxBytes; ++back) {
        std::string cut = text.substr(0, maxBytes - back);
        if (isValidText(cut)) return cut;
    }
    return text.substr(0, maxBytes);
}

}  // namespace platform
