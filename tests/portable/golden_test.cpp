#include "golden.h"

#include <filesystem>

#include "tavi/theme/material_texture.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_painter.h"

namespace tavi {
namespace {

constexpr Pixel kGround = 0xFF20262C;

PixelBuffer sheet(Size size) {
    PixelBuffer buffer(size);
    std::ranges::fill(buffer.pixels(), kGround);
    return buffer;
}

// Every shape of a button in every state, at three scales, a sheet a profile. The look is the framework's own, with a
// glow where the pointer is.
TEST(Golden, ShapesInTheirStates) {
    constexpr SurfaceState kStates[] = {SurfaceState::kNormal, SurfaceState::kHot, SurfaceState::kPressed,
                                        SurfaceState::kFocused, SurfaceState::kDisabled};
    for (const int percent : {100, 150, 200}) {
        PixelBuffer buffer = sheet({9 * 64 * percent / 100, 15 * 36 * percent / 100});
        for (int profile = 0; profile < 3; ++profile) {
            for (int state = 0; state < 5; ++state) {
                for (int shape = 0; shape < kButtonShapeCount; ++shape) {
                    SkinDefinition skin;
                    skin.shapes.buttonSecondary = static_cast<ButtonShape>(shape);
                    SurfaceStyle style = resolveStyle(skin, L"button", L"default", kStates[state]).surface;
                    style.showGlow = kStates[state] == SurfaceState::kHot;
                    const Rect area{shape * 64 + 8, (profile * 5 + state) * 36 + 8, 48, 20};
                    paintSurface(buffer.view(),
                                 rectBetween(area.x * percent / 100, area.y * percent / 100,
                                             area.right() * percent / 100, area.bottom() * percent / 100),
                                 scaledStyle(style, percent), static_cast<PerformanceProfile>(profile));
                }
            }
        }
        EXPECT_TRUE(equalsGolden("shapes_" + std::to_string(percent), buffer));
    }
}

TEST(Golden, Gradients) {
    PixelBuffer buffer = sheet({kGradientDirectionCount * 2 * 28, kGradientKindCount * 22});
    for (int kind = 0; kind < kGradientKindCount; ++kind) {
        for (int direction = 0; direction < kGradientDirectionCount; ++direction) {
            for (int stops = 0; stops < 2; ++stops) {
                SurfaceStyle style;
                style.drawBorder = false;
                style.useGradient = true;
                style.useGradientMid = stops == 1;
                style.gradientKind = static_cast<GradientKind>(kind);
                style.gradientDirection = static_cast<GradientDirection>(direction);
                style.gradientStart = hexColor(0xF4E6C8);
                style.gradientMid = hexColor(0xC2452D);
                style.gradientEnd = hexColor(0x14284A);
                paintSurface(buffer.view(), {(direction * 2 + stops) * 28 + 2, kind * 22 + 2, 24, 18}, style,
                             PerformanceProfile::kBestGraphics);
            }
        }
    }
    EXPECT_TRUE(equalsGolden("gradients", buffer));
}

// Kinds across, finishes down.
TEST(Golden, Materials) {
    constexpr int kTile = 24;
    PixelBuffer buffer = sheet({(kMaterialKindCount - 1) * kTile, kMaterialFinishCount * kTile});
    for (int kind = 1; kind < kMaterialKindCount; ++kind) {
        for (int finish = 0; finish < kMaterialFinishCount; ++finish) {
            SurfaceStyle style;
            style.drawBorder = false;
            style.fill = hexColor(0x2A2F34);
            style.material = static_cast<MaterialKind>(kind);
            style.tuning.finish = static_cast<MaterialFinish>(finish);
            style.tuning.strength = 180;
            const Rect area{(kind - 1) * kTile, finish * kTile, kTile - 2, kTile - 2};
            paintSurface(buffer.view(), area, style, PerformanceProfile::kBestGraphics);
            EXPECT_TRUE(paintMaterial(buffer.view(), area, {}, style, PerformanceProfile::kBestGraphics));
        }
    }
    EXPECT_TRUE(equalsGolden("finishes", buffer));
}

// The comparer itself: what it must let pass and what not, and what it leaves behind.
TEST(GoldenComparer, TellsWhatDiffers) {
    const std::string folder = testing::TempDir() + "golden";
    std::filesystem::remove_all(folder);
    const GoldenFolders folders{folder + "/expected", folder + "/found"};
    const auto exists = [&](const char* name) { return std::filesystem::exists(folder + name); };
    PixelBuffer picture = sheet({5, 4});
    EXPECT_FALSE(equalsGolden("a", picture, {2}, folders, false));  // none yet
    EXPECT_TRUE(exists("/found/a.actual.png"));
    EXPECT_FALSE(equalsGolden("a", picture, {2}, folders, true));
    EXPECT_TRUE(equalsGolden("a", picture, {0}, folders, false));
    picture.view().row(3)[4] += 2;
    EXPECT_TRUE(equalsGolden("a", picture, {2}, folders, false));
    EXPECT_FALSE(exists("/found/a.difference.png"));
    picture.view().row(3)[4] += 1;
    EXPECT_FALSE(equalsGolden("a", picture, {2}, folders, false));
    EXPECT_TRUE(exists("/found/a.difference.png"));
    EXPECT_TRUE(equalsGolden("a", picture, {2, 1}, folders, false));
    EXPECT_FALSE(equalsGolden("a", sheet({4, 5}), {255}, folders, false));
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tavi
