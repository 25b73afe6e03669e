#include "app/AffinityBoxes.h"

#include <algorithm>

#include "app/Tips.h"
#include "text/Numbers.h"

namespace app {

namespace {

constexpr int kGap = 4;

bool Names(std::string_view affinityText, int cpu) {
    return affinityText.find(static_cast<char>('0' + cpu)) != std::string_view::npos;
}

}  // namespace

bool AffinityBoxes::Create(platform::Window& parent, int highestCpu) {
    const int wanted = std::clamp(highestCpu + 1, 1, kMost);
    for (count_ = 0; count_ < wanted; ++count_) {
        const std::string number = text::Decimal(count_);
        const std::string caption = "CPU " + number;
        boxWidth_ = controls::CheckBox::WidthFor(caption);
        Cpu& box = Box(count_);
        if (!box.Create(parent, "CpuAffinity" + number, caption, {0, 0, boxWidth_, 1})) return false;
    }
    return true;
}

platform::Size AffinityBoxes::SizeOf(int perRow, int rowHeight) const {
    const int columns = std::min(perRow, count_);
    const int rows = (count_ + perRow - 1) / perRow;
    return {columns * boxWidth_ + (columns - 1) * kGap, rows * rowHeight};
}

void AffinityBoxes::Place(platform::Point at, int perRow, int rowHeight) {
    for (int i = 0; i < count_; ++i) {
        const platform::Point corner{at.x + i % perRow * (boxWidth_ + kGap), at.y + i / perRow * rowHeight};
        Box(i).setBounds(platform::Rect::fromSize(corner, {boxWidth_, rowHeight}));
    }
}

std::string AffinityBoxes::Text() const {
    std::string text;
    for (int i = 0; i < count_; ++i) {
        if (Box(i).Value()) text += static_cast<char>('0' + i);
    }
    return text;
}

void AffinityBoxes::Show(std::string_view affinityText) {
    for (int i = 0; i < count_; ++i) Box(i).SetValue(Names(affinityText, i));
}

void AffinityBoxes::ShowAll(const std::vector<std::string>& affinityTexts) {
    const int all = static_cast<int>(affinityTexts.size());
    for (int i = 0; i < count_; ++i) {
        const auto naming = std::count_if(affinityTexts.begin(), affinityTexts.end(),
                                          [i](const std::string& text) { return Names(text, i); });
        if (naming == 0 || naming == all) {
            Box(i).SetValue(naming != 0);
        } else {
            Box(i).SetInBetween();
        }
    }
}

std::map<int, bool> AffinityBoxes::Choice() const {
    std::map<int, bool> choice;
    for (int i = 0; i < count_; ++i) {
        if (!Box(i).InBetween()) choice[i] = Box(i).Value();
    }
    return choice;
}

bool AffinityBoxes::Focused() const {
    return std::any_of(boxes_.begin(), boxes_.begin() + count_, [](const Cpu& box) { return box.focused(); });
}

void AffinityBoxes::SetKeyFirst(const std::function<bool(const platform::KeyEvent&)>& keyFirst) {
    for (Cpu& box : boxes_) box.KeyFirst = keyFirst;
}

void AffinityBoxes::Invert() {
    for (int i = 0; i < count_; ++i) {
        Cpu& box = Box(i);
        box.SetValue(!box.Value());
    }
}

void AffinityBoxes::Explain(controls::BalloonTips& tips, const std::string& title, const std::string& text) {
    for (int i = 0; i < count_; ++i) {
        ExplainControl(Box(i), tips, title, text);
    }
}

}  // namespace app
