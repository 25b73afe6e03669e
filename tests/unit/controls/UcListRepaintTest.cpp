// A list that paints only what changed shows what it would show if it painted everything.
#include <algorithm>
#include <optional>
#include <random>

#include "UcListFixture.h"

using namespace controls;
using namespace platform;
using test::ListFixture;

namespace {

// A user, a host and a desktop that do anything, by chance.
struct Chance : ListFixture {
    int Any(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    Color AnyColor() {
        constexpr Color kColors[] = {0xFFFFFF, 0, 0x123456, 0x00FF00, 0x800000};
        return kColors[Any(5)];
    }
    int AnyRow() { return Any(list.ListCount() + 2) - 1; }
    Point AnyPoint() { return {Any(500), Any(250)}; }

    void ChangeRows() {
        switch (Any(5)) {
            case 0:
                list.AddItem(test::ProcessRow(Any(40), std::to_string(Any(3))));
                break;
            case 1:
                list.RemoveItem(AnyRow());
                break;
            case 2:
                list.SetList(AnyRow(), Any(8) - 1, std::to_string(Any(3)));
                break;
            case 3:
                list.SortCol(Any(8) - 1, Any(2) == 0);
                list.ReDraw();
                break;
            default:
                if (Any(5) != 0) break;
                list.Clear();
                for (int rows = Any(60); rows > 0; --rows) list.AddItem(test::ProcessRow(rows));
        }
    }
    void Select() {
        list.SelectItem(AnyRow(), Any(2) == 0);
        list.ReDraw();
    }
    void Scroll() {
        if (Any(2) == 0) list.SetTopIndex(AnyRow());
        sim::wheel(list, AnyPoint(), Any(3) - 1);
    }
    void Recolor() {
        using List = UcList1;
        constexpr void (List::*kSetters[])(Color) = {&List::SetBackColor,      &List::SetHighlightColor,
                                                     &List::SetScrollBarColor, &List::SetHighlightTextColor,
                                                     &List::SetListTextColor,  &List::SetHeaderBackColor,
                                                     &List::SetHeaderTextColor};
        (list.*kSetters[Any(7)])(AnyColor());
        if (Any(8) == 0) sim::setHighContrast(Any(2) == 0);
        if (Any(4) == 0) sim::setSystemColor(static_cast<SysColor>(Any(8)), AnyColor());
    }
    void Restyle() {
        list.SetHeaderDrawStyle(Any(8));
        list.SetScrollbarDrawStyle(Any(8));
        list.SetHeaderHeight(Any(3) == 0 ? Any(12) : 20);
    }
    void ChangeColumns() {
        list.SetColumnIndex(Any(7));
        list.SetHeaderWidth(Any(200));
        list.SetListTextAlign(Any(3));
        list.SetListTextBold(Any(2) == 0);
        list.SetHeaderTextAlign(Any(3));
        list.SetHeaderCaption(std::to_string(Any(9)));
    }
    void Resize() { list.setBounds(Rect::fromSize({5, 5}, {Any(500), Any(250)})); }
    void UseMouse() {
        if (Any(2) == 0) {
            sim::setPointer(list, AnyPoint());
        } else if (std::exchange(held, !held)) {
            sim::mouseUp(list, AnyPoint());
        } else {
            sim::mouseDown(list, AnyPoint());
        }
    }
    void UseKeys() {
        constexpr std::uint16_t kCodes[] = {key::kUp,   key::kDown, key::kPageDown, key::kHome, key::kEnd,
                                            key::kLeft, 'A',        key::kRight,    key::kSpace};
        sim::pressKey(kCodes[Any(9)], {Any(4) == 0, Any(4) == 0, false});
    }
    void MoveFocus() { Any(2) == 0 ? list.focus() : form.focus(); }
    // As a refill is; something else may have the list paint meanwhile.
    void Refill() {
        list.SetLocked(true);
        for (int changes = Any(6); changes > 0; --changes) Step();
        list.invalidate(Rect::fromSize(AnyPoint(), {Any(500), Any(100)}));
        sim::paint(list);
        list.SetLocked(false);
    }
    void Step() {
        constexpr void (Chance::*kSteps[])() = {&Chance::ChangeRows,    &Chance::ChangeRows, &Chance::Select,
                                                &Chance::Scroll,        &Chance::Recolor,    &Chance::Restyle,
                                                &Chance::ChangeColumns, &Chance::Resize,     &Chance::UseMouse,
                                                &Chance::UseKeys,       &Chance::MoveFocus};
        (this->*kSteps[Any(11)])();
    }

    // The first pixel in which a full repaint differs from what is shown; nullopt for none.
    std::optional<Point> StalePixel() {
        const std::vector<Color> shown = sim::pixels(list);
        sim::paint(list, true);
        const std::vector<Color> right = sim::pixels(list);
        const auto stale = std::ranges::mismatch(shown, right).in1 - shown.begin();
        if (stale == std::ssize(shown)) return std::nullopt;
        const int width = list.clientSize().width;
        return Point{static_cast<int>(stale) % width, static_cast<int>(stale) / width};
    }

    bool held = false;  // the left button
    std::mt19937 random{20};
};

}  // namespace

TEST_CASE_FIXTURE(Chance, "an incremental repaint equals a full repaint") {
    list.DrawIcon = [this](Canvas& canvas, Point at, int row) {
        canvas.icon(at, list.CellText(row, 6).size(), 16);
    };
    list.ReDraw();
    constexpr Point kNone{-1, -1};
    for (int step = 0; step < 400; ++step) {
        CAPTURE(step);
        Any(5) == 0 ? Refill() : Step();
        sim::run(10);  // what waits to be painted
        const Point stale = StalePixel().value_or(kNone);
        CAPTURE(stale.x);
        CAPTURE(stale.y);
        REQUIRE(stale == kNone);
    }
}
