// The dropped list of a FlatTinyCombo: where it stands, what of it is shown, and how it is painted. It takes no
// input itself: the combo box holds the mouse and the focus while its list is dropped.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Window.h"

namespace controls {

// The colour that an item's text names, by the exact name; nothing for any other text.
std::optional<platform::Color> SwatchColor(const std::string& text);
// Where the swatch of an item goes: beside its text, at the right edge of a control `width` pixels wide.
platform::Rect SwatchRect(int width, int itemTop, int itemHeight);
// From the left edge of face and list to the text.
inline constexpr int kComboTextLeft = 4;

class ComboList : public platform::Window {
public:
    // Shows the list under `face` (screen pixels), or above it where there is more room, and on the screen in any
    // case; what does not fit is scrolled. The items belong to the caller and outlive the list; `row` is
    // highlighted.
    bool Open(platform::Window& owner, const platform::Rect& face, const std::vector<std::string>& items,
              int itemHeight, int row);

    int Row() const { return row_; }
    // Highlights a row, and scrolls it into view.
    void SetRow(int row);
    // Moves what is shown towards the end of the list (or, below 0, its beginning), as far as there is something.
    void ScrollBy(int rows);
    int ShownRows() const { return shown_; }

    // A point of the screen: whether it lies on the list, on which row, and on which of the arrows that scroll it
    // (-1 towards the beginning, 1 towards the end, 0 for none).
    bool Covers(platform::Point screen) const { return bounds().contains(screen); }
    std::optional<int> RowAt(platform::Point screen) const;
    int ArrowAt(platform::Point screen) const;

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onSystemColors() override { invalidate(); }

private:
    void Place(const platform::Rect& face);
    int Count() const { return static_cast<int>(items_->size()); }
    platform::Point Local(platform::Point screen) const;
    // All rows shown, between the arrows if there are any. Client pixels.
    platform::Rect Rows() const;
    void PaintRow(platform::Canvas& canvas, int row) const;
    void PaintArrow(platform::Canvas& canvas, bool down) const;

    const std::vector<std::string>* items_ = nullptr;
    int faceWidth_ = 0;
    int itemHeight_ = 1;
    int row_ = 0;    // highlighted
    int first_ = 0;  // topmost of the rows shown
    int shown_ = 0;  // number of rows shown
};

}  // namespace controls
