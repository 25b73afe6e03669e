// Text in the process's ANSI code page (UTF-8 where the manifest can make it so).
#pragma once

#include <string>
#include <string_view>

namespace platform {

// True when every byte belongs to a character of the code page. MultiByteToWideChar.
bool isValidText(std::string_view text);
// Lower-case and upper-case form by the rules of the code page; invalid bytes stay. CharLowerBuffA, CharUpperBuffA.
std::string lowerCase(std::string_view text);
std::string upperCase(std::string_view text);

}  // namespace platform
