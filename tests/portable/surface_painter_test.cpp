#include "tavi/theme/surface_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "surface_reference.h"
#include "tavi/theme/paint_limits.h"
#include "tavi/theme/shape.h"
#include "tavi/theme/skin_styles.h"

namespace tavi {
namespace {

constexpr PerformanceProfile kBest = PerformanceProfile::kBestGraphics;

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    int upTo(int most) { return static_cast<int>(engine_() % (static_cast<unsigned>(most) + 1)); }
    int between(int least, int most) { return least + upTo(most - least); }
    bool yes() { return upTo(1) == 1; }
    Color color() { return engine_() & 0xFFFFFF; }
    uint8_t byte() { return static_cast<uint8_t>(upTo(255)); }

private:
    std::mt19937 engine_;
};

SurfaceStyle randomStyle(Random& random) {
    SurfaceStyle style;
    style.shape = static_cast<ButtonShape>(random.upTo(kButtonShapeCount - 1));
    for (Color* color : {&style.fill, &style.border, &style.shadow, &style.glow, &style.outline, &style.noise,
                         &style.gradientStart, &style.gradientMid, &style.gradientEnd, &style.innerShadowColor}) {
        *color = random.color();
    }
    for (bool* flag : {&style.drawBorder, &style.showShadow, &style.showInnerShadow, &style.showGlow,
                       &style.showOutline, &style.useGradient, &style.useGradientMid, &style.useNoise}) {
        *flag = random.yes();
    }
    style.drawFill = random.upTo(7) > 0;
    style.opacity = random.yes() ? 255 : random.byte();
    style.shadowOpacity = random.byte();
    style.glowOpacity = random.byte();
    style.noiseOpacity = random.byte();
    style.shadowOffsetX = random.between(-6, 6);
    style.shadowOffsetY = random.between(-6, 6);
    style.glowRadius = random.upTo(14);
    style.outlineWidth = random.upTo(4);
    style.borderWidth = random.between(1, 4);
    style.gradientKind = static_cast<GradientKind>(random.upTo(kGradientKindCount - 1));
    style.gradientDirection = static_cast<GradientDirection>(random.upTo(kGradientDirectionCount - 1));
    style.noiseSeed = random.upTo(1000);
    style.tuning.innerShadow = random.byte();
    style.tuning.innerShadowSize = random.upTo(12);
    return style;
}

PixelBuffer ground(Size size) {
    PixelBuffer buffer(size);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            buffer.view().row(y)[x] =
                premultiplied(rgb(x * 3 & 255, y * 5 & 255, (x + y) & 255), (x / 8 + y / 8) % 2 ? 255 : 90);
        }
    }
    return buffer;
}

// The largest difference of a channel.
int difference(const PixelBuffer& a, const PixelBuffer& b) {
    int largest = 0;
    for (size_t i = 0; i < a.pixels().size(); ++i) {
        for (int shift = 0; shift < 32; shift += 8) {
            largest = std::max(largest, std::abs(static_cast<int>(a.pixels()[i] >> shift & 255) -
                                                 static_cast<int>(b.pixels()[i] >> shift & 255)));
        }
    }
    return largest;
}

// Each layer rounds to whole levels where the reference does not, and a gradient comes from a table of 512 colors.
constexpr int kTolerance = 5;

TEST(SurfacePainter, EqualsTheReference) {
    Random random(7);
    for (int round = 0; round < 600; ++round) {
        const SurfaceStyle style = randomStyle(random);
        const Size size{random.between(1, 90), random.between(1, 60)};
        const Rect area{random.between(-20, 60), random.between(-20, 40), random.between(1, 80), random.between(1, 50)};
        PixelBuffer painted = ground(size);
        PixelBuffer expected = painted;
        paintSurface(painted.view(), area, style, kBest);
        paintReference(expected.view(), area, style);
        // The middle of a conic gradient has no angle.
        const Point middle{area.x + area.width / 2, area.y + area.height / 2};
        if (style.gradientKind == GradientKind::kConic && painted.view().part({middle.x, middle.y, 1, 1}).width > 0) {
            expected.view().row(middle.y)[middle.x] = painted.row(middle.y)[middle.x];
        }
        ASSERT_LE(difference(painted, expected), kTolerance)
            << "round " << round << " shape " << static_cast<int>(style.shape) << " kind "
            << static_cast<int>(style.gradientKind) << " " << area.width << "x" << area.height;
    }
}

// What is cut off at the edge of a target, or painted in parts, is what would be there anyway.
TEST(SurfacePainter, PaintsPartsAsTheWhole) {
    Random random(11);
    for (int round = 0; round < 100; ++round) {
        const SurfaceStyle style = randomStyle(random);
        const Rect area{12, 9, random.between(1, 60), random.between(1, 40)};
        PixelBuffer whole = ground({90, 60});
        PixelBuffer parts = whole;
        paintSurface(whole.view(), area, style, kBest);
        for (const Rect& tile : {Rect{0, 0, 31, 60}, Rect{31, 0, 59, 23}, Rect{31, 23, 59, 37}}) {
            paintSurface(parts.view().part(tile), area.offset({-tile.x, -tile.y}), style, kBest);
        }
        ASSERT_LE(difference(whole, parts), 1) << "round " << round;
    }
}

TEST(SurfacePainter, PaintsNothingBeyondItsMargins) {
    Random random(13);
    for (int round = 0; round < 200; ++round) {
        const SurfaceStyle style = randomStyle(random);
        const Rect area{45, 40, random.between(1, 40), random.between(1, 30)};
        const SurfaceMargins margins = surfaceMargins(style);
        const Rect reached = rectBetween(area.x - margins.left, area.y - margins.top, area.right() + margins.right,
                                         area.bottom() + margins.bottom);
        PixelBuffer buffer({140, 120});
        paintSurface(buffer.view(), area, style, kBest);
        for (int y = 0; y < 120; ++y) {
            for (int x = 0; x < 140; ++x) {
                ASSERT_TRUE(buffer.row(y)[x] == 0 || reached.contains(Point{x, y})) << "round " << round;
            }
        }
    }
}

TEST(SurfacePainter, LeavesTheTargetAloneWithoutAnArea) {
    const PixelBuffer before = ground({20, 20});
    SurfaceStyle style;
    style.fill = 0xFFFFFF;
    style.showGlow = style.showShadow = true;
    for (const Rect& area :
         {Rect{5, 5, 0, 9}, Rect{5, 5, 9, -1}, Rect{2'000'000'000, 5, 9, 9}, Rect{0, 0, 2'000'000'000, 9}}) {
        PixelBuffer buffer = before;
        paintSurface(buffer.view(), area, style, kBest);
        paintSegmentedSurface(buffer.view(), {area}, style, kBest);
        EXPECT_FALSE(paintMaterial(buffer.view(), area, {}, style, kBest));
        EXPECT_EQ(buffer, before);
    }
    paintSegmentedSurface(PixelView{}, {{0, 0, 9, 9}}, style, kBest);
    paintSurface(PixelView{}, {0, 0, 9, 9}, style, kBest);
}

// A skin may write any length; none makes painting slow or reaches out of the buffer.
TEST(SurfacePainter, BoundsAbsurdLengths) {
    PixelBuffer buffer({40, 30});
    for (const int length : {INT32_MIN, -1, 0, INT32_MAX}) {
        SurfaceStyle style;
        style.showShadow = style.showGlow = style.showOutline = style.showInnerShadow = style.useNineSlice = true;
        style.shadowOffsetX = style.shadowOffsetY = style.glowRadius = style.outlineWidth = length;
        style.borderWidth = style.tuning.innerShadowSize = length;
        style.nineSlice = {length, length, length, length};
        const PixelBuffer picture = ground({3, 2});
        paintSurface(buffer.view(), {5, 5, 20, 10}, style, kBest, &picture);
        EXPECT_LE(surfaceMargins(style).left, 256 + 24);
    }
}

TEST(SurfacePainter, SegmentsAreOneSurface) {
    SurfaceStyle style;
    style.shape = ButtonShape::kCapsule;
    style.useGradient = true;
    style.gradientDirection = GradientDirection::kHorizontal;
    style.gradientStart = 0x0000FF;
    style.gradientEnd = 0xFF0000;
    style.opacity = 128;
    PixelBuffer whole({100, 24});
    PixelBuffer segments({100, 24});
    paintSurface(whole.view(), {2, 2, 96, 20}, style, kBest);
    // The last two overlap, and one lies twice.
    paintSegmentedSurface(segments.view(), {{66, 2, 32, 20}, {2, 2, 30, 20}, {34, 2, 34, 20}, {34, 2, 34, 20}}, style,
                          kBest);
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 100; ++x) {
            const bool inGap = x >= 32 && x < 34;
            ASSERT_EQ(segments.row(y)[x], inGap ? 0 : whole.row(y)[x]) << x << ", " << y;
        }
    }
}

// Corners keep their size, edges stretch along one axis, the middle along both.
TEST(SurfacePainter, SlicesAPictureIntoNine) {
    PixelBuffer picture({9, 9});
    const Color colors[3][3] = {
        {0x0000FF, 0x00FF00, 0xFF0000}, {0x00FFFF, 0xFFFFFF, 0xFF00FF}, {0x112233, 0xFFFF00, 0x808080}};
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            picture.view().row(y)[x] = premultiplied(colors[y / 3][x / 3], 255);
        }
    }
    SurfaceStyle style;
    style.drawFill = style.drawBorder = false;
    style.useNineSlice = true;
    style.nineSlice = {3, 3, 3, 3};
    PixelBuffer buffer({60, 40});
    paintSurface(buffer.view(), {0, 0, 60, 40}, style, kBest, &picture);
    const int places[3][2] = {{1, 1}, {30, 20}, {58, 38}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_EQ(buffer.row(places[row][1])[places[column][0]], premultiplied(colors[row][column], 255));
        }
    }
    // A part of the picture, and one that is none: all of it.
    style.useNineSlice = false;
    style.geometry = L"3, 0 3,3";
    paintSurface(buffer.view(), {0, 0, 60, 40}, style, kBest, &picture);
    EXPECT_EQ(buffer.row(20)[30], premultiplied(colors[0][1], 255));
    for (const wchar_t* const geometry : {L"9,9,3,3", L"-1,0,3,3", L"x"}) {
        style.geometry = geometry;
        paintSurface(buffer.view(), {0, 0, 60, 40}, style, kBest, &picture);
        EXPECT_EQ(buffer.row(20)[30], premultiplied(colors[1][1], 255)) << geometry;
    }
    // By its opacity a picture may tell what is hit.
    style.useSkinAlphaHitTest = true;
    style.geometry.clear();
    picture.view().row(4)[4] = premultiplied(0xFFFFFF, 100);
    EXPECT_FALSE(hitsSurface(style, {9, 9}, 4, 4, &picture));
    style.alphaThreshold = 100;
    EXPECT_TRUE(hitsSurface(style, {9, 9}, 4, 4, &picture));
    EXPECT_FALSE(hitsSurface(style, {9, 9}, 9, 4, &picture));
    // How opaque the whole is painted does not matter, and nothing is never hit.
    style.opacity = 10;
    EXPECT_TRUE(hitsSurface(style, {9, 9}, 4, 4, &picture));
    style.alphaThreshold = 0;
    picture.view().row(4)[4] = 0;
    EXPECT_FALSE(hitsSurface(style, {9, 9}, 4, 4, &picture));
}

// On a monitor of twice the dots everything is twice as large: lengths, the blur of the shadow, the borders of a
// picture.
TEST(SurfacePainter, GrowsWithTheScale) {
    SurfaceStyle style;
    style.showShadow = true;
    style.shadowOffsetY = 8;
    const SurfaceMargins margins = surfaceMargins(style);
    const SurfaceMargins twice = surfaceMargins(scaledStyle(style, 200));
    EXPECT_EQ(margins, (SurfaceMargins{24, 16, 24, 32}));
    EXPECT_EQ(twice, (SurfaceMargins{48, 32, 48, 64}));
    SurfaceStyle plate;
    plate.drawFill = plate.drawBorder = false;
    plate.useNineSlice = true;
    plate.nineSlice = {2, 2, 2, 2};
    PixelBuffer picture({6, 6});
    std::ranges::fill(picture.pixels(), premultiplied(0x0000FF, 255));
    picture.view().row(0)[0] = picture.view().row(0)[1] = picture.view().row(1)[0] = picture.view().row(1)[1] =
        0xFFFFFFFF;
    PixelBuffer buffer({40, 40});
    paintSurface(buffer.view(), {0, 0, 40, 40}, scaledStyle(plate, 200), kBest, &picture);
    EXPECT_EQ(buffer.row(2)[2], 0xFFFFFFFF);
    EXPECT_EQ(buffer.row(5)[5], premultiplied(0x0000FF, 255));
}

TEST(SurfacePainter, FillsAlphaShapesByTheInsideTest) {
    for (int shape = 0; shape < kButtonShapeCount; ++shape) {
        for (const Size size : {Size{1, 1}, Size{7, 3}, Size{64, 20}, Size{20, 64}, Size{33, 33}}) {
            PixelBuffer buffer({size.width + 2, size.height});  // rows farther apart than they are long
            std::ranges::fill(buffer.pixels(), 0x12345678U);
            const Pixel pixel = premultiplied(rgb(200, 100, 51), 99);
            EXPECT_EQ(pixel, 99U << 24 | (200U * 99 / 255) << 16 | (100U * 99 / 255) << 8 | 51U * 99 / 255);
            fillAlphaShape(buffer.view().part({0, 0, size.width, size.height}), static_cast<ButtonShape>(shape),
                           rgb(200, 100, 51), 99);
            for (int y = 0; y < size.height; ++y) {
                for (int x = 0; x < buffer.size().width; ++x) {
                    const bool inside = insideShape(static_cast<ButtonShape>(shape), size.width, size.height, x, y);
                    ASSERT_EQ(buffer.row(y)[x], x >= size.width ? 0x12345678U : inside ? pixel : 0U);
                }
            }
        }
    }
}

// Best graphics limits nothing; maximum performance never does more than balanced.
TEST(PaintLimits, GrowWithTheProfile) {
    SurfaceStyle given;
    given.showShadow = given.showGlow = true;
    given.glowRadius = 20;
    given.noiseOpacity = 99;
    given.tuning.innerShadowSize = 30;
    given.gradientKind = GradientKind::kConic;
    for (const Size size : {Size{10, 10}, Size{690, 344}, Size{3000, 2000}}) {
        SurfaceStyle best = given;
        SurfaceStyle balanced = given;
        SurfaceStyle quickest = given;
        limitStyle(best, size, kBest);
        limitStyle(balanced, size, PerformanceProfile::kBalanced);
        limitStyle(quickest, size, PerformanceProfile::kMaximumPerformance);
        EXPECT_EQ(best, given);
        EXPECT_EQ(balanced == given, size.width == 10);
        EXPECT_FALSE(quickest.showShadow || quickest.showGlow || quickest.noiseOpacity > 0);
        EXPECT_LE(quickest.tuning.innerShadowSize, balanced.tuning.innerShadowSize);
        EXPECT_LE(quickest.gradientKind, balanced.gradientKind);
        EXPECT_TRUE(balanced.showShadow && balanced.showGlow);
    }
}

}  // namespace
}  // namespace tavi
