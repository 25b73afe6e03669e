// The program's settings: typed reading and writing of the keys in SettingKeys.h. Nothing is kept in memory:
// each call reads or writes the store (storeRead, storeWrite), so what is written is safe at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "settings/SettingKeys.h"

namespace settings {

// CPU graph windows that can be open at once, each in a slot of its own: 1..kGraphSlots.
inline constexpr int kGraphSlots = 16;

class Settings {
public:
    // A Number or Int key. A damaged Number reads as 0, a damaged Int as its default; both are held within
    // 16 bits.
    std::int16_t Number(Key key) const;
    // A Bool key; a damaged value reads as its default.
    bool Bool(Key key) const;
    // The text of any key, the default when it is missing. For SplitterMax without a value of its own this is
    // the number read for Splitter.
    std::string Text(Key key) const;

    // False when the store refuses.
    bool WriteNumber(Key key, int value);
    bool WriteBool(Key key, bool value);
    bool WriteText(Key key, const std::string& value);

    // Remembered place of the CPU graph window in slot `slot` (1..kGraphSlots), pixels; nullopt when none is
    // stored.
    std::optional<std::int16_t> GraphTop(int slot) const;
    std::optional<std::int16_t> GraphLeft(int slot) const;
    bool WriteGraphPlace(int slot, int top, int left);
    // Removes the places of all slots.
    void ForgetGraphPlaces();

    // "left,top,width,height" of the window called `name` (key: name + "_Pos"), "" when none is stored.
    std::string Position(const std::string& name) const;
    bool WritePosition(const std::string& name, const std::string& position);

    // Removes every key.
    bool DeleteSection();

private:
    std::optional<std::int16_t> GraphValue(const char* key, int slot) const;
};

}  // namespace settings
