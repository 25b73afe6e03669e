#include "controls/UcListShown.h"

#include <utility>

namespace controls {

using platform::Rect;

namespace {

// Gathers what an area shows into one number (FNV-1a): equal looks give equal numbers, and 64 bits make it
// practically certain that different looks differ.
class Digest {
public:
    Digest& Add(std::string_view text) {
        for (const char c : text) Mix(static_cast<unsigned char>(c));
        return Mix(0x100U + text.size());
    }
    Digest& Add(int value) { return Mix(static_cast<std::uint32_t>(value)); }
    Digest& Add(std::uint32_t value) { return Mix(value); }
    Digest& Add(bool value) { return Mix(value ? 3U : 5U); }
    Digest& Add(const Rect& area) { return Add(area.left).Add(area.top).Add(area.right).Add(area.bottom); }
    // Never 0, which means "unknown".
    std::uint64_t Key() const { return value_ | 1U; }

private:
    Digest& Mix(std::uint64_t piece) {
        value_ = (value_ ^ piece) * 0x100000001B3ULL;
        return *this;
    }
    std::uint64_t value_ = 0xCBF29CE484222325ULL;
};

// What moves or recolours everything at once.
std::uint64_t FrameKey(const UcListView& view) {
    const UcListLayout& layout = view.layout;
    const UcListLook& look = view.look;
    Digest digest;
    digest.Add(layout.client.width).Add(layout.client.height).Add(layout.itemArea).Add(layout.drawnColumns);
    for (const Rect& column : layout.columns) digest.Add(column.left).Add(column.right);
    for (int i = 0; i < layout.drawnColumns; ++i) {
        const UcListColumn& column = view.model.Column(i);
        digest.Add(column.listTextAlign).Add(column.listTextBold).Add(column.listTextColor);
    }
    digest.Add(look.back).Add(look.text).Add(look.desktopText).Add(look.highlight).Add(look.highlightText);
    digest.Add(look.icons).Add(look.focused).Add(static_cast<int>(look.selection));
    return digest.Key();
}

std::uint64_t HeaderKey(const UcListView& view) {
    const UcListLook& look = view.look;
    Digest digest;
    digest.Add(look.headerBack).Add(look.headerText).Add(look.desktopHeaderText);
    digest.Add(look.headerDrawStyle).Add(look.pressedColumn);
    for (int i = 0; i < view.layout.drawnColumns; ++i) {
        const UcListColumn& column = view.model.Column(i);
        digest.Add(std::string_view(column.caption)).Add(column.headerTextAlign).Add(column.headerTextBold);
        digest.Add(column.headerTextColor).Add(column.sorted).Add(column.ascending);
    }
    return digest.Key();
}

std::uint64_t BarKey(const UcListView& view, const UcListBar& bar, int firstZone) {
    const int pressed = view.look.pressedZone - firstZone;
    Digest digest;
    digest.Add(bar.visible).Add(view.look.bar).Add(view.look.scrollbarDrawStyle);
    digest.Add(pressed >= 0 && pressed < 4 ? pressed : -1).Add(bar.part[kThumb]).Add(bar.part[kTrack]);
    return digest.Key();
}

std::uint64_t CornerKey(const UcListView& view) {
    return Digest().Add(view.look.bar).Key();
}

}  // namespace

// State and cells of one visible row. Cells that are never drawn belong to the state: the icon depends on them.
void UcListShown::Describe(const UcListView& view, int slot, Row& row) {
    const UcListLayout& layout = view.layout;
    const int displayRow = layout.topIndex + slot;
    row.cells.assign(static_cast<std::size_t>(layout.drawnColumns), 0);
    Digest state;
    state.Add(displayRow < layout.listCount);
    if (displayRow < layout.listCount) {
        state.Add(view.model.Selected(displayRow));
        state.Add(view.look.focused && view.look.focusRow == displayRow);
        for (int i = 0; i < view.model.ColumnCount(); ++i) {
            const std::string_view text = view.model.CellText(displayRow, i);
            if (i < layout.drawnColumns) {
                row.cells[static_cast<std::size_t>(i)] = Digest().Add(text).Key();
            } else {
                state.Add(text);
            }
        }
    }
    row.state = state.Key();
}

void UcListShown::Update(const UcListView& view, const std::function<void(const Rect&)>& invalidate) {
    const UcListLayout& layout = view.layout;
    const auto slots = static_cast<std::size_t>(layout.Slots());
    const std::uint64_t frame = FrameKey(view);
    const bool all = frame != frame_;
    frame_ = frame;
    if (all) invalidate({0, 0, layout.client.width, layout.client.height});

    const auto check = [&](Key& known, Key now, const Rect& area) {
        if (known != now && !all) invalidate(area);
        known = now;
    };
    check(header_, HeaderKey(view), layout.header);
    check(vertical_, BarKey(view, layout.vertical, kZoneUp), layout.vertical.area);
    check(horizontal_, BarKey(view, layout.horizontal, kZoneLeft), layout.horizontal.area);
    check(corner_, CornerKey(view), layout.corner);

    const auto show = [&](const Rect& area) {
        const Rect seen = area.intersect(layout.itemArea);
        if (!seen.empty()) invalidate(seen);
    };
    rows_.resize(slots);
    for (std::size_t slot = 0; slot < slots; ++slot) {
        Row& known = rows_[slot];
        Describe(view, static_cast<int>(slot), scratch_);
        if (!all && known.state != scratch_.state) {
            show(layout.RowRect(static_cast<int>(slot)));
        } else if (!all) {
            for (std::size_t i = 0; i < known.cells.size(); ++i) {
                if (known.cells[i] == scratch_.cells[i]) continue;
                show(layout.CellRect(static_cast<int>(slot), static_cast<int>(i)));
            }
        }
        std::swap(known, scratch_);
    }
}

void UcListShown::Painted(const UcListView& view, const Rect& dirty) {
    const UcListLayout& layout = view.layout;
    if (FrameKey(view) != frame_) {
        Forget();
        return;
    }
    if (HeaderKey(view) != header_) header_ = 0;
    if (BarKey(view, layout.vertical, kZoneUp) != vertical_) vertical_ = 0;
    if (BarKey(view, layout.horizontal, kZoneLeft) != horizontal_) horizontal_ = 0;
    if (CornerKey(view) != corner_) corner_ = 0;
    for (std::size_t slot = 0; slot < rows_.size(); ++slot) {
        Row& known = rows_[slot];
        if (!layout.RowRect(static_cast<int>(slot)).intersects(dirty)) continue;
        Describe(view, static_cast<int>(slot), scratch_);
        if (known.state != scratch_.state || known.cells != scratch_.cells) known.state = 0;
    }
}

}  // namespace controls
