// The program's own small, flat drop-down list.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/ComboList.h"
#include "platform/Window.h"

namespace controls {

// Picks one of a few texts; the names of eight colours show the colour, too. A click on the face, F4, Alt+Down or
// the space bar drops the list, a click on a row, or Enter, picks from it, Escape closes it. While it is closed the
// arrow keys, Home, End and letters change the selection.
class FlatTinyCombo : public platform::Window {
public:
    // The user picked an item, by mouse or keyboard, be it the one that was selected already. The receiver may
    // destroy the control.
    std::function<void(std::int16_t index)> Click;
    std::function<void()> Hover;  // the pointer moved over the face
    std::function<void()> Left;   // the pointer left it

    // Class "FlatTinyCombo", a tab stop; `bounds` in client pixels of the parent.
    bool Create(platform::Window& parent, const std::string& instanceName, const platform::Rect& bounds);
    std::uintptr_t hwnd() const { return native(); }

    void AddItem(const std::string& text);
    // Removes all items. The index stays what it is.
    void Clear();
    // Selects an item, 0-based; -1 for none. There need not be such an item yet: the face is empty then. Raises
    // nothing.
    void SelectItem(int index);
    // 0 from the beginning on.
    int GetIndex() const { return selected_ - 1; }
    // Repaints the face.
    void ShowSelected();
    bool Dropped() const { return list_.exists(); }
    bool Enabled() const { return enabled(); }
    void SetEnabled(bool enabled);
    // Pixels of a face that shows the widest item.
    platform::Size PreferredSize() const;

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onMouse(const platform::MouseEvent& event) override;
    void onMouseLeave() override;
    void onWheel(const platform::WheelEvent& event) override;
    void onKey(const platform::KeyEvent& event) override;
    void onFocus(bool gained) override;
    void onTimer(int id) override;
    void onCaptureLost() override;
    void onSystemColors() override { invalidate(); }
    void onDestroyed() override;

private:
    void Drop();
    void CloseList();
    void Pick(int row);
    void SetHovered(bool hovered);
    void MoveOverList(platform::Point screen);
    void ToggleByKey();
    void ListKey(std::uint16_t code);
    void FaceKey(std::uint16_t code);
    int RowFor(std::uint16_t code, int from) const;
    void PaintButton(platform::Canvas& canvas, const platform::Size& size) const;
    void PaintItem(platform::Canvas& canvas, const platform::Size& size) const;
    const std::string& SelectedText() const;
    int Count() const { return static_cast<int>(items_.size()); }

    std::vector<std::string> items_;
    ComboList list_;
    std::int16_t selected_ = 1;  // one above the index
    int itemHeight_ = 1;
    int faceHeight_ = 1;
    int scrolling_ = 0;  // the pointer rests on an arrow of the list: -1 or 1
    bool hovered_ = false;
    bool keyHeld_ = false;
};

}  // namespace controls
