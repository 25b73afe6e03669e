// The "CPU n" check boxes: which processors to apply.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "controls/BalloonTips.h"
#include "controls/CheckBox.h"
#include "platform/Window.h"

namespace app {

// Up to eight boxes, one per processor; the processors are numbered from 0.
class AffinityBoxes {
public:
    // Creates the boxes 0 to `highestCpu` (0..7) inside `parent`.
    bool Create(platform::Window& parent, int highestCpu);
    // Pixels from the left edge of the first box to the right edge of the last.
    int Width() const;
    void Place(const platform::Rect& area);

    // The ticked processors as ascending digits, e.g. "013"; empty when none is ticked.
    std::string Text() const;
    // Ticks box n when the digit n occurs in the text.
    void Show(std::string_view affinityText);
    // Ticks the boxes that are not ticked, and only those.
    void Invert();
    // Explains each box.
    void Explain(controls::BalloonTips& tips, const std::string& title, const std::string& text);

private:
    static constexpr int kMost = 8;
    std::array<controls::CheckBox, kMost> boxes_;
    int count_ = 0;
    int boxWidth_ = 0;
};

}  // namespace app
