// The value types that the whole framework measures in: whole design pixels (1/96 inch; the window scales them to its
// monitor, see scale.h), signed 32-bit, y downwards. Sums and differences saturate at the ends of that range instead of
// overflowing, so geometry from outside can be absurd but never undefined.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tavi {

// The nearest 32-bit number.
constexpr int32_t saturate(int64_t value) {
    constexpr int64_t kLowest = std::numeric_limits<int32_t>::min();
    constexpr int64_t kHighest = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(value < kLowest ? kLowest : value > kHighest ? kHighest : value);
}

struct Point {
    int32_t x = 0;
    int32_t y = 0;

    bool operator==(const Point&) const = default;
};

constexpr Point operator+(Point a, Point b) {
    return {saturate(int64_t{a.x} + b.x), saturate(int64_t{a.y} + b.y)};
}

constexpr Point operator-(Point a, Point b) {
    return {saturate(int64_t{a.x} - b.x), saturate(int64_t{a.y} - b.y)};
}

struct Size {
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const Size&) const = default;
    constexpr bool positive() const { return width > 0 && height > 0; }
};

// The larger of both on each axis.
constexpr Size larger(Size a, Size b) {
    return {a.width > b.width ? a.width : b.width, a.height > b.height ? a.height : b.height};
}

struct Rect {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const Rect&) const = default;
    // No area: nothing is laid out in it, painted or hit.
    constexpr bool empty() const { return width <= 0 || height <= 0; }
    // The first column and row beyond it.
    constexpr int32_t right() const { return saturate(int64_t{x} + width); }
    constexpr int32_t bottom() const { return saturate(int64_t{y} + height); }
    constexpr Point position() const { return {x, y}; }
    constexpr Size size() const { return {width, height}; }
    // The same extent with its corner at the origin.
    constexpr Rect local() const { return {0, 0, width, height}; }
    constexpr Rect offset(Point by) const {
        return {saturate(int64_t{x} + by.x), saturate(int64_t{y} + by.y), width, height};
    }
    constexpr bool contains(Point point) const {
        return point.x >= x && point.y >= y && int64_t{point.x} < int64_t{x} + width &&
               int64_t{point.y} < int64_t{y} + height;
    }
    // Every pixel of `other` is in this one. An empty rectangle is in none.
    constexpr bool contains(const Rect& other) const {
        return !other.empty() && other.x >= x && other.y >= y && other.right() <= right() && other.bottom() <= bottom();
    }
};

// From the first column and row to the first ones beyond; empty when they are swapped.
constexpr Rect rectBetween(int64_t left, int64_t top, int64_t right, int64_t bottom) {
    return {saturate(left), saturate(top), saturate(right > left ? right - left : 0),
            saturate(bottom > top ? bottom - top : 0)};
}

// The pixels that are in both; {} when there are none.
Rect intersection(const Rect& a, const Rect& b);

// The smallest rectangle around both. An empty one adds nothing.
Rect unionOf(const Rect& a, const Rect& b);
Rect unionOf(const std::vector<Rect>& rects);

// A share of an extent and pixels added to it. The share counts from -1 to 2: a constraint reaches at most one extent
// of the parent before its origin and two beyond it.
struct RelativeLength {
    double fraction = 0.0;
    int32_t offset = 0;

    bool operator==(const RelativeLength&) const = default;
};

// The length in pixels of `extent`: the share of it, rounded half away from zero, then the offset. A fraction that is
// not a number counts as 0.
int64_t resolve(const RelativeLength& length, int32_t extent);

// The edges of its parent that a control keeps its distance from; flags.
enum Anchor : uint32_t { kAnchorNone = 0, kAnchorLeft = 1, kAnchorTop = 2, kAnchorRight = 4, kAnchorBottom = 8 };

// Texts of diagnostic lines: "(10, 20, 300x40)", "(10, 20)", "300x40", "Left,Right" or "None".
std::wstring describe(const Rect& rect);
std::wstring describe(Point point);
std::wstring describe(Size size);
std::wstring describeAnchors(uint32_t anchors);

}  // namespace tavi
