#include "tavi/core/geometry.h"

#include <gtest/gtest.h>

#include "tavi/core/scale.h"
#include "tests/portable/host_stand_in.h"

namespace {

using namespace tavi;

constexpr int32_t kLowest = std::numeric_limits<int32_t>::min();
constexpr int32_t kHighest = std::numeric_limits<int32_t>::max();

TEST(TaviGeometry, EmptinessAndContainment) {
    const std::pair<Rect, bool> rects[] = {
        {{0, 0, 0, 100}, true}, {{9, 9, 5, -1}, true}, {{0, 0, -4, -4}, true}, {{-3, -3, 1, 1}, false}};
    for (const auto& [rect, empty] : rects) {
        EXPECT_EQ(rect.empty(), empty) << describe(rect).c_str();
        EXPECT_EQ(rect.contains(rect.position()), !empty);
        EXPECT_EQ(rect.contains(rect), !empty);
    }
    constexpr Rect kRect{10, 20, 30, 40};
    EXPECT_EQ(kRect.local(), (Rect{0, 0, 30, 40}));
    const std::pair<Point, bool> points[] = {{{39, 59}, true}, {{40, 59}, false}, {{39, 60}, false}, {{9, 20}, false}};
    for (const auto& [point, inside] : points) {
        EXPECT_EQ(kRect.contains(point), inside) << testing::PrintToString(point);
        EXPECT_EQ(kRect.contains(Rect{10, 20, point.x - 9, point.y - 19}), inside);
    }
}

TEST(TaviGeometry, SumsStayWithin32Bits) {
    constexpr Rect kFar{kHighest - 2, kLowest + 1, 10, -10};
    EXPECT_EQ(Point(kFar.right(), kFar.bottom()), (Point{kHighest, kLowest}));
    EXPECT_EQ(kFar.offset({kHighest, kLowest}), (Rect{kHighest, kLowest, 10, -10}));
    EXPECT_EQ(Point(kHighest, kLowest) + Point(1, -1), (Point{kHighest, kLowest}));
    EXPECT_EQ(Point(kHighest, kLowest) - Point(kLowest, kHighest), (Point{kHighest, kLowest}));
    EXPECT_TRUE(Rect(kHighest - 2, 0, 10, 10).contains(Point{kHighest, 5}));
    EXPECT_EQ(rectBetween(kLowest, 5, kHighest, 4), (Rect{kLowest, 5, kHighest, 0}));
}

TEST(TaviGeometry, IntersectionAndUnion) {
    struct Case {
        Rect a, b, both, all;
    };
    constexpr Case kCases[] = {
        {{0, 0, 10, 10}, {5, -5, 10, 10}, {5, 0, 5, 5}, {0, -5, 15, 15}},
        {{0, 0, 10, 10}, {10, 0, 5, 10}, {}, {0, 0, 15, 10}},
        {{0, 0, 10, 10}, {2, 3, 4, 5}, {2, 3, 4, 5}, {0, 0, 10, 10}},
        {{7, 7, 0, 9}, {2, 3, 4, 5}, {}, {2, 3, 4, 5}},
        {{7, 7, 0, 9}, {8, 8, 8, -1}, {}, {}},
        {{kLowest, 0, kHighest, 2}, {kHighest - 1, 1, kHighest, 2}, {}, {kLowest, 0, kHighest, 3}},
    };
    for (const Case& c : kCases) {
        for (const auto& [a, b] : {std::pair(c.a, c.b), std::pair(c.b, c.a)}) {
            EXPECT_EQ(intersection(a, b), c.both);
            EXPECT_EQ(unionOf(a, b), c.all);
        }
    }
    EXPECT_EQ(unionOf({{1, 1, 1, 1}, {}, {5, 0, 2, 2}}), (Rect{1, 0, 6, 2}));
}

// Finite ones are compared with plain rules by the tests of the layout.
TEST(TaviGeometry, RelativeLengthsThatAreNoNumbers) {
    EXPECT_EQ(resolve({std::numeric_limits<double>::infinity(), 0}, 100), 200);
    EXPECT_EQ(resolve({std::numeric_limits<double>::quiet_NaN(), 9}, 100), 9);
}

TEST(TaviGeometry, Descriptions) {
    EXPECT_EQ(describe(Rect{10, -20, 300, 40}), L"(10, -20, 300x40)");
    const std::pair<uint32_t, const wchar_t*> anchors[] = {
        {0xF0, L"None"}, {kAnchorRight | kAnchorLeft, L"Left,Right"}, {0xFF, L"Left,Top,Right,Bottom"}};
    for (const auto& [flags, text] : anchors) {
        EXPECT_EQ(describeAnchors(flags), text);
    }
}

TEST(TaviScale, EveryDevicePixelBelongsToOneDesignPixel) {
    for (const int32_t dpi : {96, 120, 144, 168, 192, 288}) {
        for (const int32_t client : {0, 1, 2, 333, 800, 801, 803}) {
            SCOPED_TRACE(testing::Message() << dpi << " dpi, client " << client);
            const Scale scale(dpi, {client, client + 1});
            EXPECT_EQ(scale.device(Point{scale.designClient().width, 0}).x, client);
            for (int32_t at = -300; at < 900; ++at) {
                const int32_t first = scale.device(Point{0, at}).y;
                const int32_t next = scale.device(Point{0, at + 1}).y;
                ASSERT_LT(first, next);
                for (int32_t pixel = first; pixel < next; ++pixel) {
                    ASSERT_EQ(scale.design(Point{0, pixel}).y, at) << pixel;
                }
                const Rect left = scale.device(Rect{at, 0, at % 7 + 8, 1});
                const Rect right = scale.device(Rect{at + at % 7 + 8, 0, 1, 1});
                ASSERT_EQ(left.right(), right.x);
            }
        }
    }
}

TEST(TaviScale, CoversLengthsAndLimits) {
    for (const int32_t dpi : {24, 72, 96, 120, 144, 168, 192, 288, 2400}) {
        const Scale scale(dpi);
        for (int32_t device = 1; device < 500; ++device) {
            const Size cover = scale.design(Size{device, device});
            ASSERT_GE(scale.device(cover).width, device) << dpi;
            ASSERT_LT(scale.device(Size{cover.width - 1, 0}).width, device) << dpi;
        }
    }
    EXPECT_EQ(Scale(24).length(1), 1);
    EXPECT_EQ(Scale(144).length(-3), -4);  // a half goes upwards
    EXPECT_EQ(Scale(0).dpi(), 24);
    EXPECT_EQ(Scale(2400).device(Point{kHighest, kLowest}), (Point{kHighest, kLowest}));
    EXPECT_EQ(Scale(24).design(Point{kHighest, kLowest}), (Point{kHighest, kLowest}));
}

}  // namespace
