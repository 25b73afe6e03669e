// The icons shown in the process list, kept by image path so that each program is asked for its icon once.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/Picture.h"

namespace app {

class ProcessIcons {
public:
    explicit ProcessIcons(int defaultIconResource);

    // The 16-pixel icon of the program, or the default program icon when it has none; never 0. Stays valid
    // until DropUnused finds it unused. A program that seems to have none is asked again in the next two passes:
    // just started, it may not be readable yet. Stands on platform::extractIcon.
    std::uintptr_t IconOf(const std::string& imagePath);
    // Ends a pass over all processes: once many programs have gathered, icons that no call since the previous
    // DropUnused asked for are released, so that weeks of short-lived programs do not use the handles up.
    void DropUnused();
    // Releases all of them.
    void Clear();

private:
    struct Entry {
        platform::IconHandle icon;
        int tries = 0;
        int lastTry = 0;  // number of the pass
        bool used = true;
    };
    std::map<std::string, Entry> icons_;
    int pass_ = 1;
    platform::IconHandle default_;
};

}  // namespace app
