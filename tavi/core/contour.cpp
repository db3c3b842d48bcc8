#include "tavi/core/contour.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

namespace tavi {
namespace {

// A stretch of one row of the shape, from its first column to the first one beyond.
struct Interval {
    int32_t from;
    int32_t to;
};

// The shape between two neighbouring horizontal edges of its rectangles: disjoint intervals from left to right.
struct Row {
    int32_t top;
    int32_t bottom;
    std::vector<Interval> intervals;
};

std::vector<Interval> intervalsAt(const std::vector<Rect>& contour, int32_t top, int32_t bottom) {
    std::vector<Interval> found;
    for (const Rect& rect : contour) {
        if (!rect.empty() && rect.y <= top && rect.bottom() >= bottom) {
            found.push_back({rect.x, rect.right()});
        }
    }
    std::ranges::sort(found, {}, &Interval::from);
    std::vector<Interval> joined;
    for (const Interval& each : found) {
        if (!joined.empty() && each.from <= joined.back().to) {
            joined.back().to = std::max(joined.back().to, each.to);
        } else {
            joined.push_back(each);
        }
    }
    return joined;
}

std::vector<Row> rowsOf(const std::vector<Rect>& contour) {
    std::vector<int32_t> edges;
    for (const Rect& rect : contour) {
        if (!rect.empty()) {
            edges.push_back(rect.y);
            edges.push_back(rect.bottom());
        }
    }
    std::ranges::sort(edges);
    const auto repeated = std::ranges::unique(edges);
    edges.erase(repeated.begin(), repeated.end());
    std::vector<Row> rows;
    for (size_t i = 0; i + 1 < edges.size(); ++i) {
        rows.push_back({edges[i], edges[i + 1], intervalsAt(contour, edges[i], edges[i + 1])});
    }
    return rows;
}

std::vector<Interval> inBoth(const std::vector<Interval>& a, const std::vector<Interval>& b) {
    std::vector<Interval> both;
    for (size_t i = 0, j = 0; i < a.size() && j < b.size();) {
        const Interval shared{std::max(a[i].from, b[j].from), std::min(a[i].to, b[j].to)};
        if (shared.from < shared.to) {
            both.push_back(shared);
        }
        ++(a[i].to < b[j].to ? i : j);
    }
    return both;
}

// `wanted` cut down to the room and moved into it.
Rect movedInto(const Rect& wanted, const Rect& room) {
    const int32_t width = std::min(wanted.width, room.width);
    const int32_t height = std::min(wanted.height, room.height);
    return {std::clamp(wanted.x, room.x, room.right() - width), std::clamp(wanted.y, room.y, room.bottom() - height),
            width, height};
}

// Smaller is better: lost area, then distance moved.
auto cost(const Rect& wanted, const Rect& candidate) {
    const auto area = [](const Rect& rect) { return int64_t{rect.width} * rect.height; };
    return std::tuple(area(wanted) - area(candidate),
                      std::abs(int64_t{wanted.x} - candidate.x) + std::abs(int64_t{wanted.y} - candidate.y));
}

}  // namespace

std::vector<Rect> mergeRuns(const std::vector<Rect>& rects) {
    std::vector<Rect> merged;
    for (const Rect& rect : rects) {
        if (!merged.empty() && merged.back().x == rect.x && merged.back().width == rect.width &&
            merged.back().bottom() == rect.y) {
            merged.back().height = saturate(int64_t{merged.back().height} + rect.height);
        } else {
            merged.push_back(rect);
        }
    }
    return merged;
}

ContourFit fitIntoContour(const Rect& wanted, Size minimum, const std::vector<Rect>& contour) {
    const Rect all = unionOf(contour);
    if (all.empty() || wanted.empty()) {
        return {wanted, {}};
    }
    const Size least{std::min(minimum.width, wanted.width), std::min(minimum.height, wanted.height)};
    const std::vector<Row> rows = rowsOf(contour);
    std::optional<Rect> best;
    Size largest;
    // The rooms: each stretch of rows with what its rows have in common.
    for (size_t first = 0; first < rows.size(); ++first) {
        std::vector<Interval> common = rows[first].intervals;
        for (size_t last = first; last < rows.size() && !common.empty(); ++last) {
            common = inBoth(common, rows[last].intervals);
            for (const Interval& interval : common) {
                const Rect room = rectBetween(interval.from, rows[first].top, interval.to, rows[last].bottom);
                const Rect candidate = movedInto(wanted, room);
                largest = larger(largest, candidate.size());
                if (candidate.width >= least.width && candidate.height >= least.height &&
                    (!best || cost(wanted, candidate) < cost(wanted, *best))) {
                    best = candidate;
                }
            }
        }
    }
    if (best) {
        return {*best, {}};
    }
    const Axes tooSmall{largest.width < least.width, largest.height < least.height};
    return {movedInto(wanted, all), tooSmall.any() ? tooSmall : Axes{true, true}};
}

}  // namespace tavi
