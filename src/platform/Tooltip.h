// The balloon that explains what the pointer rests on.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Handle.h"

namespace platform {

class Window;

struct TooltipTag {
    static void close(std::uintptr_t raw) noexcept;  // DestroyWindow
};
using TooltipHandle = Handle<TooltipTag>;

// A balloon without anything to explain yet, above all windows; empty on failure. CreateWindowExA, class
// "tooltips_class32", TTS_ALWAYSTIP, TTS_NOPREFIX, TTS_BALLOON.
TooltipHandle createTooltip();
// From now on the balloon itself watches the pointer over `target` and shows `text` (lines end in CR LF). False on
// failure. TTM_ADDTOOL, TTF_IDISHWND, TTF_SUBCLASS.
bool addTool(const TooltipHandle& tooltip, const Window& target, const std::string& text);
// The line above the text, with the information icon; at most 99 characters are shown. TTM_SETTITLE.
void setTooltipTitle(const TooltipHandle& tooltip, const std::string& title);
// Milliseconds until the balloon goes by itself, and of rest before it comes. TTM_SETDELAYTIME.
void setTooltipDelays(const TooltipHandle& tooltip, int autoPop, int initial);

}  // namespace platform
