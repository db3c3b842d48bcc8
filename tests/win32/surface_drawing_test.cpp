// Surfaces on a device context: what lands there is the painter's buffer blended over what was there.
#include "tavi/theme/surface_drawing.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "tavi/theme/composition.h"
#include "tavi/theme/performance_profile.h"
#include "tavi/theme/shape.h"
#include "tavi/theme/surface_cache.h"
#include "tavi/theme/surface_painter.h"

namespace {

using namespace tavi;

// A device context on a bitmap of its own, filled with a pattern in which no two neighbours are equal.
class Device {
public:
    static constexpr Size kSize{192, 160};

    Device() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), kSize.width, -kSize.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        target = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        before_ = SelectObject(target, bitmap_);
        pixels_ = static_cast<Pixel*>(bits);
        for (int i = 0; i < kSize.width * kSize.height; ++i) {
            pixels_[i] = patternAt(i % kSize.width, i / kSize.width);
        }
    }
    ~Device() {
        SelectObject(target, before_);
        DeleteObject(bitmap_);
        DeleteDC(target);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    static Pixel patternAt(int x, int y) { return static_cast<Pixel>(x * 0x020301 + y * 0x010204) & 0xFFFFFF; }
    Pixel at(int x, int y) const { return pixels_[y * kSize.width + x] & 0xFFFFFF; }

    HDC target;

private:
    HGDIOBJ bitmap_;
    HGDIOBJ before_;
    Pixel* pixels_;
};

// Rounding the share of what lies below is left to Windows: one level either way.
bool isBlend(Pixel result, Pixel below, Pixel source) {
    const int rest = 255 - static_cast<int>(source >> 24);
    for (int shift = 0; shift < 24; shift += 8) {
        const auto channel = [shift](Pixel pixel) { return static_cast<int>(pixel >> shift & 0xFF); };
        if (std::abs(channel(result) * 255 - channel(source) * 255 - channel(below) * rest) > 255) {
            return false;
        }
    }
    return true;
}

// Expects the picture with its corner at `at` blended over the pattern, and the pattern wherever `clip` keeps it out.
void expectBlended(const Device& device, Point at, const PixelBuffer& picture, const Rect& clip) {
    GdiFlush();
    int wrong = 0;
    for (int y = 0; y < Device::kSize.height; ++y) {
        for (int x = 0; x < Device::kSize.width; ++x) {
            const Rect area{at.x, at.y, picture.size().width, picture.size().height};
            const bool reached = area.contains(Point{x, y}) && clip.contains(Point{x, y});
            const Pixel source = reached ? picture.row(y - at.y)[x - at.x] : 0;
            const Pixel below = Device::patternAt(x, y);
            wrong += source == 0 ? device.at(x, y) != below : !isBlend(device.at(x, y), below, source);
        }
    }
    EXPECT_EQ(wrong, 0);
}

constexpr Rect kEverywhere{0, 0, Device::kSize.width, Device::kSize.height};

SurfaceStyle styleOf(ButtonShape shape) {
    SurfaceStyle style;
    style.shape = shape;
    style.fill = rgb(200, 40, 90);
    style.border = rgb(10, 250, 30);
    style.gradientStart = rgb(250, 240, 10);
    style.gradientEnd = rgb(10, 20, 220);
    style.useGradient = true;
    style.opacity = 180;
    style.showShadow = true;
    return style;
}

TEST(SurfaceDrawing, AlphaShapeIsItsColorBlendedInsideTheShape) {
    const Rect areas[] = {{8, 8, 40, 30}, {-12, -7, 50, 40}, {170, 150, 40, 40}, {3, 3, 1, 1}, {0, 0, 300, 20}};
    for (int shape = 0; shape < kButtonShapeCount; ++shape) {
        for (const uint8_t alpha : {uint8_t{0}, uint8_t{1}, uint8_t{128}, uint8_t{255}}) {
            const Rect& area = areas[(shape + alpha) % static_cast<int>(std::size(areas))];
            SCOPED_TRACE(testing::Message() << "shape " << shape << ", alpha " << int{alpha});
            const Color color = rgb(250, 100, 7);
            const auto named = static_cast<ButtonShape>(shape);
            PixelBuffer expected(area.size());
            for (int y = 0; y < area.height; ++y) {
                for (int x = 0; x < area.width; ++x) {
                    if (insideShape(named, area.width, area.height, x, y)) {
                        expected.view().row(y)[x] = premultiplied(color, alpha);
                    }
                }
            }
            const Device device;
            drawAlphaShape(device.target, area, named, color, alpha);
            expectBlended(device, area.position(), expected, kEverywhere);
        }
    }
}

TEST(SurfaceDrawing, SurfaceIsThePaintersBufferWithItsMargins) {
    for (const ButtonShape shape : {ButtonShape::kRectangle, ButtonShape::kCapsule, ButtonShape::kHexagon}) {
        for (const Rect& area : {Rect{10, 10, 60, 40}, Rect{-20, 30, 60, 60}}) {
            const SurfaceStyle style = styleOf(shape);
            const SurfaceMargins margins = surfaceMargins(style);
            ASSERT_GT(margins.bottom, 0);
            PixelBuffer expected(
                {area.width + margins.left + margins.right, area.height + margins.top + margins.bottom});
            paintSurface(expected.view(), {margins.left, margins.top, area.width, area.height}, style,
                         PerformanceProfile::kBalanced);
            const Device device;
            const Rect clip{0, 0, 50, 60};
            IntersectClipRect(device.target, clip.x, clip.y, clip.right(), clip.bottom());
            drawGradientShape(device.target, area, style);
            expectBlended(device, {area.x - margins.left, area.y - margins.top}, expected, clip);
        }
    }
}

// Large opaque parts go another way than what is blended around them.
TEST(SurfaceDrawing, OpaquePartsLandAsTheyAre) {
    PixelBuffer picture({200, 160});
    for (size_t i = 0; i < picture.pixels().size(); ++i) {
        picture.pixels()[i] = 0xFF000000U | static_cast<Pixel>(i * 7919 & 0xFFFFFF);
    }
    const Rect opaque{20, 30, 160, 110};
    for (int y = 0; y < 160; ++y) {
        for (int x = 0; x < 200; ++x) {
            if (!opaque.contains(Point{x, y})) {
                picture.view().row(y)[x] = premultiplied(static_cast<Color>(x * y), 100);
            }
        }
    }
    for (const Point at : {Point{}, Point{-10, -20}, Point{-60, -50}, Point{5, 7}, Point{-110, -100}}) {
        const Device device;
        compose(device.target, at, picture, opaque);
        expectBlended(device, at, picture, kEverywhere);
    }
}

TEST(SurfaceDrawing, SegmentsAreOneSurface) {
    const SurfaceStyle style = styleOf(ButtonShape::kRoundedRect);
    const std::vector<Rect> segments{{10, 10, 20, 30}, {}, {30, 10, 25, 30}};
    const SurfaceMargins margins = surfaceMargins(style);
    PixelBuffer expected({45 + margins.left + margins.right, 30 + margins.top + margins.bottom});
    paintSegmentedSurface(expected.view(),
                          {{margins.left, margins.top, 20, 30}, {margins.left + 20, margins.top, 25, 30}}, style,
                          PerformanceProfile::kBalanced);
    const Device device;
    drawSegmentedSurface(device.target, segments, style);
    expectBlended(device, {10 - margins.left, 10 - margins.top}, expected, kEverywhere);
}

TEST(SurfaceDrawing, MaterialTellsWhetherThereIsAny) {
    const auto profile = PerformanceProfile::kBalanced;
    const auto isDrawn = [&](const Rect& area, const SurfaceStyle& style) {
        const Device device;
        const bool drawn = drawSeamlessMaterialTextureOverlay(device.target, area, style, profile);
        if (!drawn) {
            expectBlended(device, {}, {}, kEverywhere);
        }
        return drawn;
    };
    SurfaceStyle style = styleOf(ButtonShape::kRectangle);
    const Rect area{5, 5, 60, 40};
    EXPECT_FALSE(isDrawn(area, style)) << "no material";
    style.material = MaterialKind::kBrushedMetal;
    style.tuning.strength = 255;
    EXPECT_TRUE(isDrawn(area, style));
    EXPECT_FALSE(isDrawn({5, 5, 0, 40}, style));
    style.tuning.enabled = false;
    EXPECT_FALSE(isDrawn(area, style));
    style.tuning.enabled = true;

    PixelBuffer expected(area.size());
    ASSERT_TRUE(paintMaterial(expected.view(), area.local(), {}, style, profile));
    const Device device;
    drawSeamlessMaterialTextureOverlay(device.target, area, style, profile);
    expectBlended(device, area.position(), expected, kEverywhere);
}

TEST(SurfaceDrawing, MaterialThatFollowsTheWindowMovesWithTheOrigin) {
    SurfaceStyle style = styleOf(ButtonShape::kRectangle);
    style.material = MaterialKind::kStoneGranite;
    style.tuning.strength = 255;
    style.tuning.uvMapping = MaterialMapping::kGlobal;
    const Point place{20, 12};
    PixelBuffer expected({40, 30});
    ASSERT_TRUE(paintMaterial(expected.view(), {0, 0, 40, 30}, place, style, PerformanceProfile::kBalanced));
    for (const Point origin : {Point{}, Point{15, 7}}) {
        const Device device;
        SetViewportOrgEx(device.target, origin.x, origin.y, nullptr);
        drawSeamlessMaterialTextureOverlay(device.target, {place.x - origin.x, place.y - origin.y, 40, 30}, style,
                                           PerformanceProfile::kBalanced);
        expectBlended(device, place, expected, kEverywhere);
    }
}

TEST(SurfaceDrawing, DegenerateRectanglesDrawNothing) {
    const SurfaceStyle style = styleOf(ButtonShape::kRectangle);
    const Device device;
    for (const Rect& area : {Rect{5, 5, 0, 10}, Rect{5, 5, 10, 0}, Rect{30, 30, -10, -10}, Rect{0, 0, 1 << 30, 1 << 30},
                             Rect{INT32_MAX - 5, 0, 10, 10}, Rect{INT32_MIN, 0, 10, 10}}) {
        drawGradientShape(device.target, area, style);
        drawSegmentedSurface(device.target, {area}, style);
        drawAlphaShape(device.target, area, ButtonShape::kRectangle, 0xFFFFFF, 255);
    }
    drawSegmentedSurface(device.target, {}, style);
    compose(device.target, {5, 5}, {});
    expectBlended(device, {}, {}, kEverywhere);
}

TEST(SurfaceDrawing, PaintsASurfaceOnceForEachProfile) {
    const SurfaceStyle style = styleOf(ButtonShape::kBeveled);
    const Device device;
    surfaceCache().clear();
    const auto made = [&](PerformanceProfile profile, const Rect& area) {
        setPerformanceProfile(profile);
        const size_t before = surfaceCache().misses();
        drawGradientShape(device.target, area, style);
        setPerformanceProfile(PerformanceProfile::kBalanced);
        return surfaceCache().misses() - before;
    };
    const Rect area{10, 10, 30, 20};
    EXPECT_EQ(made(PerformanceProfile::kBalanced, area), 1U);
    EXPECT_EQ(made(PerformanceProfile::kBalanced, area.offset({20, 5})), 0U) << "the same elsewhere";
    EXPECT_EQ(made(PerformanceProfile::kMaximumPerformance, area), 1U);
    EXPECT_EQ(made(PerformanceProfile::kBalanced, {500, 10, 30, 21}), 0U) << "nobody would see it";
}

// A process has room for a limited number of GDI objects. When all but a few places are taken, what leaks is missed
// soon.
TEST(SurfaceDrawing, LeavesNoObjectsBehind) {
    const Device device;
    const Device last;
    std::vector<HBRUSH> brushes;
    for (HBRUSH brush = CreateSolidBrush(1); brush != nullptr; brush = CreateSolidBrush(1)) {
        brushes.push_back(brush);
    }
    ASSERT_GT(brushes.size(), 1000U);
    const auto remove = [&] {
        DeleteObject(brushes.back());
        brushes.pop_back();
    };
    drawAlphaShape(device.target, {0, 0, 10, 10}, ButtonShape::kRectangle, 0xFFFFFF, 255);
    EXPECT_EQ(device.at(5, 5), Device::patternAt(5, 5)) << "no room: nothing is drawn";
    for (int i = 0; i < 20; ++i) {
        remove();
    }
    for (int i = 0; i < 200; ++i) {
        drawGradientShape(device.target, {i % 90, i % 60, 8, 6}, styleOf(ButtonShape::kOctagon));
    }
    drawAlphaShape(last.target, {0, 0, 10, 10}, ButtonShape::kRectangle, 0xFFFFFF, 255);
    GdiFlush();
    EXPECT_EQ(last.at(5, 5), 0xFFFFFFU);
    while (!brushes.empty()) {
        remove();
    }
}

}  // namespace
