// Where the controls of the options dialog stand. All pages have the same two columns, as wide as the widest of
// what stands in them, so that turning the pages moves nothing.
#include <algorithm>

#include "controls/DialogPlace.h"
#include "settings/FrmOptions.h"

namespace settings {

using platform::Rect;
using platform::Size;

namespace {

constexpr int kMargin = 10;        // of the dialog
constexpr int kPad = 12;           // from the frame of a page to what is on it
constexpr int kGap = 7;            // between neighbours
constexpr int kColumnGap = 24;     // between the columns
constexpr int kLabelGap = 8;       // between a label and what it belongs to
constexpr int kRowGap = 6;         // between rows
constexpr int kFootGap = 8;        // more, above the buttons of a page
constexpr int kRows = 5;           // of a page
constexpr int kListMargin = 4;     // more than a list needs, so that it is easily hit
constexpr int kSliderWidth = 100;  // at least
constexpr int kButtonWidth = 96;   // at least

bool HasLabel(const OptionInfo& info) {
    return info.kind == OptionKind::List || info.kind == OptionKind::Slider;
}

}  // namespace

int FrmOptions::Columns::Right() const {
    return label + kLabelGap + value;
}

// Places everything; gives the size of the whole dialog.
Size FrmOptions::LayOut() {
    const Columns columns = Measure();
    for (const OptionInfo& info : OptionTable()) {
        if (info.page != OptionPage::Below) PlaceOnPage(info, columns);
    }
    const int height = kRows * columns.row + (kRows - 1) * kRowGap + kFootGap;
    const Size client = PlaceAround({columns.left + kColumnGap + columns.Right() + 2 * kPad, height + 2 * kPad});
    const Size frame = controls::FrameOf(*this);
    return {client.width + frame.width, client.height + frame.height};
}

FrmOptions::Columns FrmOptions::Measure() {
    Columns columns;
    int single = 0;  // the widest that stands in the second column without a label
    for (const OptionInfo& info : OptionTable()) {
        if (info.page == OptionPage::Below) continue;
        const Size size = PreferredSize(info.option);
        columns.row = std::max(columns.row, size.height);
        if (info.column == 0) {
            columns.left = std::max(columns.left, size.width);
        } else if (HasLabel(info)) {
            const int words = platform::textSize(info.caption, platform::Font::Normal).width;
            columns.label = std::max(columns.label, words);
            columns.value = std::max(columns.value, size.width);
        } else {
            single = std::max(single, size.width);
        }
    }
    columns.value += std::max(0, single - columns.Right());
    return columns;
}

// All push buttons are as wide as the widest.
int FrmOptions::ButtonWidth() const {
    int width = kButtonWidth;
    for (const Item& item : items_) {
        if (const auto* button = std::get_if<Button>(&item.control)) {
            width = std::max(width, button->PreferredSize().width);
        }
    }
    return width;
}

Size FrmOptions::PreferredSize(Option option) {
    auto& control = At(option).control;
    if (const auto* check = std::get_if<Check>(&control)) return check->PreferredSize();
    if (const auto* button = std::get_if<Button>(&control)) {
        return {ButtonWidth(), button->PreferredSize().height};
    }
    const Size words = platform::textSize("Xg", platform::Font::Normal);
    if (const auto* list = std::get_if<List>(&control)) {
        const Size size = list->PreferredSize();
        return {size.width, size.height + kListMargin};
    }
    return {kSliderWidth, words.height + kListMargin};
}

void FrmOptions::PlaceOnPage(const OptionInfo& info, const Columns& columns) {
    const int foot = info.kind == OptionKind::Button ? kFootGap : 0;
    const int top = kPad + info.row * (columns.row + kRowGap) + foot;
    const Size size = PreferredSize(info.option);
    const auto inRow = [&](int left, Size what) {
        return Rect::fromSize({left, top + (columns.row - what.height) / 2}, what);
    };
    const int left = info.column == 0 ? kPad : kPad + columns.left + kColumnGap;
    if (!HasLabel(info)) {
        ControlOf(info.option).setBounds(inRow(left, size));
        return;
    }
    const int height = platform::textSize("Xg", platform::Font::Normal).height;
    At(info.option).label.setBounds(inRow(left, {columns.label, height}));
    ControlOf(info.option).setBounds(inRow(left + columns.label + kLabelGap, {columns.value, size.height}));
}

// The page buttons share the width of the pages, which follow below; then comes a line with what belongs to the
// dialog as a whole. Gives the client size of the dialog.
Size FrmOptions::PlaceAround(Size page) {
    const Size maker = lblMaker_.PreferredSize();
    const Size help = PreferredSize(Option::CmdHelp);
    const Size exit = PreferredSize(Option::CmdExit);
    int button = 0;
    for (const OptionsPageButton& each : cmdFrame_) button = std::max(button, each.PreferredSize().width);
    const int least =
        std::max(kOptionPages * (button + kGap) - kGap, maker.width + kColumnGap + help.width + kGap + exit.width);
    page.width = std::max(page.width, least);

    const int buttonHeight = cmdFrame_[0].PreferredSize().height;
    for (int i = 0; i < kOptionPages; ++i) {
        const int left = kMargin + i * (page.width + kGap) / kOptionPages;
        const int right = kMargin + (i + 1) * (page.width + kGap) / kOptionPages - kGap;
        cmdFrame_[static_cast<std::size_t>(i)].setBounds({left, kMargin, right, kMargin + buttonHeight});
    }
    const Rect pages = Rect::fromSize({kMargin, kMargin + buttonHeight + kGap}, page);
    for (OptionsPage& each : framez_) each.setBounds(pages);

    const int top = pages.bottom + kMargin;
    ControlOf(Option::CmdExit).setBounds(Rect::fromSize({pages.right - exit.width, top}, exit));
    ControlOf(Option::CmdHelp).setBounds(Rect::fromSize({pages.right - exit.width - kGap - help.width, top}, help));
    lblMaker_.setBounds(Rect::fromSize({kMargin, top + (exit.height - maker.height) / 2}, maker));
    return {pages.right + kMargin, top + exit.height + kMargin};
}

}  // namespace settings
