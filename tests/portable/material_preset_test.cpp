#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tavi/theme/material_presets.h"
#include "tavi/theme/raster_kernels.h"
#include "tests/portable/golden.h"
#include "tests/portable/material_pictures.h"

namespace {

using namespace tavi;

MaterialPreset presetAt(int index) {
    return static_cast<MaterialPreset>(index);
}

int lightest(Color color) {
    return std::max({redOf(color), greenOf(color), blueOf(color)});
}
int darkest(Color color) {
    return std::min({redOf(color), greenOf(color), blueOf(color)});
}

MaterialRequest requestFor(MaterialPreset preset) {
    MaterialRequest request;
    request.profile = materialPreset(preset);
    request.kind = request.profile.control;
    request.size = {120, 60};
    request.surfaceBase = rgb(16, 20, 24);
    return request;
}

TEST(MaterialPresets, AreToldApartByEye) {
    std::vector<PixelBuffer> pictures;
    for (int i = 0; i < kMaterialPresetCount; ++i) {
        pictures.push_back(material_pictures::rendered(requestFor(presetAt(i))));
    }
    for (size_t i = 0; i < pictures.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            EXPECT_GT(material_pictures::difference(pictures[i], pictures[j]), 4.0) << "presets " << i << " and " << j;
        }
    }
}

TEST(MaterialPresets, FillWholeProfiles) {
    for (int i = 0; i < kMaterialPresetCount; ++i) {
        const MaterialProfile& profile = materialPreset(presetAt(i));
        EXPECT_NE(profile.surface, MaterialKind::kNone) << i;
        EXPECT_NE(profile.control, MaterialKind::kNone) << i;
        EXPECT_NE(profile.accent, MaterialKind::kNone) << i;
        EXPECT_TRUE(profile.enabled) << i;
        EXPECT_NE(profile.tint, profile.backlightColor) << i;
        EXPECT_NE(profile.finish, MaterialFinish::kDefault) << i;
    }
}

TEST(MaterialPresets, StonesContinueOverTheWindowAndGemsShine) {
    for (int i = 0; i < kMaterialPresetCount; ++i) {
        const MaterialProfile& profile = materialPreset(presetAt(i));
        const bool stone = i <= static_cast<int>(MaterialPreset::kTigerEye);
        EXPECT_EQ(profile.uvMapping == MaterialMapping::kGlobal, stone) << i;
        if (profile.control == MaterialKind::kGemstone) {
            EXPECT_GE(profile.specular, 190) << i;
            EXPECT_LE(profile.roughness, 40) << i;
            if (presetAt(i) != MaterialPreset::kDiamond) {
                EXPECT_GT(lightest(profile.tint), 2 * darkest(profile.tint)) << i << " is pale";
            }
        }
    }
}

// All of them on the surface of a button, eight in a row.
TEST(MaterialPresets, LookAsTheyDid) {
    constexpr Size kTile{96, 32};
    constexpr int kColumns = 8;
    PixelBuffer sheet(Size{kTile.width * kColumns, kTile.height * ((kMaterialPresetCount + kColumns - 1) / kColumns)});
    for (int i = 0; i < kMaterialPresetCount; ++i) {
        MaterialRequest request = requestFor(presetAt(i));
        request.size = kTile;
        const Rect place{i % kColumns * kTile.width, i / kColumns * kTile.height, kTile.width, kTile.height};
        EXPECT_TRUE(renderMaterialTexture(request, sheet.view().part(place)));
    }
    // On a ground of its own, so that what the layers let through counts, too.
    PixelBuffer shown(sheet.size());
    std::ranges::fill(shown.pixels(), premultiplied(hexColor(0x4A5058), 255));
    rasterKernels().blendPixels(shown.pixels().data(), sheet.pixels().data(), sheet.pixels().size());
    EXPECT_TRUE(equalsGolden("materials", shown));
}

// Hues that the names promise: which channels lead in the picture.
TEST(MaterialPresets, HaveTheColorOfTheirNames) {
    struct Hue {
        MaterialPreset preset;
        int most;  // the shift of the strongest channel of a pixel
        int least;
    };
    constexpr int kRed = 16;
    constexpr int kGreen = 8;
    constexpr int kBlue = 0;
    const Hue hues[] = {
        {MaterialPreset::kRuby, kRed, kGreen},      {MaterialPreset::kSapphire, kBlue, kRed},
        {MaterialPreset::kEmerald, kGreen, kRed},   {MaterialPreset::kAmethyst, kBlue, kGreen},
        {MaterialPreset::kTopaz, kRed, kBlue},      {MaterialPreset::kGarnet, kRed, kBlue},
        {MaterialPreset::kPeridot, kGreen, kBlue},  {MaterialPreset::kTurquoise, kBlue, kRed},
        {MaterialPreset::kMalachite, kGreen, kRed}, {MaterialPreset::kLapisLazuli, kBlue, kRed},
        {MaterialPreset::kJade, kGreen, kRed},      {MaterialPreset::kCopper, kRed, kBlue},
        {MaterialPreset::kGold, kRed, kBlue},       {MaterialPreset::kRoseGold, kRed, kBlue},
        {MaterialPreset::kTigerEye, kRed, kBlue},   {MaterialPreset::kPorphyry, kRed, kGreen},
        {MaterialPreset::kCitrine, kRed, kBlue},    {MaterialPreset::kTanzanite, kBlue, kGreen},
    };
    for (const Hue& hue : hues) {
        double sums[3] = {};
        const PixelBuffer picture = material_pictures::rendered(requestFor(hue.preset));
        for (const Pixel pixel : picture.pixels()) {
            for (const int shift : {0, 8, 16}) {
                sums[shift / 8] += material_pictures::over(pixel, shift, 20);
            }
        }
        EXPECT_EQ(*std::ranges::max_element(sums), sums[hue.most / 8]) << static_cast<int>(hue.preset);
        EXPECT_EQ(*std::ranges::min_element(sums), sums[hue.least / 8]) << static_cast<int>(hue.preset);
    }
}

}  // namespace
