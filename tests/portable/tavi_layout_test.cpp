#include "tavi/core/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tavi/core/contour.h"
#include "tavi/core/overlap.h"
#include "tests/portable/host_stand_in.h"

namespace {

using namespace tavi;

constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();
constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();
using Length = std::optional<RelativeLength>;

TEST(TaviLayout, NeededExtent) {
    constexpr Rect kBase{20, 30, 100, 40};
    struct Case {
        uint32_t anchors;
        Size design, needed;
    };
    constexpr Case kCases[] = {
        {kAnchorNone, {300, 200}, {70, 90}},
        {kAnchorLeft | kAnchorRight | kAnchorBottom, {300, 200}, {250, 190}},
        {kAnchorRight | kAnchorTop | kAnchorBottom, {300, 200}, {230, 220}},
        {0xF, {0, 50}, {70, 90}},
        {0xF, {kHighest, 71}, {kHighest - 50, 91}},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(neededExtent(kBase, c.design, c.anchors, {50, 60}), c.needed) << describeAnchors(c.anchors).c_str();
    }
    EXPECT_EQ(captureDesignParent(kBase, {110, 80}), (Size{120, 80}));
    EXPECT_EQ(captureDesignParent({kHighest, kLowest, kHighest, -1}, {110, 80}), (Size{kHighest, 80}));
}

// The rules in plain words, one axis at a time. Nothing here can overflow: all numbers have at most 35 bits.
struct Plain {
    int64_t position, size;
    bool clamped = false, fitted = false, minimumCannotFit = false;
};

Plain plainly(int64_t base, int64_t length, int64_t design, int64_t parent, int64_t minimum, bool nearAnchor,
              bool farAnchor, const Length& near, const Length& far, const Length& center,
              const std::optional<int32_t>& fixed) {
    const auto at = [&](const Length& relative) {
        const double fraction = relative->fraction < -1.0 ? -1.0 : relative->fraction > 2.0 ? 2.0 : relative->fraction;
        const double exact = fraction * static_cast<double>(parent);
        const double rounded = exact < 0 ? -std::floor(-exact + 0.5) : std::floor(exact + 0.5);
        return static_cast<int64_t>(rounded) + relative->offset;
    };
    const int64_t kept = length > 0 ? length : 0;
    const int64_t given = fixed.value_or(0) > 0 ? fixed.value_or(0) : 0;
    bool growsBack = farAnchor && !nearAnchor;
    bool centered = false;
    Plain plain{base, length};
    if (near && far) {
        const int64_t one = at(near);
        const int64_t other = at(far);
        plain = other < one ? Plain{other, one - other} : Plain{one, other - one};
    } else if (near && fixed) {
        plain = {at(near), given};
    } else if (far && fixed) {
        plain = {at(far) - given, given};
        growsBack = true;
    } else if (center && fixed) {
        plain = {at(center) - given / 2, given};
        centered = true;
    } else if (near) {
        plain = {at(near), kept};
    } else if (far) {
        plain = {at(far) - kept, kept};
        growsBack = true;
    } else if (center) {
        plain = {at(center) - kept / 2, kept};
        centered = true;
    } else if (fixed) {
        plain = {base, given};
    } else if (nearAnchor && farAnchor) {
        plain.size = parent - base - (design - (base + length));
    } else if (farAnchor) {
        plain.position = parent - (design - (base + length)) - length;
    }
    if (plain.size < minimum) {
        if (growsBack) {
            plain.position -= minimum - plain.size;
        } else if (centered) {
            plain.position -= (minimum - plain.size) / 2;
        }
        plain.size = minimum;
        plain.clamped = true;
    }
    const int64_t unfitted = plain.position;
    if (plain.size > parent) {
        plain.minimumCannotFit = minimum > parent;
        plain.position = 0;
        plain.size = parent;
        plain.fitted = true;
    } else if (plain.position < 0) {
        plain.position = 0;
    } else if (plain.position > parent - plain.size) {
        plain.position = parent - plain.size;
    }
    plain.fitted = plain.fitted || plain.position != unfitted;
    return plain;
}

TEST(TaviLayout, RandomRequestsAgainstPlainRules) {
    std::mt19937 random(42);
    constexpr int32_t kLimits[] = {kLowest, kLowest + 1, -1, 0, 1, kHighest - 1, kHighest};
    const auto number = [&](int32_t from, int32_t to) {
        return random() % 16 == 0 ? kLimits[random() % std::size(kLimits)]
                                  : from + static_cast<int32_t>(random() % static_cast<uint32_t>(to - from));
    };
    const auto length = [&]() -> Length {
        const double fraction = static_cast<double>(number(-150, 250)) / (random() % 2 ? 100.0 : 64.0);
        return random() % 2 ? Length(RelativeLength{fraction, number(-50, 50)}) : Length();
    };
    const auto fixed = [&] { return random() % 2 ? std::optional(number(-50, 300)) : std::nullopt; };
    for (int round = 0; round < 50000; ++round) {
        const Constraints c{length(), length(), length(), length(), length(), length(), fixed(), fixed()};
        const LayoutRequest r{
            .base = {number(-100, 400), number(-100, 400), number(-20, 400), number(-20, 400)},
            .designParent = {number(-10, 500), number(-10, 500)},
            .anchors = static_cast<uint32_t>(random() % 16),
            .constraints = random() % 3 ? &c : nullptr,
            .minimum = {std::max(number(-100, 100), 0), std::max(number(-100, 100), 0)},
            .parentArea = {number(-9, 9), number(-9, 9), std::max(number(1, 400), 1), std::max(number(1, 400), 1)}};
        const Constraints used = r.constraints ? c : Constraints{};
        const Plain x =
            plainly(r.base.x, r.base.width, r.designParent.width, r.parentArea.width, r.minimum.width,
                    r.anchors & kAnchorLeft, r.anchors & kAnchorRight, used.left, used.right, used.centerX, used.width);
        const Plain y = plainly(r.base.y, r.base.height, r.designParent.height, r.parentArea.height, r.minimum.height,
                                r.anchors & kAnchorTop, r.anchors & kAnchorBottom, used.top, used.bottom, used.centerY,
                                used.height);
        const LayoutResult result = placeControl(r);
        ASSERT_EQ(result.bounds, (Rect{saturate(r.parentArea.x + x.position), saturate(r.parentArea.y + y.position),
                                       saturate(x.size), saturate(y.size)}))
            << round;
        ASSERT_EQ(result.clamped, (Axes{x.clamped, y.clamped})) << round;
        ASSERT_EQ(result.fitted, (Axes{x.fitted, y.fitted})) << round;
        ASSERT_EQ(result.minimumCannotFit, (Axes{x.minimumCannotFit, y.minimumCannotFit})) << round;
    }
}

TEST(TaviContour, MergedRuns) {
    const std::pair<std::vector<Rect>, std::vector<Rect>> cases[] = {
        {{}, {}},
        {{{0, 0, 5, 1}, {0, 1, 5, 2}, {0, 3, 5, 1}}, {{0, 0, 5, 4}}},
        {{{0, 0, 5, 1}, {1, 1, 4, 1}, {1, 2, 4, 1}}, {{0, 0, 5, 1}, {1, 1, 4, 2}}},
        {{{0, 0, 5, 1}, {0, 2, 5, 1}, {0, 1, 5, 1}}, {{0, 0, 5, 1}, {0, 2, 5, 1}, {0, 1, 5, 1}}},
        {{{0, 0, 5, kHighest}, {0, kHighest, 5, 9}}, {{0, 0, 5, kHighest}}},
    };
    for (const auto& [rects, merged] : cases) {
        EXPECT_EQ(mergeRuns(rects), merged);
    }
}

constexpr int32_t kGrid = 7;

Rect randomRect(std::mt19937& random, int32_t extent) {
    const auto below = [&](int32_t end) { return static_cast<int32_t>(random() % static_cast<uint32_t>(end)); };
    const Point at{below(extent), below(extent)};
    return {at.x, at.y, below(extent - at.x + 1), below(extent - at.y + 1)};
}

// Every rectangle of the grid that lies in the shape and is at least `least` large.
std::vector<Rect> roomsOf(const std::vector<Rect>& shape, Size least, Size most) {
    const auto covered = [&](const Rect& room) {
        for (int32_t i = 0; i < room.width * room.height; ++i) {
            const Point point{room.x + i % room.width, room.y + i / room.width};
            if (std::ranges::none_of(shape, [&](const Rect& rect) { return rect.contains(point); })) {
                return false;
            }
        }
        return true;
    };
    std::vector<Rect> rooms;
    for (int32_t at = 0; at < kGrid * kGrid; ++at) {
        for (int32_t width = std::max(least.width, 1); width <= most.width; ++width) {
            for (int32_t height = std::max(least.height, 1); height <= most.height; ++height) {
                if (const Rect room{at % kGrid, at / kGrid, width, height}; covered(room)) {
                    rooms.push_back(room);
                }
            }
        }
    }
    return rooms;
}

TEST(TaviContour, FitsLikeASearchOfEveryRoom) {
    std::mt19937 random(42);
    int without = 0;
    for (int round = 0; round < 3000; ++round) {
        std::vector<Rect> shape(1 + random() % 3);
        std::ranges::generate(shape, [&] { return randomRect(random, kGrid); });
        const Rect wanted = randomRect(random, kGrid);
        const Size minimum{static_cast<int32_t>(random() % 4), static_cast<int32_t>(random() % 4)};
        const ContourFit fit = fitIntoContour(wanted, minimum, shape);
        SCOPED_TRACE(testing::PrintToString(shape) + " " + testing::PrintToString(wanted));
        if (wanted.empty() || unionOf(shape).empty()) {
            ASSERT_EQ(fit.bounds, wanted);
            continue;
        }
        const Size least{std::min(minimum.width, wanted.width), std::min(minimum.height, wanted.height)};
        const auto cost = [&](const Rect& room) {
            return (wanted.width * wanted.height - room.width * room.height) * 100 + std::abs(room.x - wanted.x) +
                   std::abs(room.y - wanted.y);
        };
        const std::vector<Rect> rooms = roomsOf(shape, least, wanted.size());
        if (rooms.empty()) {
            const Axes tooSmall{roomsOf(shape, {least.width, 1}, wanted.size()).empty(),
                                roomsOf(shape, {1, least.height}, wanted.size()).empty()};
            ASSERT_EQ(fit.minimumCannotFit, (tooSmall.any() ? tooSmall : Axes{true, true}));
            ASSERT_TRUE(unionOf(shape).contains(fit.bounds));
            ++without;
            continue;
        }
        ASSERT_FALSE(fit.minimumCannotFit.any());
        ASSERT_TRUE(std::ranges::contains(rooms, fit.bounds)) << testing::PrintToString(fit.bounds);
        ASSERT_EQ(cost(fit.bounds), cost(*std::ranges::min_element(rooms, {}, cost)));
    }
    EXPECT_GT(without, 50);
}

TEST(TaviOverlap, TheSameAsComparingEachWithEach) {
    std::mt19937 random(42);
    for (int round = 0; round < 2000; ++round) {
        std::vector<Rect> rects(random() % 9);
        const Point corner = round % 2 ? Point{kHighest - 10, kHighest - 10} : Point{};
        std::ranges::generate(rects, [&] { return randomRect(random, 15).offset(corner); });
        std::vector<std::pair<size_t, size_t>> expected;
        for (size_t first = 0; first < rects.size(); ++first) {
            for (size_t second = first + 1; second < rects.size(); ++second) {
                if (!intersection(rects[first], rects[second]).empty()) {
                    expected.emplace_back(first, second);
                }
            }
        }
        ASSERT_EQ(overlappingPairs(rects), expected) << testing::PrintToString(rects);
    }
}

}  // namespace
