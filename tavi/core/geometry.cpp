#include "tavi/core/geometry.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace tavi {

Rect intersection(const Rect& a, const Rect& b) {
    const Rect both =
        rectBetween(std::max(a.x, b.x), std::max(a.y, b.y), std::min(int64_t{a.x} + a.width, int64_t{b.x} + b.width),
                    std::min(int64_t{a.y} + a.height, int64_t{b.y} + b.height));
    return both.empty() ? Rect{} : both;
}

Rect unionOf(const Rect& a, const Rect& b) {
    if (a.empty() || b.empty()) {
        return b.empty() ? (a.empty() ? Rect{} : a) : b;
    }
    return rectBetween(std::min(a.x, b.x), std::min(a.y, b.y), std::max(int64_t{a.x} + a.width, int64_t{b.x} + b.width),
                       std::max(int64_t{a.y} + a.height, int64_t{b.y} + b.height));
}

Rect unionOf(const std::vector<Rect>& rects) {
    Rect all;
    for (const Rect& rect : rects) {
        all = unionOf(all, rect);
    }
    return all;
}

int64_t resolve(const RelativeLength& length, int32_t extent) {
    const double fraction = std::isnan(length.fraction) ? 0.0 : std::clamp(length.fraction, -1.0, 2.0);
    // std::llround rounds half away from zero.
    return std::llround(fraction * extent) + length.offset;
}

std::wstring describe(const Rect& rect) {
    return L"(" + std::to_wstring(rect.x) + L", " + std::to_wstring(rect.y) + L", " + describe(rect.size()) + L")";
}

std::wstring describe(Point point) {
    return L"(" + std::to_wstring(point.x) + L", " + std::to_wstring(point.y) + L")";
}

std::wstring describe(Size size) {
    return std::to_wstring(size.width) + L"x" + std::to_wstring(size.height);
}

std::wstring describeAnchors(uint32_t anchors) {
    constexpr std::pair<Anchor, std::wstring_view> kNames[] = {
        {kAnchorLeft, L"Left"}, {kAnchorTop, L"Top"}, {kAnchorRight, L"Right"}, {kAnchorBottom, L"Bottom"}};
    std::wstring text;
    for (const auto& [anchor, name] : kNames) {
        if (anchors & anchor) {
            text.append(text.empty() ? L"" : L",").append(name);
        }
    }
    return text.empty() ? L"None" : text;
}

}  // namespace tavi
