#include "controls/MsgBoxLayout.h"

#include <algorithm>
#include <utility>

#include "platform/Canvas.h"

namespace controls {

using platform::Font;
using platform::Rect;
using platform::Size;

namespace {

// A box is this wide; with it the buttons stand at 1245, 2265 and 3330 twips (15 a pixel) and are centred. Only a
// text that would make a tower of it makes the box wider and moves them along.
constexpr int kWidth = 380;
constexpr int kYesLeft = 1245 / 15;
constexpr int kOkLeft = 2265 / 15;
constexpr int kNoLeft = 3330 / 15;
constexpr Size kButton{75, 23};

constexpr int kMargin = 16;
constexpr int kIconSize = 32;
constexpr int kTextLeft = kMargin + kIconSize + kMargin;
constexpr int kAboveButtons = 18;
constexpr int kBelowButtons = 14;
// Widths tried in turn until the text is no higher than it is wide.
constexpr int kWidths[] = {kWidth, 480, 600};

// True when a character may begin at this byte: in UTF-8 text the bytes 10xxxxxx continue one.
bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

// More bytes than this need no measuring, which takes its time for a text of thousands: a character has at most
// four bytes and, in any font for reading, at least a pixel.
std::size_t MostBytes(int width) {
    return static_cast<std::size_t>(std::max(1, width)) * 4;
}

bool Fits(std::string_view text, int width) {
    return text.size() <= MostBytes(width) && platform::textSize(text, Font::Normal).width <= width;
}

// Length of the longest beginning of `word` that fits: at least one character.
std::size_t FittingLength(std::string_view word, int width) {
    std::size_t fits = 0;
    std::size_t tooLong = std::min(word.size(), MostBytes(width)) + 1;
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (Fits(word.substr(0, middle), width) ? fits : tooLong) = middle;
    }
    while (fits > 1 && fits < word.size() && !BeginsCharacter(word[fits])) --fits;
    std::size_t first = 1;
    while (first < word.size() && !BeginsCharacter(word[first])) ++first;
    return std::max(fits, first);
}

// The line with `more` behind it, unless that is too wide.
bool Extend(std::string& line, std::string_view more, int width) {
    if (more.size() > MostBytes(width)) return false;
    const std::size_t before = line.size();
    line += more;
    const bool fits = Fits(line, width);
    if (!fits) line.resize(before);
    return fits;
}

void WrapParagraph(std::string_view text, int width, std::size_t most, std::vector<std::string>& lines) {
    std::string line;
    do {
        if (lines.size() == most) return;
        // A word comes with the blanks before it, so that those inside a line stay as they are.
        const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        if (Extend(line, text.substr(0, end), width)) {
            text.remove_prefix(end);
        } else if (!line.empty()) {
            lines.push_back(std::exchange(line, {}));
            text.remove_prefix(begin);
            if (text.empty()) return;
        } else {
            const std::size_t part = FittingLength(text.substr(0, end), width);
            lines.emplace_back(text.substr(0, part));
            text.remove_prefix(part);
            if (text.empty()) return;
        }
    } while (!text.empty());
    if (lines.size() < most) lines.push_back(line);
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, int width, std::size_t most) {
    std::vector<std::string> lines;
    while (lines.size() < most) {
        const std::size_t end = text.find('\n');
        std::string_view paragraph = text.substr(0, end);
        if (!paragraph.empty() && paragraph.back() == '\r') paragraph.remove_suffix(1);
        WrapParagraph(paragraph, width, most, lines);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

Rect MsgBoxLayout::Line(int index) const {
    // A text lower than the icon stands at the icon's middle.
    const int height = static_cast<int>(lines.size()) * lineHeight;
    const int top = kMargin + std::max(0, (kIconSize - height) / 2) + index * lineHeight;
    return {kTextLeft, top, client.width - kMargin, top + lineHeight};
}

MsgBoxLayout MsgBoxLayout::For(std::string_view text, bool question, Size limit) {
    MsgBoxLayout layout;
    layout.lineHeight = std::max(1, platform::textSize("Ag", Font::Normal).height);
    constexpr int kBesideText = kMargin + kAboveButtons + kButton.height + kBelowButtons;
    const auto room = static_cast<std::size_t>(std::max(1, (limit.height - kBesideText) / layout.lineHeight));
    for (const int width : kWidths) {
        if (width > limit.width && width > kWidth) break;
        layout.client.width = width;
        const int textWidth = width - kTextLeft - kMargin;
        layout.lines = WrapText(text, textWidth, room + 1);  // the one too many tells that there is more
        const bool whole = layout.lines.size() <= room;
        if (whole && static_cast<int>(layout.lines.size()) * layout.lineHeight <= textWidth) break;
    }
    if (layout.lines.size() > room) {
        layout.lines.resize(room);
        layout.lines.back() = "...";
    }
    const int textHeight = static_cast<int>(layout.lines.size()) * layout.lineHeight;
    const int content = kMargin + std::max(kIconSize, textHeight);
    layout.icon = Rect::fromSize({kMargin, kMargin}, {kIconSize, kIconSize});
    layout.PlaceButtons(question, content + kAboveButtons);
    layout.client.height = content + kAboveButtons + kButton.height + kBelowButtons;
    return layout;
}

void MsgBoxLayout::PlaceButtons(bool question, int top) {
    const int shift = (client.width - kWidth) / 2;
    okNo = Rect::fromSize({(question ? kNoLeft : kOkLeft) + shift, top}, kButton);
    if (question) yes = Rect::fromSize({kYesLeft + shift, top}, kButton);
}

}  // namespace controls
