// Plain geometry shared by windows, canvas and controls. Pixels; rectangles are half-open:
// a Rect holds the points with left <= x < right and top <= y < bottom.
#pragma once

namespace platform {

struct Point {
    int x = 0;
    int y = 0;
    friend constexpr bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int width = 0;
    int height = 0;
    friend constexpr bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    static constexpr Rect fromSize(Point at, Size size) {
        return {at.x, at.y, at.x + size.width, at.y + size.height};
    }

    constexpr int width() const { return right - left; }
    constexpr int height() const { return bottom - top; }
    constexpr Point origin() const { return {left, top}; }
    constexpr Size size() const { return {width(), height()}; }
    constexpr bool empty() const { return right <= left || bottom <= top; }
    constexpr bool contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    constexpr Rect offset(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    constexpr Rect inset(int dx, int dy) const { return {left + dx, top + dy, right - dx, bottom - dy}; }
    constexpr Rect intersect(const Rect& other) const {
        return {left > other.left ? left : other.left, top > other.top ? top : other.top,
                right < other.right ? right : other.right, bottom < other.bottom ? bottom : other.bottom};
    }
    constexpr bool intersects(const Rect& other) const { return !intersect(other).empty(); }
    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace platform
