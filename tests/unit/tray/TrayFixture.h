// What the tests of the notification area share: a window that owns icons, and a look at their pixels.
#pragma once

#include <doctest/doctest.h>

#include <utility>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Picture.h"
#include "platform/Tray.h"
#include "platform/Window.h"
#include "platform/sim/Sim.h"

struct FreshMachine {
    FreshMachine() { platform::sim::reset(); }
};

struct IconOwner : platform::Window {
    IconOwner() { REQUIRE(create({platform::WindowKind::Main, "Form1", "Form1", nullptr, {0, 0, 100, 100}})); }
};

// Pixels row by row; kUnpainted where the icon is transparent, empty for no icon.
inline std::vector<platform::Color> PixelsOf(const platform::IconHandle& icon) {
    if (!icon) return {};
    const IconOwner owner;
    REQUIRE(platform::trayAdd(owner, 1, icon.raw(), ""));
    const auto shown = platform::sim::trayIcons();
    REQUIRE(shown.size() == 1);
    CHECK(platform::trayDelete(owner, 1));
    return shown[0].pixels;
}

inline std::vector<platform::Color> PixelsOf(const platform::PictureHandle& picture) {
    constexpr platform::Color kNowhere = 0x563412;
    const auto size = platform::pictureSize(picture);
    auto copy = platform::drawPicture(size, kNowhere, [&](platform::Canvas& canvas) {
        canvas.picture({0, 0}, picture, platform::Rect::fromSize({0, 0}, size));
    });
    return PixelsOf(platform::iconFromPicture(std::move(copy), kNowhere));
}
