// Text of the code page as the wide characters of Windows, and back.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// What is not valid in the code page, or not to be had in it, becomes its replacement character.
std::wstring wideText(std::string_view text);
std::string narrowText(std::wstring_view text);

}  // namespace platform
