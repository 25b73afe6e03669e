#include "app/AffinityBoxes.h"

#include <algorithm>

#include "app/Tips.h"
#include "text/Numbers.h"

namespace app {

namespace {
constexpr int kGap = 4;
}

bool AffinityBoxes::Create(platform::Window& parent, int highestCpu) {
    const int wanted = std::clamp(highestCpu + 1, 1, kMost);
    for (count_ = 0; count_ < wanted; ++count_) {
        const std::string number = text::Decimal(count_);
        const std::string caption = "CPU " + number;
        boxWidth_ = controls::CheckBox::WidthFor(caption);
        controls::CheckBox& box = boxes_[static_cast<std::size_t>(count_)];
        if (!box.Create(parent, "CpuAffinity" + number, caption, {0, 0, boxWidth_, 1})) return false;
    }
    return true;
}

int AffinityBoxes::Width() const {
    return count_ * boxWidth_ + (count_ - 1) * kGap;
}

void AffinityBoxes::Place(const platform::Rect& area) {
    int x = area.left;
    for (int i = 0; i < count_; ++i) {
        boxes_[static_cast<std::size_t>(i)].setBounds({x, area.top, x + boxWidth_, area.bottom});
        x += boxWidth_ + kGap;
    }
}

std::string AffinityBoxes::Text() const {
    std::string text;
    for (int i = 0; i < count_; ++i) {
        if (boxes_[static_cast<std::size_t>(i)].Value()) text += static_cast<char>('0' + i);
    }
    return text;
}

void AffinityBoxes::Show(std::string_view affinityText) {
    for (int i = 0; i < count_; ++i) {
        const bool named = affinityText.find(static_cast<char>('0' + i)) != std::string_view::npos;
        boxes_[static_cast<std::size_t>(i)].SetValue(named);
    }
}

void AffinityBoxes::Invert() {
    for (int i = 0; i < count_; ++i) {
        controls::CheckBox& box = boxes_[static_cast<std::size_t>(i)];
        box.SetValue(!box.Value());
    }
}

void AffinityBoxes::Explain(controls::BalloonTips& tips, const std::string& title, const std::string& text) {
    for (int i = 0; i < count_; ++i) {
        ExplainControl(boxes_[static_cast<std::size_t>(i)], tips, title, text);
    }
}

}  // namespace app
