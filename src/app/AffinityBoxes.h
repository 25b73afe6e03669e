// The "CPU n" check boxes: which processors to apply.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/BalloonTips.h"
#include "controls/CheckBox.h"
#include "controls/InDialog.h"
#include "platform/Window.h"

namespace app {

// Up to eight boxes, one per processor; the processors are numbered from 0.
class AffinityBoxes {
public:
    // Creates the boxes 0 to `highestCpu` (0..7) inside `parent`.
    bool Create(platform::Window& parent, int highestCpu);
    int Count() const { return count_; }
    // Pixels of the boxes, so many side by side; the rows are as high as `rowHeight`.
    platform::Size SizeOf(int perRow, int rowHeight) const;
    // Pixels from the left edge of the first box to the right edge of the last.
    int Width() const { return SizeOf(count_, 0).width; }
    // All in one row of that height.
    void Place(const platform::Rect& area) { Place(area.origin(), count_, area.height()); }
    void Place(platform::Point at, int perRow, int rowHeight);

    // The ticked processors as ascending digits, e.g. "013"; empty when none is ticked.
    std::string Text() const;
    // Ticks box n when the digit n occurs in the text.
    void Show(std::string_view affinityText);
    // The same for several texts: what some have and some have not is in between.
    void ShowAll(const std::vector<std::string>& affinityTexts);
    // What each box says of its processor; nothing of those in between.
    std::map<int, bool> Choice() const;
    // Ticks the boxes that are not ticked, and only those.
    void Invert();
    // A box has the focus.
    bool Focused() const;
    void FocusFirst() { Box(0).focus(); }
    // Sees the keys of all boxes first; true: the box must not see the key.
    void SetKeyFirst(const std::function<bool(const platform::KeyEvent&)>& keyFirst);
    // Explains each box.
    void Explain(controls::BalloonTips& tips, const std::string& title, const std::string& text);

private:
    using Cpu = controls::InDialog<controls::CheckBox>;
    static constexpr int kMost = 8;
    Cpu& Box(int cpu) { return boxes_[static_cast<std::size_t>(cpu)]; }
    const Cpu& Box(int cpu) const { return boxes_[static_cast<std::size_t>(cpu)]; }

    std::array<Cpu, kMost> boxes_;
    int count_ = 0;
    int boxWidth_ = 0;
};

}  // namespace app
