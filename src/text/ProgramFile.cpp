#include "text/ProgramFile.h"

#include "text/Case.h"

namespace text {

bool IsProgramFile(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string extension = Lower(path.substr(dot));
    return extension == ".exe" || extension == ".scr";
}

}  // namespace text
