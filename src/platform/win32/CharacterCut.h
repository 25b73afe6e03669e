// Cutting text to the fixed fields of the system's records.
#pragma once

#include <cstddef>
#include <string>

namespace platform {

// At most the first `maxBytes` bytes of `text`, no character cut in two (but invalid text may be cut anywhere).
std::string cutAtCharacter(const std::string& text, std::size_t maxBytes);

}  // namespace platform
