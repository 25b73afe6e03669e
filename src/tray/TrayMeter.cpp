#include "tray/TrayMeter.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "controls/Resources.h"
#include "text/Numbers.h"

namespace tray {

namespace {

using platform::Color;
using platform::Rect;

constexpr Color kBlack = platform::rgb(0, 0, 0);        // what the digits are made of
constexpr Color kWhite = platform::rgb(255, 255, 255);  // what the icon leaves transparent

constexpr platform::Size kIconSize{32, 32};
constexpr Rect kBar{2, 2, 31, 31};
constexpr Rect kBarOutline{1, 1, 32, 32};

constexpr platform::Size kDigitSize{16, 32};
constexpr Rect kHundred{158, 0, 158 + 32, 32};  // where "100" is among the digits

// The resource with the digits of a type; 0 for a type without digits.
int DigitsResource(MeterType type) {
    switch (type) {
        case MeterType::NumberLarge:
            return controls::kLargeDigits;
        case MeterType::NumberSmall:
            return controls::kSmallDigits;
        case MeterType::Disabled:
        case MeterType::Graph:
            break;
    }
    return 0;
}

// The first row of the bar that is filled: 31, below the bar, at 0 %.
int BarLevel(int percent) {
    constexpr double kPercentPerRow = 3.125;
    const int level = static_cast<int>(std::nearbyint(31 - percent / kPercentPerRow));  // halves to even
    // The upper part is pulled down, so that a nearly full bar still shows a little ground above it.
    return level < 18 ? level + 2 : level;
}

Rect DigitCell(char digit) {
    return Rect::fromSize({(digit - '0') * kDigitSize.width, 0}, kDigitSize);
}

}  // namespace

MeterType MeterTypeFromSetting(int value) {
    const bool known = value >= 0 && value <= static_cast<int>(MeterType::NumberSmall);
    return known ? static_cast<MeterType>(value) : MeterType::Disabled;
}

void TrayMeter::SetTrayColor(Color color) {
    // Loaded anew every time: a colour is put in place of black, so that the digits have to be black before.
    if (const int resource = DigitsResource(type_); resource != 0) {
        digits_ = platform::loadPictureResource(resource);
        if (digits_ && color != kBlack) platform::replaceColor(digits_, kBlack, color);
    }
    color_ = color;
}

platform::IconHandle TrayMeter::Draw(int percent) const {
    const bool number = DigitsResource(type_) != 0;
    if (type_ == MeterType::Disabled || (number && !digits_)) return {};
    auto picture = platform::drawPicture(kIconSize, kWhite, [&](platform::Canvas& canvas) {
        if (number) {
            DrawNumber(canvas, percent);
        } else {
            DrawBar(canvas, percent);
        }
    });
    return picture ? platform::iconFromPicture(std::move(picture), kWhite) : platform::IconHandle();
}

void TrayMeter::DrawBar(platform::Canvas& canvas, int percent) const {
    const int level = std::clamp(BarLevel(percent), kBar.top, kBar.bottom);
    canvas.fill({kBar.left, level, kBar.right, kBar.bottom}, color_);
    canvas.frame(kBarOutline, borderColor_);
}

void TrayMeter::DrawNumber(platform::Canvas& canvas, int percent) const {
    if (percent >= 100) {
        canvas.picture({0, 0}, digits_, kHundred);
        return;
    }
    const std::string digits = text::TwoDigits(percent);
    canvas.picture({0, 0}, digits_, DigitCell(digits[0]));
    canvas.picture({kDigitSize.width, 0}, digits_, DigitCell(digits[1]));
}

}  // namespace tray
