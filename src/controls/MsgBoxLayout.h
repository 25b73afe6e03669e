// The message box measured: its text broken into lines, and where everything is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace controls {

// The text in lines of at most `width` pixels: broken at line ends (CR LF or LF) and blanks, and inside a word
// only when the word alone is too wide (a path). At least one line; no line is wider than `width` unless a
// single character is. Ends after `most` lines: a text of any length costs no more than what is shown of it.
std::vector<std::string> WrapText(std::string_view text, int width, std::size_t most = SIZE_MAX);

// Client pixels of the box.
struct MsgBoxLayout {
    std::vector<std::string> lines;
    int lineHeight = 0;
    platform::Size client;
    platform::Rect icon;
    platform::Rect yes;   // empty when the box has one button
    platform::Rect okNo;  // "OK" or "No"

    platform::Rect Line(int index) const;  // where text line `index` goes

    // Fits the text into a box of at most `limit` client pixels. What does not fit below is left out, with
    // "..." as the last line.
    static MsgBoxLayout For(std::string_view text, bool question, platform::Size limit);

private:
    void PlaceButtons(bool question, int top);
};

}  // namespace controls
