// Letter case, and the casing in which file names are shown.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace text {

// By the rules of the code page; bytes that are no characters stay. platform::lowerCase, platform::upperCase.
std::string Lower(std::string_view text);
std::string Upper(std::string_view text);

// The first `count` characters of the code page; bytes that are no characters count one each.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// The text behind the last "\", or the whole path when there is none.
std::string_view FileNameOf(std::string_view path);

// A file name as the process list shows it. All upper or all lower case: first letter upper, the rest lower.
// Mixed case: first letter upper, the last four characters (the extension) lower, the rest kept; a mixed-case
// name of less than five characters only gets its first letter upper-cased.
std::string ProcessDisplayName(std::string_view fileName);
// A file name as the favourites list shows it: as above, but mixed case is kept as it is.
std::string FavoriteDisplayName(std::string_view fileName);

}  // namespace text
