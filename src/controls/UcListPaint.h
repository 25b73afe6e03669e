// Draws a list, through platform::Canvas only, and only what needs painting.
#pragma once

#include <string_view>

#include "controls/UcListView.h"

namespace controls {

class UcListPaint {
public:
    UcListPaint(platform::Canvas& canvas, const UcListView& view, const UcListDrawIcon& drawIcon)
        : canvas_(canvas), view_(view), drawIcon_(drawIcon) {}

    void pvHeaderDraw();
    void pvListDraw();
    void pvScrollbarDraw();

private:
    void pvHeaderCellDraw(int column);
    void pvSortMarkDraw(const platform::Rect& cell, bool ascending, platform::Color color);
    void pvItemDraw(int slot);
    platform::Color pvGround(bool selected) const;
    platform::Color pvFrameColor() const;
    void pvCellDraw(int slot, int column, bool selected);
    void pvBarDraw(const UcListBar& bar, int firstZone, int firstArrow);
    void pvButtonDraw(const platform::Rect& area, bool pressed, platform::Color color);
    void pvArrowDraw(platform::Rect area, int direction, bool pressed);
    void pvDrawFilledRect(const platform::Rect& area, platform::Color color);
    void pvDrawLine(platform::Point from, platform::Point to, platform::Color color);

    platform::Canvas& canvas_;
    const UcListView& view_;
    const UcListDrawIcon& drawIcon_;
};

}  // namespace controls
