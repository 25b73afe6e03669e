// Column widths and splitter position, remembered apart for the normal and the maximised window.
#pragma once

#include <string>

#include "settings/Settings.h"

namespace app {

struct ListLayout {
    std::string fileWidths;  // "134,82,": decimal widths each followed by a comma; empty for the built-in ones
    std::string favoriteWidths;
    int splitter = 0;  // right edge of the process list, client pixels
};

class LayoutMemory {
public:
    // Reads both sets; what is missing of the maximised one is that of the normal one.
    void Load(const settings::Settings& settings);
    // Once the normal widths are known as they really are (the lists know their built-in ones): gives them to the
    // maximised set where it has none.
    void CompleteMaximized();
    // Both sets as at a first start.
    void Reset();
    void Save(settings::Settings& settings) const;

    ListLayout& For(bool maximized) { return maximized ? maximized_ : normal_; }

private:
    ListLayout normal_;
    ListLayout maximized_;
};

}  // namespace app
