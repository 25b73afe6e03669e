// Conversions between numbers and the texts in which they are stored and shown. Nothing here depends on the
// user's locale: "," groups digits and "." begins a fraction.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace text {

// True for a number as people write it: blanks around it, a sign, digits that may be grouped by ",", one ".",
// an exponent. Empty text is not a number.
bool IsNumeric(std::string_view text);
// The number that IsNumeric accepted, rounded half to even and held within 32 bits; 0 for any other text.
std::int32_t ToInt32(std::string_view text);

// The number at the start of the text (blanks skipped, no digit groups), rounded half to even; 0 without one.
// Held within 16 bits: a damaged setting must not become its opposite by wrapping.
std::int16_t LeadingNumber(std::string_view text);
// The whole text as a number within 16 bits, rounded half to even; nullopt for anything else.
std::optional<std::int16_t> WholeNumber(std::string_view text);
// "True" and "False" in any letter case, or a number (0 is false); nullopt for anything else.
std::optional<bool> ToBool(std::string_view text);

// Plain decimal.
std::string Decimal(std::int64_t value);
// Appends what Decimal gives, without another text in between.
void AppendDecimal(std::string& text, std::int64_t value);
// Rounded half away from zero, at least two digits: 5 gives "05", 100 "100", below zero "00".
std::string TwoDigits(double value);
// With "," between groups of three digits; 0 gives empty text.
std::string Grouped(std::uint64_t value);

}  // namespace text
