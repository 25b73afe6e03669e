// What another process holds of the system at a moment.
#pragma once

#include <cstddef>

#include "desktop/Driver.h"

namespace endurance {

struct Counts {
    int kernelHandles = -1;     // open ones, below a few thousand; -1 as all of these: not to be had
    int gdiObjects = -1;        // used entries of its table of them
    int windows = -1;           // top-level, message-only and child windows
    int privateKilobytes = -1;  // memory of its own
};

Counts CountsOf(const desktop::Process& process);

// The lesser of each: what is held for the moment of a tick only does not count.
Counts Least(const Counts& a, const Counts& b);

}  // namespace endurance
