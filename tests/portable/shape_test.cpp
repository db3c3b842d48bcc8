#include "tavi/theme/shape.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavi {
namespace {

using enum ButtonShape;

// Figures worked out by hand from the rules of each shape.
TEST(Shape, InsideFigures) {
    struct Row {
        ButtonShape shape;
        int width, height, x, y;
        bool inside;
    };
    const Row rows[] = {
        {kRectangle, 3, 2, 0, 0, true},        {kRectangle, 3, 2, 2, 1, true},
        {kRectangle, 3, 2, 3, 1, false},       {kRectangle, 3, 2, -1, 0, false},
        {kRectangle, 3, 2, 0, -1, false},      {kRectangle, 3, 2, 0, 2, false},
        {kRectangle, 0, 2, 0, 0, false},       {kRoundedRect, 1, 1, 0, 0, true},
        {kRoundedRect, 40, 40, 0, 0, false},   {kRoundedRect, 40, 40, 2, 2, false},
        {kRoundedRect, 40, 40, 3, 3, true},    {kRoundedRect, 40, 40, 10, 0, true},
        {kRoundedRect, 30, 90, 0, 3, false},   {kRoundedRect, 30, 90, 0, 4, true},
        {kRoundedRect, 200, 200, 3, 3, false}, {kRoundedRect, 200, 200, 4, 4, true},
        {kCapsule, 40, 20, 10, 0, true},       {kCapsule, 40, 20, 9, 0, false},
        {kCapsule, 40, 20, 0, 10, true},       {kCapsule, 40, 20, 0, 9, false},
        {kCapsule, 40, 20, 39, 10, true},      {kCapsule, 20, 40, 0, 10, true},
        {kCapsule, 20, 40, 0, 9, false},       {kCapsule, 20, 40, 10, 0, true},
        {kCapsule, 1, 1, 0, 0, true},          {kDiamond, 5, 5, 2, 0, true},
        {kDiamond, 5, 5, 1, 0, false},         {kDiamond, 5, 5, 1, 1, true},
        {kDiamond, 5, 5, 4, 2, true},          {kDiamond, 1, 1, 0, 0, true},
        {kBeveled, 100, 30, 0, 0, false},      {kBeveled, 100, 30, 6, 0, true},
        {kBeveled, 100, 30, 0, 6, true},       {kBeveled, 100, 30, 99, 0, false},
        {kBeveled, 100, 30, 93, 0, true},      {kBeveled, 100, 30, 0, 29, false},
        {kBeveled, 100, 30, 99, 23, true},     {kOctagon, 30, 30, 4, 4, false},
        {kOctagon, 30, 30, 5, 5, true},        {kOctagon, 30, 30, 25, 25, false},
        {kOctagon, 30, 30, 24, 24, true},      {kHexagon, 40, 20, 9, 0, false},
        {kHexagon, 40, 20, 10, 0, true},       {kHexagon, 40, 20, 29, 0, true},
        {kHexagon, 40, 20, 30, 0, false},      {kHexagon, 40, 20, 0, 9, false},
        {kHexagon, 40, 20, 1, 9, true},        {kSlantRight, 40, 20, 9, 0, false},
        {kSlantRight, 40, 20, 10, 0, true},    {kSlantRight, 40, 20, 39, 0, true},
        {kSlantRight, 40, 20, 0, 19, true},    {kSlantRight, 40, 20, 29, 19, true},
        {kSlantRight, 40, 20, 30, 19, false},  {kSlantLeft, 40, 20, 0, 0, true},
        {kSlantLeft, 40, 20, 29, 0, true},     {kSlantLeft, 40, 20, 30, 0, false},
        {kSlantLeft, 40, 20, 9, 19, false},    {kSlantLeft, 40, 20, 10, 19, true},
        {kSlantLeft, 40, 1, 0, 0, true},       {kSlantRight, 40, 1, 0, 0, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(insideShape(row.shape, row.width, row.height, row.x, row.y), row.inside)
            << "shape " << static_cast<int>(row.shape) << " " << row.width << "x" << row.height << " at " << row.x
            << ", " << row.y;
    }
    EXPECT_TRUE(insideShape(static_cast<ButtonShape>(99), 3, 3, 0, 0));
}

// The same shape with its axes swapped or mirrored has the same pixels, but for a capsule, whose ends are asked half a
// pixel off their middle.
bool mirrored(ButtonShape shape, int width, int height, int x, int y, bool isInside) {
    if (shape == kCapsule) {
        return width == height || isInside == insideShape(shape, height, width, y, x);
    }
    const ButtonShape other = shape == kSlantRight ? kSlantLeft : shape == kSlantLeft ? kSlantRight : shape;
    return isInside == insideShape(other, width, height, width - 1 - x, y) &&
           (height == 1 || isInside == insideShape(other, width, height, x, height - 1 - y));
}

// Whether coverage, spans and promises agree with the inside test, pixel by pixel. The first pixel where they do not.
std::string faultAt(ButtonShape shape, int width, int height) {
    const ShapeOutline outline(shape, width, height);
    std::vector<float> row(static_cast<size_t>(width));
    const Span straight = outline.straightRows();
    for (int y = 0; y < height; ++y) {
        const Span inside = outline.insideSpan(y);
        const Span deep = outline.deepSpan(y, 2.5F);
        const Span full = outline.deepSpan(y, 0.5F);
        outline.distances(0, y, width, row.data());
        for (int x = 0; x < width; ++x) {
            const bool isInside = insideShape(shape, width, height, x, y);
            const float distance = row[static_cast<size_t>(x)];
            const uint8_t coverage = outline.coverageAt(distance, x, y);
            const char* const fault = isInside != (x >= inside.begin && x < inside.end)            ? "inside span"
                                      : isInside != (coverage >= 128)                              ? "coverage"
                                      : x >= deep.begin && x < deep.end && distance > -2.49F       ? "deep span"
                                      : x >= full.begin && x < full.end && coverage != 255         ? "full span"
                                      : y >= straight.begin && y < straight.end && coverage != 255 ? "straight rows"
                                      : !mirrored(shape, width, height, x, y, isInside)            ? "symmetry"
                                      : x % 7 == 0 && outline.distance(x, y) != distance           ? "distance"
                                                                                                   : nullptr;
            if (fault != nullptr) {
                return std::string(fault) + " of shape " + std::to_string(static_cast<int>(shape)) + " " +
                       std::to_string(width) + "x" + std::to_string(height) + " at " + std::to_string(x) + ", " +
                       std::to_string(y);
            }
        }
    }
    return {};
}

TEST(Shape, CoverageFollowsTheInsideTestAtEverySize) {
    for (int number = 0; number < kButtonShapeCount; ++number) {
        const auto shape = static_cast<ButtonShape>(number);
        for (int width = 1; width <= 64; ++width) {
            for (int height = 1; height <= 64; ++height) {
                ASSERT_EQ(faultAt(shape, width, height), "");
            }
        }
        ASSERT_EQ(faultAt(shape, 400, 37), "");
        ASSERT_EQ(faultAt(shape, 37, 400), "");
    }
}

// Where a smooth edge is a straight line or an arc, coverage is the area of the pixel that lies inside.
TEST(Shape, CoverageIsTheAreaInside) {
    EXPECT_EQ(ShapeOutline(kRectangle, 9, 9).coverage(0, 0), 255);
    EXPECT_EQ(ShapeOutline(kRectangle, 9, 9).coverage(-1, 4), 0);
    double area = 0;
    const ShapeOutline rounded(kRoundedRect, 100, 100);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            area += rounded.coverage(x, y) / 255.0;
        }
    }
    EXPECT_NEAR(area, 144 * 3.14159265 / 4, 0.6);
}

TEST(Shape, NothingHasNoInside) {
    for (int shape = 0; shape < kButtonShapeCount; ++shape) {
        const ShapeOutline nothing(static_cast<ButtonShape>(shape), 0, 5);
        EXPECT_TRUE(nothing.insideSpan(0).empty());
        EXPECT_EQ(nothing.coverage(0, 0) >= 128, false);
    }
}

}  // namespace
}  // namespace tavi
