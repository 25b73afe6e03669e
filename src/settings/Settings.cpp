#include "settings/Settings.h"

#include "platform/Store.h"
#include "text/Numbers.h"

namespace settings {

namespace {

constexpr char kGraphTop[] = "GraphTop";
constexpr char kGraphLeft[] = "GraphLeft";

std::string PositionKey(const std::string& name) {
    return name + "_Pos";
}

}  // namespace

std::int16_t Settings::Number(Key key) const {
    const std::string text = Text(key);
    const KeyInfo& info = InfoOf(key);
    if (info.type != KeyType::Int) return text::LeadingNumber(text);
    // One damaged value must not keep the program from starting.
    return text::WholeNumber(text).value_or(text::LeadingNumber(info.fallback));
}

bool Settings::Bool(Key key) const {
    return text::ToBool(Text(key)).value_or(text::ToBool(InfoOf(key).fallback).value_or(false));
}

std::string Settings::Text(Key key) const {
    const KeyInfo& info = InfoOf(key);
    if (auto value = platform::storeRead(kSection, info.name)) return *std::move(value);
    if (info.fallbackKey == Key::Count) return info.fallback;
    // A damaged number is handed on as the number it reads as.
    if (InfoOf(info.fallbackKey).type == KeyType::Number) return text::Decimal(Number(info.fallbackKey));
    return Text(info.fallbackKey);
}

bool Settings::WriteNumber(Key key, int value) {
    return WriteText(key, text::Decimal(value));
}

bool Settings::WriteBool(Key key, bool value) {
    return WriteText(key, value ? "True" : "False");
}

bool Settings::WriteText(Key key, const std::string& value) {
    return platform::storeWrite(kSection, InfoOf(key).name, value);
}

std::optional<std::int16_t> Settings::GraphTop(int slot) const {
    return GraphValue(kGraphTop, slot);
}

std::optional<std::int16_t> Settings::GraphLeft(int slot) const {
    return GraphValue(kGraphLeft, slot);
}

bool Settings::WriteGraphPlace(int slot, int top, int left) {
    const std::string number = text::Decimal(slot);
    const bool topWritten = platform::storeWrite(kSection, kGraphTop + number, text::Decimal(top));
    return platform::storeWrite(kSection, kGraphLeft + number, text::Decimal(left)) && topWritten;
}

void Settings::ForgetGraphPlaces() {
    for (int slot = 1; slot <= kGraphSlots; ++slot) {
        const std::string number = text::Decimal(slot);
        platform::storeDeleteValue(kSection, kGraphTop + number);
        platform::storeDeleteValue(kSection, kGraphLeft + number);
    }
}

std::string Settings::Position(const std::string& name) const {
    return platform::storeRead(kSection, PositionKey(name)).value_or("");
}

bool Settings::WritePosition(const std::string& name, const std::string& position) {
    return platform::storeWrite(kSection, PositionKey(name), position);
}

bool Settings::DeleteSection() {
    return platform::storeDelete(kSection);
}

std::optional<std::int16_t> Settings::GraphValue(const char* key, int slot) const {
    const auto text = platform::storeRead(kSection, key + text::Decimal(slot));
    if (!text) return std::nullopt;
    return text::LeadingNumber(*text);
}

}  // namespace settings
