#include "favorites/Favorite.h"

#include "text/Case.h"
#include "text/Split.h"

namespace favorites {

std::string IdentityOf(std::string_view path) {
    return text::Lower(text::Trim(path));
}

}  // namespace favorites
