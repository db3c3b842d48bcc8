// From a skin to the look of a control: what overrides what.
#include "tavi/theme/skin_styles.h"

#include <gtest/gtest.h>

#include "tavi/theme/skin_reader.h"
#include "tavi/theme/style_parts.h"

namespace tavi {
namespace {

SkinDefinition skinOf(const std::string& styles) {
    const auto skins = parseCatalog(R"({"id": "i", "name": "n", "surface_mode": "flat", "shapes": {"button":
        {"primary": "capsule", "secondary": "octagon"}}, )" +
                                        styles + "}",
                                    L"");
    EXPECT_EQ(skins.size(), 1U) << styles;
    return skins.empty() ? SkinDefinition() : skins.front();
}

constexpr Color kRed = hexColor(0xFF0000);
constexpr Color kGreen = hexColor(0x00FF00);
constexpr Color kBlue = hexColor(0x0000FF);

TEST(ResolveStyle, AVariantTakesTheNextOfItsChain) {
    const SkinDefinition skin = skinOf(R"("styles": {"Buttons": {
        "default": {"surface": {"normal": {"fill": "#FF0000"}}},
        "danger": {"surface": {"normal": {"fill": "#00FF00"}}},
        "success_action": {"surface": {"normal": {"fill": "#0000FF"}}}},
        "DiskMap": {"": {"surface": {"normal": {"fill": "#0000FF"}}}}})");
    const struct {
        const wchar_t* type;
        const wchar_t* variant;
        Color fill;
    } rows[] = {
        {L"button", L"default", kRed},         {L"button", L"danger", kGreen},  {L"button", L"danger-action", kGreen},
        {L"button", L"success-action", kBlue}, {L"button", L"success", kRed},   {L"button", L"transaction", kRed},
        {L"button_style", L"Danger", kGreen},  {L"diskmap", L"default", kBlue}, {L"DiskMap", L"other", kBlue},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(resolveStyle(skin, row.type, row.variant, SurfaceState::kNormal).surface.fill, row.fill)
            << testing::PrintToString(row.type) << " " << testing::PrintToString(row.variant);
    }
    EXPECT_TRUE(hasStyle(skin, L"button", L"danger") && hasStyle(skin, L"Disk_Map", L"default"));
    EXPECT_FALSE(hasStyle(skin, L"button", L"danger-action") || hasStyle(skin, L"panel", L"default"));
}

TEST(ResolveStyle, StatesComeOverNormalAndLaterEntriesOverEarlier) {
    const SkinDefinition skin = skinOf(R"("styles": {"button": {"default": {
        "surface": {"normal": {"fill": "#FF0000", "glow_radius": 3, "strength": 7, "preset": "gold"},
                    "hot": {"fill": "#00FF00"}},
        "text": {"normal": "#0000FF", "pressed": "#FF0000"}, "focus": {"color": "#00FF00", "width": 5}}}},
        "variants": {"button": {"default": {"surface": {"normal": {"glow_radius": 4}}}}})");
    const auto look = [&](SurfaceState state, std::wstring_view part = L"surface") {
        return resolveStyle(skin, L"button", L"default", state, part);
    };
    EXPECT_EQ(look(SurfaceState::kNormal).surface.glowRadius, 4);
    // A preset fills what the other properties then change, wherever it stands.
    EXPECT_EQ(look(SurfaceState::kNormal).surface.tuning.strength, 7);
    EXPECT_EQ(look(SurfaceState::kNormal).surface.material, MaterialKind::kMetal);
    EXPECT_EQ(look(SurfaceState::kNormal).text, kBlue);
    EXPECT_EQ(look(SurfaceState::kHot).surface.fill, kGreen);
    EXPECT_EQ(look(SurfaceState::kHot).surface.glowRadius, 4);
    EXPECT_EQ(look(SurfaceState::kPressed).text, kRed);
    EXPECT_NE(look(SurfaceState::kPressed).surface.fill, kRed)
        << "a state that the skin leaves out differs all the same";
    const SurfaceStyle focused = look(SurfaceState::kFocused).surface;
    EXPECT_EQ(std::tuple(focused.showOutline, focused.outline, focused.outlineWidth), std::tuple(true, kGreen, 5));
    EXPECT_EQ(focusColor(skin, L"button", L"default"), kGreen);
    EXPECT_EQ(focusColor(skin, L"checkbox", L"default"), skin.theme.accentHot);
    EXPECT_EQ(look(SurfaceState::kDisabled).surface.fill, skin.theme.disabledFill);
}

TEST(ResolveStyle, PartsHaveTheirOwnShapesAndPaths) {
    const SkinDefinition skin = skinOf(R"("styles": {"progress": {"default": {
        "surface": {"normal": {"fill": "#FF0000"}}, "fill": {"normal": {"fill": "#00FF00", "shape": "diamond"}}}}})");
    EXPECT_EQ(resolveStyle(skin, L"progressbar", L"default", SurfaceState::kNormal).surface.fill, kRed);
    const SurfaceStyle fill = resolveStyle(skin, L"progressbar", L"default", SurfaceState::kNormal, L"fill").surface;
    EXPECT_EQ(std::tuple(fill.fill, fill.shape), std::tuple(kGreen, ButtonShape::kDiamond));
    const auto shape = [&](std::wstring_view variant) {
        return resolveStyle(skin, L"button", variant, SurfaceState::kNormal).surface.shape;
    };
    EXPECT_EQ(shape(L"primary-action"), ButtonShape::kCapsule);
    EXPECT_EQ(shape(L"danger"), ButtonShape::kOctagon);
}

// A skin of nothing but its theme has a look for every part in every mode, and its states can be told apart.
TEST(ResolveStyle, DerivesEveryLook) {
    for (int mode = 0; mode <= static_cast<int>(SurfaceMode::kWindows11Modern); ++mode) {
        SkinDefinition skin;
        skin.surfaceMode = static_cast<SurfaceMode>(mode);
        for (const StylePart& row : styleParts()) {
            const auto look = [&](SurfaceState state) {
                return resolveStyle(skin, row.controlType, L"default", state, row.part);
            };
            const StyleLook normal = look(SurfaceState::kNormal);
            for (const SurfaceState state : {SurfaceState::kHot, SurfaceState::kPressed, SurfaceState::kDisabled}) {
                const bool differs = !(normal == look(state));
                // What has no ground only changes its text, when it is disabled.
                EXPECT_EQ(differs, row.role != SurfaceRole::kNothing || state == SurfaceState::kDisabled)
                    << mode << " " << testing::PrintToString(row.controlType) << " " << static_cast<int>(state);
            }
            const bool flat =
                skin.surfaceMode == SurfaceMode::kFlat2d || skin.surfaceMode == SurfaceMode::kWindowsClean;
            EXPECT_FALSE(flat && (normal.surface.useGradient || normal.surface.showShadow));
        }
    }
}

TEST(ScaledStyle, ScalesLengthsAndNothingElse) {
    SurfaceStyle style;
    style.shadowOffsetX = -3;
    style.glowRadius = 5;
    style.tuning.innerShadowSize = 3;
    const SurfaceStyle scaled = scaledStyle(style, 150);
    EXPECT_EQ(std::tuple(scaled.shadowOffsetX, scaled.glowRadius, scaled.tuning.innerShadowSize, scaled.borderWidth),
              std::tuple(-5, 8, 5, 1));
    EXPECT_EQ(scaledStyle(style, 200).borderWidth, 2);
    EXPECT_EQ(scaledStyle(style, 100), style);
}

}  // namespace
}  // namespace tavi
