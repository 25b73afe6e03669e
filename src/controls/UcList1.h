// The program's multi-column list: a child window that paints rows, header and scroll bars itself. Data and sorting
// live in UcListModel, positions in UcListGeometry, drawing in UcListPaint, the flicker rule in UcListShown; here
// are the window, its properties and its input.
#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/UcListGeometry.h"
#include "controls/UcListModel.h"
#include "controls/UcListShown.h"
#include "controls/UcListView.h"
#include "platform/Window.h"

namespace controls {

class UcList1 : public platform::Window {
public:
    // Creates the control inside `parent`, without rows; false when the system refuses. Class name "UcList1".
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);

    // ---- events ----
    std::function<void(int button)> Click;             // 1 left or selection by keyboard, 2 right, 4 middle
    std::function<void(int button)> DblClick;          // always 1
    std::function<void(int column)> HeaderClick;       // after sorting
    std::function<void(std::uint16_t code)> KeyClick;  // a key pressed here was released, without Shift or Ctrl
    // The pointer has come over the first column of this display row. -1: it has left the rows, or the row has gone
    // from under it; the next move tells which one is there then.
    std::function<void(int row)> MouseTip;
    // Files were dropped here, once the host has called acceptFiles(true).
    std::function<void(const std::vector<std::string>& paths)> FilesDropped;
    std::function<void()> ColumnResized;  // a column has been dragged to its new width
    // The selected rows are being dragged: the pointer moves outside the control, the left button having been
    // pressed on a row; client pixels. Gives the shape of the pointer there.
    std::function<platform::Pointer(platform::Point at)> DragOver;
    // The button was released there.
    std::function<void(platform::Point at)> DragReleased;
    // A persisted property changed; the name of its key.
    std::function<void(std::string_view key)> PropertyChanged;
    // Draws the 16-pixel icon of a row in the first column, whose text then moves right.
    UcListDrawIcon DrawIcon;

    // ---- persistence ----
    // Takes layout and look, dropping all items. Absurd values are brought into range.
    void ReadProperties(const UcListProperties& properties);
    UcListProperties WriteProperties() const;

    // ---- rows; out of range gives nothing and changes nothing ----
    void AddItem(std::string_view text);
    void RemoveItem(int row);
    void Clear();                                 // sort marks, selection and TopIndex go too
    std::string List(int row, int column) const;  // a negative column gives all cells joined by tabs
    const std::string& CellText(int row, int column) const { return model_.CellText(row, column); }
    void SetList(int row, int column, std::string_view text);
    int ListCount() const { return model_.ListCount(); }

    // The column (0..ColumnCount()-1) whose text tells which item a row is, whatever else changes about it. Until
    // it is set, and when there is no such column, all cells together do.
    void SetKeyColumn(int column) { keyColumn_ = column; }

    // ---- selection; the caller redraws ----
    bool Selected(int row) const { return model_.Selected(row); }
    void SelectItem(int row, bool state) { model_.SelectItem(row, state); }
    std::vector<int> SelectedRows() const { return model_.SelectedRows(); }  // ascending

    // ---- sorting; the caller redraws ----
    void SortCol(int column, bool ascending);
    int HeaderSelected() const { return headerSelected_; }  // column last clicked
    bool HeaderSortDir() const { return headerSortDir_; }   // that column is ascending

    // ---- showing ----
    // Invalidates what differs from the screen; nothing while locked.
    void ReDraw();
    bool Locked() const { return locked_; }
    // While locked nothing is invalidated; unlocking shows what changed in one paint.
    void SetLocked(bool locked);
    // Display row at the top of the visible area. Clamped; shown after 10 ms, or when unlocked.
    int TopIndex() const { return topIndex_; }
    void SetTopIndex(int row);
    // The vertical scroll position, in rows: the same as TopIndex.
    int GetVertBarPos() const { return topIndex_; }
    void SetVertBarPos(int row) { SetTopIndex(row); }
    // Rows from the top of the visible area to the first selected one (negative above it, 0 for none); setting it
    // scrolls so that the selection keeps its place on the screen while the list around it changes.
    int SelectedTopPosition() const;
    void SetSelectedTopPosition(int rows);
    int VisibleRows() const;  // rows that fit whole
    // The left button is held on a row. Who refills the list now changes what the user is about to drop.
    bool Dragging() const { return drag_ == Drag::Item; }
    // A cell of a display row, cut to what of it can be seen, client pixels; empty when nothing of it can.
    platform::Rect CellRect(int row, int column) const;
    // The row the keyboard acts on (focus rectangle), -1 for none.
    int CurrentRow() const;
    // What a drop of files does: hands the paths to FilesDropped.
    void OleDragDrop(const std::vector<std::string>& paths);

    // ---- look ----
    platform::Color BackColor() const { return properties_.backColor; }
    void SetBackColor(platform::Color color);
    platform::Color HighlightColor() const { return properties_.highlightColor; }
    void SetHighlightColor(platform::Color color);
    platform::Color HighlightTextColor() const { return properties_.highlightTextColor; }
    void SetHighlightTextColor(platform::Color color);
    platform::Color HeaderBackColor() const { return properties_.headerBackColor; }
    void SetHeaderBackColor(platform::Color color);
    platform::Color ScrollBarColor() const { return properties_.scrollbarColor; }
    void SetScrollBarColor(platform::Color color);
    int HeaderDrawStyle() const { return properties_.headerDrawStyle; }
    void SetHeaderDrawStyle(int style);
    int ScrollbarDrawStyle() const { return properties_.scrollbarDrawStyle; }
    void SetScrollbarDrawStyle(int style);
    int HeaderHeight() const { return properties_.headerHeight; }
    void SetHeaderHeight(int pixels);

    // ---- columns ----
    int ColumnCount() const { return model_.ColumnCount(); }
    void SetColumnCount(int count);  // drops all items
    int ColumnMaxSeen() const { return model_.ColumnMaxSeen(); }
    void SetColumnMaxSeen(int column);
    // The column that the next eight properties address; a column that does not exist reads as an empty one.
    int ColumnIndex() const { return columnIndex_; }
    void SetColumnIndex(int column) { columnIndex_ = column; }
    std::string HeaderCaption() const { return Addressed().caption; }
    void SetHeaderCaption(const std::string& caption);
    int ListTextAlign() const { return Addressed().listTextAlign; }
    void SetListTextAlign(int align);
    bool ListTextBold() const { return Addressed().listTextBold; }
    void SetListTextBold(bool bold);
    platform::Color ListTextColor() const { return Addressed().listTextColor; }
    void SetListTextColor(platform::Color color);
    int HeaderTextAlign() const { return Addressed().headerTextAlign; }
    void SetHeaderTextAlign(int align);
    bool HeaderTextBold() const { return Addressed().headerTextBold; }
    void SetHeaderTextBold(bool bold);
    platform::Color HeaderTextColor() const { return Addressed().headerTextColor; }
    void SetHeaderTextColor(platform::Color color);
    int HeaderWidth() const { return HeaderWidth(columnIndex_); }
    void SetHeaderWidth(int width) { SetHeaderWidth(columnIndex_, width); }
    // Pixels a column takes on the screen, 0 when there is no such column.
    int HeaderWidth(int column) const;
    void SetHeaderWidth(int column, int width);
    // Widths of the columns shown, as "134,82,60,40,60,70,", and back; damaged entries change nothing.
    std::string ColumnWidthsText() const { return model_.ColumnWidthsText(); }
    void SetColumnWidths(std::string_view text);

    // Where things lie now.
    const UcListLayout& Layout() const;

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSize(platform::Size client, platform::WindowState state) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onWheel(const platform::WheelEvent& event) override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onTimer(int id) override;
    void onCaptureLost() override;
    void onDropFiles(const std::vector<std::string>& paths) override;
    void onSystemColors() override;
    void onDestroyed() override;

private:
    // What the held left button is doing.
    enum class Drag { None, Item, HeaderCell, ColumnWidth, Bar };

    // UcList1.cpp, UcList1Properties.cpp
    void Changed(std::string_view key);
    const UcListColumn& Addressed() const;
    UcListColumn* AddressedForChange();
    void HeaderChanged();
    UcListLook Look() const;
    void SettleCurrentRow();
    void SortByHeader(int column);
    template <class Value>
    void ChangeColumn(Value UcListColumn::*member, const Value& value);
    template <class Reorder>
    void KeepCurrentItem(Reorder reorder);

    // UcList1Input.cpp: mouse and timers
    std::string ItemAt(platform::Point at) const;
    bool Ignores(const platform::MouseEvent& event);
    void LeftDown(const platform::MouseEvent& event);
    void LeftUp(platform::Point at);
    void RightDown(platform::Point at);
    void PressBar(int zone, platform::Point at);
    void StepBar(int zone, platform::Point at);
    bool TowardsEnd(int zone, platform::Point at) const;
    void ScrollColumns(int pixels);
    void PressHeader(int column, platform::Point at);
    void PressItem(const UcListHit& hit, const platform::MouseEvent& event);
    void BeginDrag(Drag drag);
    void EndDrag();
    void pvOnMouseMove(const platform::MouseEvent& event);
    void DragWidth(platform::Point at);
    void DragRows(platform::Point at);
    void DragThumb(platform::Point at);
    void ShapePointer(bool sizing);
    void HoverAt(platform::Point at);
    void RecheckHover();
    void EndHover();

    // UcList1Keys.cpp
    void KeyDown(const platform::KeyEvent& event);
    bool SelectionCommand(std::uint16_t code);
    bool NavigationTarget(std::uint16_t code, int& target) const;
    void MoveCurrentRow(int target, bool extend, bool keepSelection);
    void ToggleCurrentRow(bool keepOthers);
    void ShowRow(int row);

    UcListProperties properties_;  // without headerProperties, which the model holds
    UcListModel model_;
    UcListShown shown_;
    mutable UcListLayout layout_;  // brought up to date by Layout()
    mutable std::vector<int> widths_;

    bool locked_ = false;
    int topIndex_ = 0;
    int offset_ = 0;  // horizontal scroll offset
    bool repaintPending_ = false;
    int columnIndex_ = 0;
    int keyColumn_ = -1;
    int headerSelected_ = 0;
    bool headerSortDir_ = false;

    bool focused_ = false;
    std::bitset<256> keysDown_;  // by code, of the keys that went down here
    int anchorRow_ = -1;
    int currentRow_ = -1;
    bool refilling_ = false;        // cleared, and not yet shown with rows again
    bool followSelection_ = false;  // the current row was selected when the list was cleared

    Drag drag_ = Drag::None;
    platform::MouseButton ignoredButton_ = platform::MouseButton::None;  // its last press was for no row of now
    int dragZone_ = 0;
    int dragColumn_ = -1;
    int grabOffset_ = 0;
    struct {
        int start = 0;     // first pixel of the thumb
        int position = 0;  // top index or horizontal offset
    } grabbed_;
    platform::Point lastPoint_;
    // What was selected before the press that may begin a drag: pressing one of several selected rows selects it
    // alone, but dragging it takes all of them along.
    std::vector<int> selectedBefore_;
    int repeatZone_ = 0;         // zone whose auto-repeat timer runs, 0 for none
    bool repeatsToEnd_ = false;  // the pressed track pages towards its end
    bool sizingPointer_ = false;
    int hoverRow_ = -1;
    std::string hoverItem_;
    bool tipRaised_ = false;
};

}  // namespace controls
