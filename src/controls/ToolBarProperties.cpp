#include "controls/ToolBarProperties.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "text/Numbers.h"

namespace controls {

namespace {

constexpr int kMaxShort = std::numeric_limits<std::int16_t>::max();  // the integers are 16-bit ones

int ReadInt(const PropertyMap& map, const std::string& key, int fallback, int low, int high) {
    const auto found = map.find(key);
    if (found == map.end()) return fallback;
    const char* const last = found->second.data() + found->second.size();
    int value = 0;
    const auto [end, error] = std::from_chars(found->second.data(), last, value);
    const bool whole = error == std::errc() && end == last;
    return whole && value >= low && value <= high ? value : fallback;
}

bool ReadBool(const PropertyMap& map, const std::string& key, bool fallback) {
    const auto found = map.find(key);
    return found == map.end() ? fallback : text::ToBool(found->second).value_or(fallback);
}

std::string BoolText(bool value) {
    return value ? "True" : "False";
}

constexpr int kNoColor = -1;
constexpr int kLastColor = 0xFFFFFF;

ToolBarSlot ReadSlot(const PropertyMap& map, const std::string& number) {
    ToolBarSlot slot;
    slot.image = ReadInt(map, "Images" + number, slot.image, -1, kMaxShort);
    slot.mask =
        static_cast<platform::Color>(ReadInt(map, "Masks" + number, static_cast<int>(kToolBarMask), 0, kLastColor));
    slot.separator = ReadBool(map, "Seperators" + number, false);
    slot.checkBox = ReadBool(map, "Checkboxs" + number, false);
    return slot;
}

}  // namespace

ToolBarProperties ToolBarProperties::Read(const PropertyMap& map) {
    ToolBarProperties result;
    const int color = ReadInt(map, "BackColor", kNoColor, 0, kLastColor);
    if (color != kNoColor) result.backColor = static_cast<platform::Color>(color);
    result.leftIndent = ReadInt(map, "LeftIndent", result.leftIndent, 0, kMaxShort);
    result.transparency = ReadBool(map, "Transparency", result.transparency);
    result.horizontal = ReadBool(map, "Horizontal", result.horizontal);
    result.size24 = ReadBool(map, "Size24", result.size24);
    const int count = ReadInt(map, "ImageCount", 0, 0, kMaxShort);
    for (int i = 0; i < count; ++i) result.slots.push_back(ReadSlot(map, std::to_string(i)));
    result.currentImage = result.ClampSlot(ReadInt(map, "CurrentImage", 0, 0, kMaxShort));
    return result;
}

void ToolBarProperties::Write(PropertyMap& map) const {
    // The button-face colour is not written as a number: another desktop may have another one.
    if (backColor) map["BackColor"] = std::to_string(*backColor);
    map["LeftIndent"] = std::to_string(leftIndent);
    map["Transparency"] = BoolText(transparency);
    map["Horizontal"] = BoolText(horizontal);
    map["Size24"] = BoolText(size24);
    map["ImageCount"] = std::to_string(slots.size());
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const std::string number = std::to_string(i);
        map["Images" + number] = std::to_string(slots[i].image);
        map["Masks" + number] = std::to_string(slots[i].mask);
        map["Seperators" + number] = BoolText(slots[i].separator);
        map["Checkboxs" + number] = BoolText(slots[i].checkBox);
    }
    map["CurrentImage"] = std::to_string(currentImage);
}

ToolBarLayout ToolBarProperties::Layout() const {
    ToolBarLayout layout;
    layout.leftIndent = leftIndent;
    layout.horizontal = horizontal;
    layout.size24 = size24;
    for (const ToolBarSlot& slot : slots) layout.separators.push_back(slot.separator);
    return layout;
}

int ToolBarProperties::ClampSlot(int index) const {
    return std::clamp(index, 0, std::max(0, static_cast<int>(slots.size()) - 1));
}

}  // namespace controls
