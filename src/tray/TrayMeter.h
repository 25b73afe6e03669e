// The picture of the CPU meter in the notification area: a bar or digits that show how busy the processors are.
#pragma once

#include "platform/Canvas.h"
#include "platform/Picture.h"

namespace tray {

enum class MeterType { Disabled = 0, Graph = 1, NumberLarge = 2, NumberSmall = 3 };

// Anything outside 0..3 is Disabled: a damaged setting leaves the plain icon.
MeterType MeterTypeFromSetting(int value);

// Makes one icon a tick. White is what the icons leave transparent: a colour that is to be seen is not 0xFFFFFF.
class TrayMeter {
public:
    // To be followed by SetTrayColor, which prepares the digits of a number type.
    void SetType(MeterType type) { type_ = type; }
    MeterType Type() const { return type_; }

    // Outline of the bar.
    void SetBorderColor(platform::Color color) { borderColor_ = color; }
    // Prepares the digits of the present type and records the colour of bar and digits. It touches every pixel of
    // the digits: for a change of type or colour, not for every tick. loadPictureResource, replaceColor.
    void SetTrayColor(platform::Color color);

    // The meter at `percent` (0 to 100; what is beyond shows as the nearer end) as an icon of 32 x 32 pixels; empty
    // for Disabled, without digits and on failure. drawPicture, iconFromPicture.
    platform::IconHandle Draw(int percent) const;

private:
    void DrawBar(platform::Canvas& canvas, int percent) const;
    void DrawNumber(platform::Canvas& canvas, int percent) const;

    MeterType type_ = MeterType::Disabled;
    platform::Color color_ = 0;
    platform::Color borderColor_ = 0;
    platform::PictureHandle digits_;  // in color_
};

}  // namespace tray
