// Reading skins: every key under each of its spellings, and what stays at its default.
#include <gtest/gtest.h>

#include "base/text.h"
#include "tavi/theme/material_presets.h"
#include "tavi/theme/skin_reader.h"
#include "tests/portable/skin_texts.h"

namespace {

using namespace tavi;
using testing_tavi::member;
using testing_tavi::object;
using testing_tavi::read;
using testing_tavi::skinWith;

constexpr ButtonShape kHex = ButtonShape::kHexagon;

std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> found;
    for (const std::string_view word : spellings(text)) {
        found.emplace_back(word);
    }
    return found;
}

std::vector<std::wstring> idsOf(const std::vector<SkinDefinition>& skins) {
    std::vector<std::wstring> ids;
    for (const SkinDefinition& skin : skins) {
        ids.push_back(skin.id);
    }
    return ids;
}

TEST(SkinReader, ADocumentHoldsSkinsInOneOfFourForms) {
    const std::string a = R"({"id": "a", "name": "A"})";
    const std::string b = R"({"id": "b", "name": "B"})";
    const std::pair<std::string, std::vector<std::wstring>> cases[] = {
        {"[" + a + "," + b + "]", {L"a", L"b"}},
        {R"({"skins": [)" + a + "," + b + "]}", {L"a", L"b"}},
        {R"({"skin": )" + b + R"(, "skins": [)" + a + "]}", {L"a"}},
        {R"({"skin": )" + a + "}", {L"a"}},
        {R"({"skins": 3, "skin": )" + a + "}", {L"a"}},
        {R"({"skins": {}, "id": "c", "name": "C"})", {L"c"}},
        {R"({"skin": 3, "id": "c", "name": "C"})", {}},
        {R"({"skins": [], "id": "c", "name": "C"})", {}},
        {"\xEF\xBB\xBF" + a, {L"a"}},
        {"[1, " + a + R"(, {"id": "x"}, {"name": "x"}, {"id": "", "name": "x"}, {"id": 1, "name": "x"}, null, )" + b +
             "]",
         {L"a", L"b"}},
        {a + ",", {}},
        {"", {}},
        {"7", {}},
    };
    for (const auto& [text, ids] : cases) {
        EXPECT_EQ(idsOf(read(text)), ids) << text;
    }
}

TEST(SkinReader, ASkinOfNothingButItsNamesHasTheDefaults) {
    SkinDefinition expected;
    expected.id = L"i";
    expected.name = L"n";
    expected.source = L"file.json";
    expected.tags = {L"custom", L"custom", L"external"};
    EXPECT_EQ(read(R"({"name": "n", "id": "i"})").front(), expected);
    // What does not fit leaves them, too.
    EXPECT_EQ(skinWith(R"("description": 1, "category": null, "harmony": [], "surface_mode": "glass", "tags": 4,
                          "use_framework_defaults": "perhaps", "theme": "dark", "materials": [], "shapes": 7,
                          "styles": [], "variants": {"button": 3, "card": {"default": "x", "title": {}}}, "more": 1)"),
              expected);
}

TEST(SkinReader, TheSkinsOwnKeysAreRead) {
    const SkinDefinition skin = skinWith(
        R"("description": "d\u00e9", "category": "c", "harmony": "h", "surfaceMode": "Windows11Modern",
           "frameworkDefaults": "yes", "tags": ["t", 1, "u", null])");
    EXPECT_EQ(skin.description, L"d\u00E9");
    EXPECT_EQ(skin.surfaceMode, SurfaceMode::kWindows11Modern);
    EXPECT_TRUE(skin.useFrameworkDefaults);
    EXPECT_EQ(skin.tags, (std::vector<std::wstring>{L"t", L"u", L"c", L"h", L"external"}));
    EXPECT_EQ(skinWith(R"("tags": "dark")").tags,
              (std::vector<std::wstring>{L"dark", L"custom", L"custom", L"external"}));
    EXPECT_EQ(skinWith(R"("surface_mode": "Mica-Modern")").surfaceMode, SurfaceMode::kWindows11Modern);
    for (const char* key :
         {"use_framework_defaults", "useFrameworkDefaults", "framework_defaults", "frameworkDefaults"}) {
        EXPECT_TRUE(skinWith(member(key, "1.5")).useFrameworkDefaults) << key;
        EXPECT_FALSE(skinWith(member(key, "\"OFF\"")).useFrameworkDefaults) << key;
    }
}

TEST(SkinReader, OfSeveralSpellingsTheFirstInTheTableCounts) {
    EXPECT_EQ(skinWith(R"("surfaceMode": "flat", "surface_mode": "clean")").surfaceMode, SurfaceMode::kWindowsClean);
    EXPECT_EQ(skinWith(R"("surfaceMode": "flat", "surface_mode": "nonsense")").surfaceMode, SurfaceMode::kSculpted3d)
        << "present, though it does not fit";
    EXPECT_EQ(skinWith(R"("materials": {"shine": 3, "specular": 1, "material_specular": 2})").materials.specular, 1);
    EXPECT_EQ(skinWith(R"("surface_mode": "flat", "surface_mode": "clean")").surfaceMode, SurfaceMode::kFlat2d)
        << "the first of two equal ones";
}

TEST(SkinReader, EachColorAndFontGoesToItsMember) {
    const std::pair<std::string, Color Theme::*> colors[] = {
        {"frame", &Theme::frame},
        {"shell", &Theme::shell},
        {"panel", &Theme::panel},
        {"header", &Theme::header},
        {"control", &Theme::control},
        {"control_hot controlHot", &Theme::controlHot},
        {"control_pressed controlPressed", &Theme::controlPressed},
        {"border", &Theme::border},
        {"accent", &Theme::accent},
        {"accent_hot accentHot", &Theme::accentHot},
        {"text", &Theme::text},
        {"text_hot textHot", &Theme::textHot},
        {"muted_text mutedText", &Theme::mutedText},
        {"disabled_text disabledText", &Theme::disabledText},
        {"disabled_fill disabledFill", &Theme::disabledFill},
    };
    for (const auto& [keys, color] : colors) {
        for (const std::string& key : words(keys)) {
            Theme expected;
            expected.*color = rgb(0xAB, 0xCD, 0x12);
            for (const char* value : {"\"#abCD12\"", "\"ABcd12\""}) {
                EXPECT_EQ(skinWith(member("theme", object(member(key, value)))).theme, expected) << key;
            }
            for (const char* value :
                 {"\"#abc\"", "\"#abCD12ff\"", "\"\"", "\"#\"", "\"# bCD12\"", "11259154", "null"}) {
                EXPECT_EQ(skinWith(member("theme", object(member(key, value)))).theme, Theme()) << value;
            }
        }
    }
    const Theme expected{.uiFontFamily = L"Exo 2",
                         .uiPointSize = 9,
                         .uiWeight = 500,
                         .monoFontFamily = L"M",
                         .monoPointSize = 11,
                         .monoWeight = 300};
    EXPECT_EQ(skinWith(R"("theme": {"ui_font_family": "Exo 2", "ui_point_size": 9.9, "ui_weight": "500",
                           "mono_font_family": "M", "mono_point_size": " 11 ", "mono_weight": 300})")
                  .theme,
              expected);
    EXPECT_EQ(skinWith(R"("theme": {"uiFontFamily": "Exo 2", "uiPointSize": 9, "uiWeight": 500,
                           "monoFontFamily": "M", "monoPointSize": 11, "monoWeight": 300})")
                  .theme,
              expected);
    EXPECT_EQ(
        skinWith(R"("theme": {"ui_font_family": 1, "ui_point_size": "ten", "ui_weight": true, "mono_weight": {}})")
            .theme,
        Theme());
}

TEST(SkinReader, EachMaterialKeyGoesToItsMember) {
    struct Case {
        std::string keys, value;
        void (*set)(MaterialProfile&);
    };
    const Case cases[] = {
        {"surface material main", "\"Carbon\"", [](auto& m) { m.surface = MaterialKind::kCarbonFiber; }},
        {"control controls", "\"Carbon\"", [](auto& m) { m.control = MaterialKind::kCarbonFiber; }},
        {"accent accented highlight", "\"Carbon\"", [](auto& m) { m.accent = MaterialKind::kCarbonFiber; }},
        {"strength material_strength materialStrength", "201", [](auto& m) { m.strength = 201; }},
        {"flame_response flameResponse animated_flame_response animatedFlameResponse", "201",
         [](auto& m) { m.flameResponse = 201; }},
        {"flame_glint flameGlint flame_specular flameSpecular animated_flame_glint animatedFlameGlint", "201",
         [](auto& m) { m.flameGlint = 201; }},
        {"flame_wind_strength flameWindStrength flame_gust flameGust flame_airflow flameAirflow", "201",
         [](auto& m) { m.flameWindStrength = 201; }},
        {"flame_surface_blend flameSurfaceBlend flame_control_blend flameControlBlend", "201",
         [](auto& m) { m.flameSurfaceBlend = 201; }},
        {"flame_resolution flameResolution animated_flame_resolution animatedFlameResolution flame_render_resolution "
         "flameRenderResolution",
         "-77", [](auto& m) { m.flameResolution = -77; }},
        {"highlight_opacity highlightOpacity", "201", [](auto& m) { m.highlightOpacity = 201; }},
        {"reflection_opacity reflectionOpacity", "201", [](auto& m) { m.reflectionOpacity = 201; }},
        {"grain_opacity grainOpacity", "201", [](auto& m) { m.grainOpacity = 201; }},
        {"depth material_depth materialDepth relief bump_depth bumpDepth", "201", [](auto& m) { m.depth = 201; }},
        {"backlight_opacity backlightOpacity", "201", [](auto& m) { m.backlightOpacity = 201; }},
        {"inner_glow innerGlow", "201", [](auto& m) { m.innerGlow = 201; }},
        {"rim_light rimLight", "201", [](auto& m) { m.rimLight = 201; }},
        {"roughness material_roughness materialRoughness", "201", [](auto& m) { m.roughness = 201; }},
        {"specular material_specular materialSpecular shine shininess", "201", [](auto& m) { m.specular = 201; }},
        {"ambient_occlusion ambientOcclusion occlusion contact_shadow contactShadow", "201",
         [](auto& m) { m.ambientOcclusion = 201; }},
        {"edge_wear edgeWear edge_highlight edgeHighlight", "201", [](auto& m) { m.edgeWear = 201; }},
        {"inner_shadow innerShadow inner_shadow_opacity innerShadowOpacity inset_shadow insetShadow", "201",
         [](auto& m) { m.innerShadow = 201; }},
        {"inner_shadow_size innerShadowSize inner_shadow_radius innerShadowRadius inset_shadow_size insetShadowSize",
         "-77", [](auto& m) { m.innerShadowSize = -77; }},
        {"texture_opacity textureOpacity texture_strength textureStrength texture_mix textureMix", "201",
         [](auto& m) { m.textureOpacity = 201; }},
        {"light_angle lightAngle material_light_angle materialLightAngle", "-77", [](auto& m) { m.lightAngle = -77; }},
        {"light_elevation lightElevation material_light_elevation materialLightElevation", "201",
         [](auto& m) { m.lightElevation = 201; }},
        {"scale material_scale materialScale", "-77", [](auto& m) { m.scale = -77; }},
        {"angle material_angle materialAngle", "-77", [](auto& m) { m.angle = -77; }},
        {"light_blob_scale lightBlobScale", "-77", [](auto& m) { m.lightBlobScale = -77; }},
        {"light_blob_angle lightBlobAngle", "-77", [](auto& m) { m.lightBlobAngle = -77; }},
        {"animation_speed animationSpeed", "-77", [](auto& m) { m.animationSpeed = -77; }},
        {"finish surface_finish surfaceFinish material_finish materialFinish", "\"Cracred\"",
         [](auto& m) { m.finish = MaterialFinish::kCracked; }},
        {"uv_mapping uvMapping mapping material_mapping materialMapping", "\"world\"",
         [](auto& m) { m.uvMapping = MaterialMapping::kGlobal; }},
        {"uv_scale uvScale mapping_scale mappingScale", "-77", [](auto& m) { m.uvScale = -77; }},
        {"uv_offset_x uvOffsetX mapping_offset_x mappingOffsetX", "-77", [](auto& m) { m.uvOffsetX = -77; }},
        {"uv_offset_y uvOffsetY mapping_offset_y mappingOffsetY", "-77", [](auto& m) { m.uvOffsetY = -77; }},
        {"tint material_tint materialTint", "\"#1020F0\"", [](auto& m) { m.tint = hexColor(0x1020F0); }},
        {"backlight_color backlightColor", "\"#1020F0\"", [](auto& m) { m.backlightColor = hexColor(0x1020F0); }},
        {"flame_color flameColor animated_flame_color animatedFlameColor", "\"#1020F0\"",
         [](auto& m) { m.flameColor = hexColor(0x1020F0); }},
        {"gradient_kind gradientKind gradient_type gradientType", "\"conic\"",
         [](auto& m) { m.gradientKind = GradientKind::kConic; }},
        {"gradient_direction gradientDirection", "\"diagonal_down\"",
         [](auto& m) { m.gradientDirection = GradientDirection::kDiagonalDown; }},
        {"enabled", "false", [](auto& m) { m.enabled = false; }},
    };
    for (const Case& c : cases) {
        MaterialProfile expected;
        c.set(expected);
        EXPECT_NE(expected, MaterialProfile()) << c.keys;
        for (const std::string& key : words(c.keys)) {
            for (const char* section : {"materials", "material_profile", "materialProfile"}) {
                EXPECT_EQ(skinWith(member(section, object(member(key, c.value)))).materials, expected) << key;
            }
            EXPECT_EQ(skinWith(member("materials", object(member(key, "\"cheese\"")))).materials, MaterialProfile())
                << key;
        }
    }
}

TEST(SkinReader, NumbersAreTruncatedAndClamped) {
    const std::pair<std::string, int> cases[] = {
        {"300", 255},  {"-4", 0},      {"7.99", 7},   {"-0.5", 0},  {"1e300", 255},
        {"-1e300", 0}, {"\"12\"", 12}, {"\"-1\"", 0}, {"true", 96}, {"\"0x10\"", 96},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(skinWith(member("materials", object(member("strength", value)))).materials.strength, expected)
            << value;
    }
    EXPECT_EQ(skinWith(R"("materials": {"scale": 1e10, "angle": -1e10})").materials.scale, 2147483647);
    EXPECT_EQ(skinWith(R"("materials": {"light_angle": -45.9})").materials.lightAngle, -45);
}

TEST(SkinReader, APresetComesBeforeTheOtherKeys) {
    for (const char* key : {"preset", "material_preset", "materialPreset"}) {
        MaterialProfile expected = materialPreset(MaterialPreset::kLapisLazuli);
        expected.depth = 1;
        EXPECT_EQ(skinWith(R"("materials": {"depth": 1, ")" + std::string(key) + R"(": "lapis-lazuli"})").materials,
                  expected);
    }
    EXPECT_EQ(skinWith(R"("materials": {"preset": "cheese"})").materials, MaterialProfile());
}

TEST(SkinReader, EachShapeGoesToItsTarget) {
    struct Single {
        std::string keys;
        void (*set)(ShapeSet&);
    };
    const Single singles[] = {
        {"window", [](auto& s) { s.window = kHex; }},
        {"panel", [](auto& s) { s.panel = kHex; }},
        {"chrome titlebar title_bar", [](auto& s) { s.chrome = kHex; }},
        {"status_chip statusChip", [](auto& s) { s.statusChip = kHex; }},
        {"status_badge statusBadge", [](auto& s) { s.statusBadge = kHex; }},
        {"checkbox check_box", [](auto& s) { s.checkbox = kHex; }},
        {"selectbox select_box", [](auto& s) { s.selectbox = kHex; }},
        {"selectbox_arrow selectBoxArrow select_arrow selectArrow", [](auto& s) { s.selectboxArrow = kHex; }},
        {"selectbox_dropdown selectBoxDropdown select_dropdown selectDropdown",
         [](auto& s) { s.selectboxDropdown = kHex; }},
        {"listbox list_box", [](auto& s) { s.listbox = kHex; }},
        {"listbox_row listBoxRow list_box_row", [](auto& s) { s.listboxRow = kHex; }},
        {"listbox_selected_row listBoxSelectedRow list_box_selected_row", [](auto& s) { s.listboxSelectedRow = kHex; }},
        {"listbox_selected_rail listBoxSelectedRail list_box_selected_rail",
         [](auto& s) { s.listboxSelectedRail = kHex; }},
        {"tab_item tabItem", [](auto& s) { s.tabItem = kHex; }},
        {"menu_bar menuBar menubar menu", [](auto& s) { s.menuBar = kHex; }},
        {"menu_item menuItem menuBarItem menu_bar_item", [](auto& s) { s.menuItem = kHex; }},
        {"menu_popup menuPopup menu_dropdown menuDropdown", [](auto& s) { s.menuPopup = kHex; }},
        {"menu_popup_item menuPopupItem submenu_item submenuItem", [](auto& s) { s.menuPopupItem = kHex; }},
        {"rich_text richText", [](auto& s) { s.richText = kHex; }},
        {"rich_text_icon richTextIcon", [](auto& s) { s.richTextIcon = kHex; }},
        {"text_input textInput input", [](auto& s) { s.textInput = kHex; }},
        {"text_input_attachment textInputAttachment attachment", [](auto& s) { s.textInputAttachment = kHex; }},
        {"selectable_text selectableText", [](auto& s) { s.selectableText = kHex; }},
        {"tooltip", [](auto& s) { s.tooltip = kHex; }},
        {"tooltip_rail tooltipRail", [](auto& s) { s.tooltipRail = kHex; }},
        {"tooltip_icon tooltipIcon", [](auto& s) { s.tooltipIcon = kHex; }},
    };
    const auto shapesOf = [](const std::string& members) { return skinWith(member("shapes", object(members))).shapes; };
    for (const Single& single : singles) {
        ShapeSet expected;
        single.set(expected);
        for (const std::string& key : words(single.keys)) {
            for (const char* value :
                 {R"("Hexagonal")", R"({"shape": "hexagon"})", R"({"value": {"surface": "hexagon"}})",
                  R"({"value": "pill", "surface": "hexagon"})"}) {
                EXPECT_EQ(shapesOf(member(key, value)), expected) << key << value;
            }
            for (const char* value :
                 {R"("star")", "6", "{}", R"({"shape": "star", "value": "hexagon"})", R"(["hexagon"])"}) {
                EXPECT_EQ(shapesOf(member(key, value)), ShapeSet()) << key << value;
            }
        }
    }
    struct Part {
        std::string groups, keys, value;
        void (*set)(ShapeSet&);
    };
    const Part parts[] = {
        {"button buttons", "primary primary_button primaryButton", "\"hexagon\"",
         [](auto& s) { s.buttonPrimary = kHex; }},
        {"button buttons", "secondary default secondary_button secondaryButton", "\"hexagon\"",
         [](auto& s) { s.buttonSecondary = kHex; }},
        {"card", "surface body shape", "\"hexagon\"", [](auto& s) { s.cardSurface = kHex; }},
        {"card", "header title", "\"hexagon\"", [](auto& s) { s.cardHeader = kHex; }},
        {"progress progress_bar progressBar", "frame surface", "\"hexagon\"", [](auto& s) { s.progressFrame = kHex; }},
        {"progress progress_bar progressBar", "track rail", "\"hexagon\"", [](auto& s) { s.progressTrack = kHex; }},
        {"progress progress_bar progressBar", "fill value", "\"hexagon\"", [](auto& s) { s.progressFill = kHex; }},
        {"table table_list tableList", "surface body", "\"hexagon\"", [](auto& s) { s.tableSurface = kHex; }},
        {"table table_list tableList", "header", "\"hexagon\"", [](auto& s) { s.tableHeader = kHex; }},
        {"table table_list tableList", "selected_row selectedRow", "\"hexagon\"",
         [](auto& s) { s.tableSelectedRow = kHex; }},
        {"table table_list tableList", "selected_rail selectedRail rail", "\"hexagon\"",
         [](auto& s) { s.tableSelectedRail = kHex; }},
        {"popup dialog", "surface body", "\"hexagon\"", [](auto& s) { s.popupSurface = kHex; }},
        {"popup dialog", "header", "\"hexagon\"", [](auto& s) { s.popupHeader = kHex; }},
        {"popup dialog", "icon", "\"hexagon\"", [](auto& s) { s.popupIcon = kHex; }},
        {"scrollbar scroll_bar", "track rail track_shape trackShape", "\"hexagon\"",
         [](auto& s) { s.scrollbar.track = kHex; }},
        {"scrollbar scroll_bar", "thumb handle thumb_shape thumbShape", "\"hexagon\"",
         [](auto& s) { s.scrollbar.thumb = kHex; }},
        {"scrollbar scroll_bar", "button buttons button_shape buttonShape", "\"hexagon\"",
         [](auto& s) { s.scrollbar.button = kHex; }},
        {"scrollbar scroll_bar", "button_extent buttonExtent", "\"33\"",
         [](auto& s) { s.scrollbar.buttonExtent = 33; }},
        {"scrollbar scroll_bar", "min_thumb_extent minThumbExtent", "\"33\"",
         [](auto& s) { s.scrollbar.minThumbExtent = 33; }},
        {"scrollbar scroll_bar", "track_padding trackPadding", "\"33\"",
         [](auto& s) { s.scrollbar.trackPadding = 33; }},
        {"scrollbar scroll_bar", "track_thickness trackThickness", "\"33\"",
         [](auto& s) { s.scrollbar.trackThickness = 33; }},
        {"scrollbar scroll_bar", "thumb_thickness thumbThickness", "\"33\"",
         [](auto& s) { s.scrollbar.thumbThickness = 33; }},
        {"scrollbar scroll_bar", "show_buttons showButtons", "1", [](auto& s) { s.scrollbar.showButtons = true; }},
    };
    for (const Part& part : parts) {
        ShapeSet expected;
        part.set(expected);
        for (const std::string& group : words(part.groups)) {
            for (const std::string& key : words(part.keys)) {
                EXPECT_EQ(shapesOf(member(group, object(member(key, part.value)))), expected) << group << key;
                EXPECT_EQ(shapesOf(member(group, object(member(key, "\"star\"")))), ShapeSet()) << group << key;
            }
        }
    }
}

TEST(SkinReader, GroupsOfShapesTakeAShapeOrAGroupWhereTheyCan) {
    const auto shapesOf = [](const std::string& members) { return skinWith(member("shapes", object(members))).shapes; };
    ShapeSet both;
    both.buttonPrimary = both.buttonSecondary = kHex;
    EXPECT_EQ(shapesOf(R"("buttons": "hexagon")"), both);
    ShapeSet card;
    card.cardSurface = card.cardHeader = kHex;
    EXPECT_EQ(shapesOf(R"("card": "hexagon")"), card);
    EXPECT_EQ(shapesOf(R"("progress": "hexagon", "table": "hexagon", "popup": "hexagon", "scrollbar": 4)"), ShapeSet());
    const std::tuple<const char*, const char*, ButtonShape ShapeSet::*> inner[] = {
        {"listbox", "surface", &ShapeSet::tableListboxSurface},
        {"list_box", "body", &ShapeSet::tableListboxSurface},
        {"list_box", "selected_row", &ShapeSet::tableListboxSelectedRow},
        {"listbox", "selected_rail", &ShapeSet::tableListboxSelectedRail},
        {"listbox", "rail", &ShapeSet::tableListboxSelectedRail},
    };
    for (const auto& [group, key, target] : inner) {
        ShapeSet expected;
        expected.*target = kHex;
        EXPECT_EQ(shapesOf(member("table_list", object(member(group, object(member(key, "\"hexagon\"")))))), expected);
    }
    // The same words in the section itself are other targets.
    EXPECT_EQ(shapesOf(R"("listbox": {"surface": "hexagon"})").listbox, kHex);
}

}  // namespace
