#include "text/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "text/Case.h"
#include "text/Split.h"

namespace text {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// How much of `text` is a number, and its digits without the group separators.
struct Scan {
    std::size_t length = 0;  // 0: no number
    std::string plain;
};

// Reads the digits from `at` on (with groups when `grouped`) into `plain`; how many digits there were.
std::size_t TakeDigits(std::string_view text, std::size_t& at, std::string& plain, bool grouped) {
    std::size_t digits = 0;
    while (at < text.size()) {
        if (IsDigit(text[at])) {
            plain += text[at];
            ++digits;
        } else if (!(grouped && digits > 0 && text[at] == ',')) {
            break;
        }
        ++at;
    }
    return digits;
}

Scan ScanNumber(std::string_view text, bool grouped) {
    Scan scan;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        if (text[at] == '-') scan.plain += '-';
        ++at;
    }
    std::size_t digits = TakeDigits(text, at, scan.plain, grouped);
    if (at < text.size() && text[at] == '.') {
        std::size_t afterPoint = at + 1;
        scan.plain += '.';
        digits += TakeDigits(text, afterPoint, scan.plain, false);
        at = afterPoint;
    }
    if (digits == 0) return {};
    scan.length = at;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::string exponent = "e";
        std::size_t end = at + 1;
        if (end < text.size() && (text[end] == '-' || text[end] == '+')) {
            if (text[end] == '-') exponent += '-';
            ++end;
        }
        if (TakeDigits(text, end, exponent, false) > 0) {
            scan.plain += exponent;
            scan.length = end;
        }
    }
    return scan;
}

// Beyond what a double holds: infinity or 0. The C locale stays in force all the time, so "." is the point.
double ToDouble(const std::string& plain) {
    return std::strtod(plain.c_str(), nullptr);
}

template <class Integer>
Integer RoundedWithin(double value) {
    const double rounded = std::nearbyint(value);  // half to even, the default rounding mode
    if (rounded <= std::numeric_limits<Integer>::min()) return std::numeric_limits<Integer>::min();
    if (rounded >= std::numeric_limits<Integer>::max()) return std::numeric_limits<Integer>::max();
    return static_cast<Integer>(rounded);
}

}  // namespace

bool IsNumeric(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    return !trimmed.empty() && ScanNumber(trimmed, true).length == trimmed.size();
}

std::int32_t ToInt32(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const Scan scan = ScanNumber(trimmed, true);
    if (scan.length == 0 || scan.length != trimmed.size()) return 0;
    return RoundedWithin<std::int32_t>(ToDouble(scan.plain));
}

std::int16_t LeadingNumber(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    const Scan scan = ScanNumber(text, false);
    return scan.length == 0 ? std::int16_t{0} : RoundedWithin<std::int16_t>(ToDouble(scan.plain));
}

std::optional<std::int16_t> WholeNumber(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    const Scan scan = ScanNumber(trimmed, true);
    if (scan.length == 0 || scan.length != trimmed.size()) return std::nullopt;
    const double value = std::nearbyint(ToDouble(scan.plain));
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(value);
}

std::optional<bool> ToBool(std::string_view text) {
    const std::string word = Lower(Trim(text));
    if (word == "true") return true;
    if (word == "false") return false;
    const Scan scan = ScanNumber(word, true);
    if (scan.length == 0 || scan.length != word.size()) return std::nullopt;
    return ToDouble(scan.plain) != 0;
}

std::string Decimal(std::int64_t value) {
    std::string text;
    AppendDecimal(text, value);
    return text;
}

void AppendDecimal(std::string& text, std::int64_t value) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(digits, end);
}

std::string TwoDigits(double value) {
    if (!(value > 0)) return "00";
    const auto rounded = static_cast<std::int64_t>(std::llround(std::fmin(value, 1e15)));
    return (rounded < 10 ? "0" : "") + Decimal(rounded);
}

std::string Grouped(std::uint64_t value) {
    if (value == 0) return {};
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    std::string text;
    for (const char* at = digits; at != end; ++at) {
        if (at != digits && (end - at) % 3 == 0) text += ',';
        text += *at;
    }
    return text;
}

}  // namespace text
