// Mouse and timers of the list.
#include <algorithm>
#include <utility>

#include "controls/UcList1.h"

namespace controls {

using platform::MouseAction;
using platform::MouseButton;
using platform::MouseEvent;
using platform::Point;

namespace {

// Timers 1, 2, 4, 5, 6 and 8 repeat the scroll bar zone of the same number.
constexpr int kRepaintTimer = 12;
constexpr int kHoverTimer = 13;
constexpr std::uint32_t kFirstRepeat = 300;  // ms
constexpr std::uint32_t kNextRepeat = 50;
constexpr std::uint32_t kHoverWatch = 100;
constexpr int kArrowStep = 10;  // pixels
constexpr int kTrackStep = 100;

template <class Event, class Argument>
void Raise(const Event& event, const Argument& argument) {
    if (event) event(argument);
}

}  // namespace

void UcList1::onMouse(const MouseEvent& event) {
    lastPoint_ = event.at;
    const bool pressed = event.action == MouseAction::Down || event.action == MouseAction::DoubleClick;
    if (event.action == MouseAction::Move) {
        pvOnMouseMove(event);
        return;
    }
    if (Ignores(event)) return;
    const platform::Size client = clientSize();
    const bool inside = platform::Rect{0, 0, client.width, client.height}.contains(event.at);
    switch (event.button) {
        case MouseButton::Left:
            if (pressed) {
                LeftDown(event);
            } else {
                LeftUp(event.at);
            }
            break;
        case MouseButton::Right:
            if (pressed) {
                RightDown(event.at);
            } else if (inside) {
                Raise(Click, 2);
            }
            break;
        case MouseButton::Middle:
            if (pressed) break;
            hoverRow_ = -1;
            Raise(Click, 4);
            break;
        case MouseButton::None:
            break;
    }
}

// What tells the item at a point from all others; empty where there is none.
std::string UcList1::ItemAt(Point at) const {
    const UcListHit hit = HitTest(Layout(), at);
    return hit.zone == kZoneItems ? List(hit.row, keyColumn_ < ColumnCount() ? keyColumn_ : -1) : std::string();
}

// A press gives the list the focus, and who loses it may change the rows. Then the press was for an item that is
// elsewhere now: nobody is told of it, of its release, or of a second press that makes it a double click.
bool UcList1::Ignores(const MouseEvent& event) {
    if (event.action == MouseAction::Down) ignoredButton_ = MouseButton::None;
    if (event.action != MouseAction::Up && !focused()) {
        const std::string item = ItemAt(event.at);
        focus();
        if (ItemAt(event.at) != item) ignoredButton_ = event.button;
    }
    return event.button == ignoredButton_;
}

// ---- press and release ----

void UcList1::BeginDrag(Drag drag) {
    drag_ = drag;
    capture();
}

// Whatever the button was doing is over; on release and lost capture alike.
void UcList1::EndDrag() {
    for (const int zone : {kZoneUp, kZoneDown, kZoneVerticalTrack, kZoneLeft, kZoneRight, kZoneHorizontalTrack}) {
        if (zone == repeatZone_) stopTimer(zone);
    }
    repeatZone_ = 0;
    const bool sized = drag_ == Drag::ColumnWidth;
    if (drag_ == Drag::Item) setPointer(platform::Pointer::Arrow);
    selectedBefore_.clear();
    drag_ = Drag::None;
    dragColumn_ = -1;
    hoverRow_ = -1;
    releaseCapture();
    ReDraw();
    if (sized && ColumnResized) ColumnResized();
}

void UcList1::onCaptureLost() {
    if (drag_ != Drag::None) EndDrag();
}

void UcList1::LeftDown(const MouseEvent& event) {
    const UcListHit hit = HitTest(Layout(), event.at);
    if (hit.zone == kZoneHeader) {
        PressHeader(hit.column, event.at);
    } else if (hit.zone == kZoneItems) {
        PressItem(hit, event);
    } else if (hit.zone != kZoneNothing) {
        PressBar(hit.zone, event.at);
    }
}

void UcList1::LeftUp(Point at) {
    const bool item = drag_ == Drag::Item;
    EndDrag();
    if (!item) return;
    Raise(Click, 1);
    const platform::Size client = clientSize();
    if (!platform::Rect{0, 0, client.width, client.height}.contains(at)) Raise(DragReleased, at);
}

// A context menu that follows acts on the row it was asked for.
void UcList1::RightDown(Point at) {
    const UcListHit hit = HitTest(Layout(), at);
    const bool onRow = hit.zone == kZoneItems && hit.column >= 0 && hit.row < ListCount();
    if (!onRow) return;
    if (!model_.Selected(hit.row)) model_.SelectOnly(hit.row);
    currentRow_ = anchorRow_ = hit.row;
    ReDraw();
}

void UcList1::PressItem(const UcListHit& hit, const MouseEvent& event) {
    if (hit.column < 0 || hit.row >= ListCount()) return;
    if (event.modifiers.shift) {
        const int anchor = anchorRow_ < 0 ? std::max(0, CurrentRow()) : anchorRow_;
        model_.SelectRange(anchor, hit.row);
    } else if (event.modifiers.ctrl) {
        model_.SelectItem(hit.row, !model_.Selected(hit.row));
    } else {
        if (model_.Selected(hit.row)) selectedBefore_ = model_.SelectedRows();
        model_.SelectOnly(hit.row);
    }
    anchorRow_ = currentRow_ = hit.row;
    ReDraw();
    if (event.action == MouseAction::DoubleClick) {
        Raise(DblClick, 1);
    } else {
        BeginDrag(Drag::Item);
        Raise(Click, 1);
    }
}

void UcList1::PressHeader(int column, Point at) {
    const int sizing = SizingColumn(Layout(), at);
    if (sizing >= 0) {
        BeginDrag(Drag::ColumnWidth);
        dragColumn_ = sizing;
        // From the width at the start, not from the column's edge: that may move while the offset is clamped.
        grabOffset_ = HeaderWidth(sizing) - at.x;
        return;
    }
    if (column >= model_.DrawnColumns()) return;
    BeginDrag(Drag::HeaderCell);
    dragColumn_ = column;
    headerSelected_ = column;
    ReDraw();
    SortByHeader(column);
    ReDraw();
    Raise(HeaderClick, column);
}

// ---- scroll bars ----

void UcList1::PressBar(int zone, Point at) {
    BeginDrag(Drag::Bar);
    dragZone_ = zone;
    const UcListLayout& layout = Layout();
    if (zone == kZoneVerticalThumb) {
        grabOffset_ = at.y - layout.vertical.part[kThumb].top;
        grabbed_ = {at.y - grabOffset_, layout.topIndex};
    } else if (zone == kZoneHorizontalThumb) {
        grabOffset_ = at.x - layout.horizontal.part[kThumb].left;
        grabbed_ = {at.x - grabOffset_, layout.offset};
    } else {
        repeatsToEnd_ = TowardsEnd(zone, at);
        StepBar(zone, at);
        if (repeatZone_ == 0) {
            repeatZone_ = zone;
            startTimer(zone, kFirstRepeat);
        }
    }
    ReDraw();
}

// Whether a press of that zone scrolls on: on a track it depends on the side of the thumb, an arrow has its own
// way.
bool UcList1::TowardsEnd(int zone, Point at) const {
    if (zone == kZoneVerticalTrack) return at.y >= Layout().vertical.part[kThumb].top;
    if (zone == kZoneHorizontalTrack) return at.x >= Layout().horizontal.part[kThumb].left;
    return zone == kZoneDown || zone == kZoneRight;
}

// One step of an arrow, or a page of the track towards the point.
void UcList1::StepBar(int zone, Point at) {
    const int page = std::max(1, Layout().visibleRows);
    switch (zone) {
        case kZoneUp:
            SetTopIndex(topIndex_ - 1);
            break;
        case kZoneDown:
            SetTopIndex(topIndex_ + 1);
            break;
        case kZoneVerticalTrack:
            SetTopIndex(topIndex_ + (TowardsEnd(zone, at) ? page : -page));
            break;
        case kZoneLeft:
            ScrollColumns(kArrowStep);
            break;
        case kZoneRight:
            ScrollColumns(-kArrowStep);
            break;
        case kZoneHorizontalTrack:
            ScrollColumns(TowardsEnd(zone, at) ? -kTrackStep : kTrackStep);
            break;
        default:
            break;
    }
    ReDraw();
}

void UcList1::ScrollColumns(int pixels) {
    offset_ = std::clamp(offset_ + pixels, Layout().minOffset, 0);
    ReDraw();
}

void UcList1::onWheel(const platform::WheelEvent& event) {
    if (event.delta != 0) SetTopIndex(topIndex_ + (event.delta < 0 ? 1 : -1));
}

// ---- move ----

void UcList1::pvOnMouseMove(const MouseEvent& event) {
    switch (drag_) {
        case Drag::ColumnWidth:
            DragWidth(event.at);
            break;
        case Drag::Bar:
            DragThumb(event.at);
            break;
        case Drag::None:
            HoverAt(event.at);
            break;
        case Drag::Item:
            DragRows(event.at);
            break;
        case Drag::HeaderCell:
            break;
    }
}

void UcList1::DragRows(Point at) {
    if (!DragOver) return;
    if (platform::Rect::fromSize({}, clientSize()).contains(at)) {
        setPointer(platform::Pointer::Arrow);
        return;
    }
    if (!selectedBefore_.empty()) {
        for (const int row : std::exchange(selectedBefore_, {})) model_.SelectItem(row, true);
        ReDraw();
    }
    setPointer(DragOver(at));
}

void UcList1::DragWidth(Point at) {
    SetHeaderWidth(dragColumn_, std::max(at.x + grabOffset_, UcListModel::kMinColumnWidth));
}

// Where it was grabbed a thumb stands for what was shown then: a pixel may stand for several positions.
void UcList1::DragThumb(Point at) {
    const UcListLayout& layout = Layout();
    const auto positionAt = [&](int start, auto calculate) {
        return start == grabbed_.start ? grabbed_.position : calculate(layout, start);
    };
    if (dragZone_ == kZoneVerticalThumb) {
        SetTopIndex(positionAt(at.y - grabOffset_, TopIndexOfThumb));
    } else if (dragZone_ == kZoneHorizontalThumb) {
        offset_ = positionAt(at.x - grabOffset_, OffsetOfThumb);
        ReDraw();
    }
}

void UcList1::ShapePointer(bool sizing) {
    if (sizing == sizingPointer_) return;
    sizingPointer_ = sizing;
    setPointer(sizing ? platform::Pointer::SizeWestEast : platform::Pointer::Arrow);
}

void UcList1::HoverAt(Point at) {
    const UcListLayout& layout = Layout();
    ShapePointer(SizingColumn(layout, at) >= 0);
    const UcListHit hit = HitTest(layout, at);
    if (hit.zone != kZoneItems || hit.column != 0 || hit.row >= ListCount()) {
        EndHover();
        return;
    }
    if (hit.row == hoverRow_) return;
    hoverRow_ = hit.row;
    hoverItem_ = ItemAt(at);
    tipRaised_ = true;
    startTimer(kHoverTimer, kHoverWatch);
    Raise(MouseTip, hoverRow_);
}

// Once for every tip that was asked for, however the hover row was lost meanwhile.
void UcList1::EndHover() {
    hoverRow_ = -1;
    if (!tipRaised_) return;
    tipRaised_ = false;
    stopTimer(kHoverTimer);
    Raise(MouseTip, -1);
}

// The rows may have moved under a pointer at rest.
void UcList1::RecheckHover() {
    if (hoverRow_ < 0) return;
    const UcListHit hit = HitTest(Layout(), lastPoint_);
    if (hit.column == 0 && ItemAt(lastPoint_) == hoverItem_) {
        hoverRow_ = hit.row;
    } else {
        EndHover();
    }
}

void UcList1::onMouseLeave() {
    ShapePointer(false);
    EndHover();
}

void UcList1::onDropFiles(const std::vector<std::string>& paths) {
    OleDragDrop(paths);
}

void UcList1::OleDragDrop(const std::vector<std::string>& paths) {
    Raise(FilesDropped, paths);
}

// ---- timers: each fires once ----

void UcList1::onTimer(int id) {
    stopTimer(id);
    if (id == kRepaintTimer) {
        repaintPending_ = false;
        ReDraw();
    } else if (id == kHoverTimer) {
        if (hoverRow_ >= 0 && hoverRow_ < ListCount() && underPointer()) {
            startTimer(kHoverTimer, kHoverWatch);
        } else {
            EndHover();
        }
    } else if (id == repeatZone_ && drag_ == Drag::Bar) {
        // Rests while the pointer is elsewhere; a track has done when its thumb has come under the pointer, or
        // has passed it: a page may be a pixel more than the thumb is long.
        const bool passed = TowardsEnd(id, lastPoint_) != repeatsToEnd_;
        if (!passed && HitTest(Layout(), lastPoint_).zone == id) StepBar(id, lastPoint_);
        startTimer(id, kNextRepeat);
    }
}

}  // namespace controls
