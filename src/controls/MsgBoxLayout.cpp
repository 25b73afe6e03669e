#include "controls/MsgBoxLayout.h"

#include <algorithm>
#include <utility>

#include "platform/Canvas.h"

namespace controls {

using platform::Font;
using platform::Rect;
using platform::Size;

namespace {

// A box with a short text is this wide; with it the buttons stand at 1245, 2265 and 3330 twips (15 a pixel) and
// are centred. A longer text makes the box wider and moves them along.
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
// Widths tried in turn until the text is at most half as high as it is wide.
constexpr int kWidths[] = {kWidth, 480, 600};

// True when a character may begin at this byte: in UTF-8 text the bytes 10xxxxxx continue one.
bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

int Width(std::string_view text) {
    return platform::textSize(text, Font::Normal).width;
}

// Length of the longest beginning of `word` that fits: at least one character.
std::size_t FittingLength(std::string_view word, int width) {
    std::size_t fits = 0;
    std::size_t tooLong = word.size() + 1;
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (Width(word.substr(0, middle)) <= width ? fits : tooLong) = middle;
    }
    while (fits > 1 && fits < word.size() && !BeginsCharacter(word[fits])) --fits;
    std::size_t first = 1;
    while (first < word.size() && !BeginsCharacter(word[first])) ++first;
    return std::max(fits, first);
}

void WrapParagraph(std::string_view text, int width, std::vector<std::string>& lines) {
    std::string line;
    do {
        // A word comes with the blanks before it, so that those inside a line stay as they are.
        const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        if (Width(line + std::string(text.substr(0, end))) <= width) {
            line += text.substr(0, end);
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
    lines.push_back(line);
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, int width) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        std::string_view paragraph = text.substr(0, end);
        if (!paragraph.empty() && paragraph.back() == '\r') paragraph.remove_suffix(1);
        WrapParagraph(paragraph, width, lines);
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
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
    for (const int width : kWidths) {
        if (width > limit.width && width > kWidth) break;
        layout.client.width = width;
        const int textWidth = width - kTextLeft - kMargin;
        layout.lines = WrapText(text, textWidth);
        if (static_cast<int>(layout.lines.size()) * layout.lineHeight <= textWidth / 2) break;
    }
    constexpr int kBesideText = kMargin + kAboveButtons + kButton.height + kBelowButtons;
    const auto room = static_cast<std::size_t>(std::max(1, (limit.height - kBesideText) / layout.lineHeight));
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
