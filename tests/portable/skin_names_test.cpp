// The names that skins use, each written out here once more: a name that is lost from the program's tables is missed.
#include <gtest/gtest.h>

#include "base/text.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/enumeration_names.h"
#include "tavi/theme/surface_properties.h"

namespace {

using namespace tavi;

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    size_t begin = 0;
    for (size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find(separator, begin);
        parts.push_back(text.substr(begin, end - begin));
    }
    return parts;
}

// Spellings by value: values are parted by ";", spellings by blanks.
template <typename Enum>
void expectSpellings(const std::string& table) {
    const std::vector<std::string> values = split(table, ';');
    EXPECT_EQ(enumerationOf<Enum>().rows().size(), values.size());
    for (size_t value = 0; value < values.size(); ++value) {
        EXPECT_EQ(nameOf(static_cast<Enum>(value)), split(values[value], ' ').front());
        for (const std::string& spelling : split(values[value], ' ')) {
            const auto expected = std::optional(static_cast<Enum>(value));
            EXPECT_EQ(fromName<Enum>(std::string_view(spelling)), expected) << spelling;
            std::wstring upper = base::toWide(spelling);
            for (wchar_t& c : upper) {
                c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
            }
            EXPECT_EQ(fromName<Enum>(std::wstring_view(upper)), expected) << spelling;
        }
    }
    for (const std::string_view none : {"", " ", "unknown", "flat2", "kaltes-\xC3\xA9", "aaaglass"}) {
        EXPECT_EQ(fromName<Enum>(none), std::nullopt) << none;
    }
    EXPECT_EQ(fromName<Enum>(std::string_view(std::string(5000, 'a'))), std::nullopt);
}

TEST(SkinNames, ModesAndShapesHaveTheirSpellings) {
    expectSpellings<SurfaceMode>(
        "flat-2d flat2d flat;sculpted-3d sculpted3d sculpted;textured texture material;bitmap-plates bitmap plates;"
        "windows-clean windows clean;windows-11-modern windows_11_modern windows11-modern windows11modern win11-modern "
        "fluent-modern mica-modern");
    expectSpellings<ButtonShape>(
        "rectangle rect square box;rounded-rect roundedrect rounded-rectangle roundedrectangle round-rect roundrect "
        "win11-rounded windows11-rounded;capsule pill round rounded;diamond rhombus gem;beveled bevel cut-corner "
        "cutcorner chamfer chamfered;octagon octagonal;hexagon hexagonal;slant-right slantright parallelogram "
        "parallelogram-right parallelogramright;slant-left slantleft parallelogram-left parallelogramleft");
    EXPECT_EQ(fromName<SurfaceMode>(std::string_view("windows_11-modern")), std::nullopt) << "only lower-cased";
    EXPECT_EQ(fromName<ButtonShape>(std::string_view(" box")), std::nullopt) << "not trimmed";
}

TEST(SkinNames, MaterialsAndGradientsHaveTheirSpellings) {
    expectSpellings<MaterialKind>(
        "none matte flat;glass;frostedglass frosted blurredglass;gloss glossy;metal;brushedmetal "
        "brushed;plastic;rubber;"
        "paper;carbonfiber carbon;obsidianglass blackglass bottleglass bottleblack blackgloss;bloodgloss bloodglass "
        "carmineglass carminegloss;amberglass amberresin resinglass resin honeyglass;luminousglass softglass neonglass "
        "neuronglass lightglass glowglass;layeredglass layered photorealglass realglass deepglass;gemstone gemglass "
        "jewel "
        "crystal facetedglass faceted;obsidianrelief obsidian3d carvedobsidian volcanicglass blackstone;stonegranite "
        "granite zula;stonemarble marble mramor");
    expectSpellings<MaterialFinish>(
        "default auto natural;polished mirror highpolish;brushed linearbrushed hairline;satin softsatin "
        "semimatte;matte "
        "flat deadmatte;rough raw naturalrough;cracked cracred fractured crazed;hammered beaten peened;etched engraved "
        "engravedlines;frosted sandblasted milkglass;wet wetgloss glossywet lacquered");
    expectSpellings<MaterialMapping>(
        "local control surface rect rectangle;global world window screen tiledglobal globaltiled worldspace "
        "windowspace");
    expectSpellings<GradientKind>("linear;reflected mirror mirrored;radial circle circular;diamond;conic angular");
    expectSpellings<GradientDirection>(
        "vertical down toptobottom;verticalup up bottomtotop;horizontal right lefttoright;horizontalleft left "
        "righttoleft;"
        "diagonaldown downright diagonal;diagonaldownreverse downleft diagonalreverse;diagonalup upright;"
        "diagonalupreverse upleft");
    expectSpellings<MaterialPreset>(
        "granite zula;marble mramor;slate;basalt;limestone;travertine;sandstone;soapstone;serpentine;quartzite;onyx;"
        "alabaster;porphyry;labradorite;malachite;lapislazuli;jasper;agate;tigereye;diamond;ruby;sapphire;emerald;"
        "amethyst;aquamarine;topaz;garnet;opal;peridot;tourmaline;citrine;turquoise;moonstone;sunstone;spinel;zircon;"
        "tanzanite;alexandrite;jade;iron;steel;stainlesssteel;carbonsteel;chrome;nickel;titanium;aluminium aluminum;"
        "magnesium;copper;bronze;brass;gold;rosegold;whitegold;silver;platinum;palladium;tungsten;zinc");
}

TEST(SkinNames, NamesOfMaterialsAreNormalized) {
    EXPECT_EQ(fromName<MaterialKind>(std::string_view(" Layered_Glass\t")), MaterialKind::kLayeredGlass);
    EXPECT_EQ(fromName<MaterialKind>(std::wstring_view(L"--obsidian-3D_")), MaterialKind::kObsidianRelief);
    EXPECT_EQ(fromName<GradientDirection>(std::string_view("diagonal_down")), GradientDirection::kDiagonalDown);
    EXPECT_EQ(fromName<MaterialFinish>(std::string_view("Cracred")), MaterialFinish::kCracked);
    EXPECT_EQ(fromName<MaterialKind>(std::string_view("aaa-glass")), std::nullopt) << "its hyphen is never looked for";
    EXPECT_EQ(fromName<MaterialKind>(std::string_view("frosted glass")), std::nullopt) << "blanks inside count";
    const std::pair<std::wstring, std::wstring> keys[] = {
        {L"", L""},       {L"_-", L""},     {L" Gradient_Start\n", L"gradientstart"},
        {L"a b", L"a b"}, {L" _x- ", L"x"}, {L"\u00C9_\u00E8", std::wstring(base::lowered(L"\u00C9")) + L"\u00E8"},
    };
    for (const auto& [text, key] : keys) {
        EXPECT_EQ(normalizeKey(text), key) << testing::PrintToString(text);
        std::wstring appended = L"x.";
        appendNormalizedKey(appended, base::toUtf8(text));
        EXPECT_EQ(appended, L"x." + key);
    }
}

TEST(SkinNames, PerformanceProfilesBecomeCanonical) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"best-graphics", L"best-graphics"},
        {L"bestgraphics", L"best-graphics"},
        {L"graphics", L"best-graphics"},
        {L"visuals", L"best-graphics"},
        {L"balanced", L"balanced"},
        {L"turbo", L"balanced"},
        {L"", L"balanced"},
        {L"maximum-performance", L"maximum-performance"},
        {L"maximumperformance", L"maximum-performance"},
        {L"max-performance", L"maximum-performance"},
        {L"performance", L"maximum-performance"},
        {L"max", L"maximum-performance"},
    };
    for (const auto& [text, canonical] : cases) {
        EXPECT_EQ(canonicalPerformanceProfile(text), canonical) << testing::PrintToString(text);
        EXPECT_EQ(performanceProfileFromName(text), performanceProfileFromName(canonical));
    }
    EXPECT_EQ(performanceProfileFromName(L"visuals"), PerformanceProfile::kBestGraphics);
    EXPECT_EQ(performanceProfileFromName(L"turbo"), PerformanceProfile::kBalanced);
    EXPECT_EQ(performanceProfileFromName(L"max"), PerformanceProfile::kMaximumPerformance);
}

TEST(SkinNames, ControlTypesHaveTheirSpellings) {
    const std::string table =
        "text textstyle;button buttons buttonstyle;bitmapbutton bitmapbuttons bitmap imagebutton glyphbutton;panel "
        "panelstyle;card cardstyle;chrometitlebar chrome titlebar;statuschip status;progressbar progress;chart chart2d "
        "chart3d datavisualization;activitymetriccard activity diskactivitycard;media mediacontrol video "
        "audio;scrollbar "
        "scroll;separator separatorstyle divider panelseparator gridseparator;checkbox check;selectbox select combobox "
        "combo;listbox hierarchicallistbox treelistbox treelist diskviewer fileviewer filelist selectionlist;dateinput "
        "date calendarinput;tabstrip tabs tab;menubar menu windowmenu windowsmenu;tablelist table list;richtext "
        "helptext;"
        "textinput input edit;selectabletext;popup dialog;tooltip tooltips";
    for (const std::string& row : split(table, ';')) {
        const std::vector<std::string> names = split(row, ' ');
        for (const std::string& name : names) {
            EXPECT_EQ(canonicalControlType(base::toWide(name)), base::toWide(names.front())) << name;
        }
    }
    EXPECT_EQ(canonicalControlType(L"Tab_Strip"), L"tabstrip");
    EXPECT_EQ(canonicalControlType(L"gauge"), L"gauge");
    EXPECT_EQ(canonicalControlType(L""), L"");
}

// What a surface property has set, as a style that differs from the default in one member.
template <typename Set>
SurfaceStyle styleWith(Set set) {
    SurfaceStyle style;
    set(style);
    return style;
}

TEST(SurfaceProperties, EachSetsItsOwnMember) {
    const Color blue = hexColor(0x1020F0);
    const std::tuple<const wchar_t*, const wchar_t*, SurfaceStyle> cases[] = {
        {L"shape", L"Pill", styleWith([](auto& s) { s.shape = ButtonShape::kCapsule; })},
        {L"fill", L"#1020f0", styleWith([&](auto& s) { s.fill = blue; })},
        {L"border", L"1020F0", styleWith([&](auto& s) { s.border = blue; })},
        {L"shadow", L"#1020F0", styleWith([&](auto& s) { s.shadow = blue; })},
        {L"glow", L"#1020F0", styleWith([&](auto& s) { s.glow = blue; })},
        {L"outline", L"#1020F0", styleWith([&](auto& s) { s.outline = blue; })},
        {L"noise", L"#1020F0", styleWith([&](auto& s) { s.noise = blue; })},
        {L"gradientstart", L"#1020F0", styleWith([&](auto& s) { s.gradientStart = blue; })},
        {L"gradientmid", L"#1020F0", styleWith([&](auto& s) { s.gradientMid = blue; })},
        {L"gradientend", L"#1020F0", styleWith([&](auto& s) { s.gradientEnd = blue; })},
        {L"innershadowcolor", L"#1020F0", styleWith([&](auto& s) { s.innerShadowColor = blue; })},
        {L"insetshadowcolor", L"#1020F0", styleWith([&](auto& s) { s.innerShadowColor = blue; })},
        {L"materialtint", L"#1020F0", styleWith([&](auto& s) { s.tuning.tint = blue; })},
        {L"backlightcolor", L"#1020F0", styleWith([&](auto& s) { s.tuning.backlightColor = blue; })},
        {L"flamecolor", L"#1020F0", styleWith([&](auto& s) { s.tuning.flameColor = blue; })},
        {L"drawfill", L"no", styleWith([](auto& s) { s.drawFill = false; })},
        {L"drawborder", L"OFF", styleWith([](auto& s) { s.drawBorder = false; })},
        {L"showshadow", L"true", styleWith([](auto& s) { s.showShadow = true; })},
        {L"showinnershadow", L"1", styleWith([](auto& s) { s.showInnerShadow = true; })},
        {L"showglow", L"on", styleWith([](auto& s) { s.showGlow = true; })},
        {L"showoutline", L"yes", styleWith([](auto& s) { s.showOutline = true; })},
        {L"usegradient", L"true", styleWith([](auto& s) { s.useGradient = true; })},
        {L"usegradientmid", L"true", styleWith([](auto& s) { s.useGradientMid = true; })},
        {L"usenineslice", L"true", styleWith([](auto& s) { s.useNineSlice = true; })},
        {L"usenoise", L"true", styleWith([](auto& s) { s.useNoise = true; })},
        {L"useskinalphahittest", L"true", styleWith([](auto& s) { s.useSkinAlphaHitTest = true; })},
        {L"opacity", L"-3", styleWith([](auto& s) { s.opacity = 0; })},
        {L"alphathreshold", L"7", styleWith([](auto& s) { s.alphaThreshold = 7; })},
        {L"shadowopacity", L"300", styleWith([](auto& s) { s.shadowOpacity = 255; })},
        {L"glowopacity", L"8.9", styleWith([](auto& s) { s.glowOpacity = 8; })},
        {L"noiseopacity", L"9", styleWith([](auto& s) { s.noiseOpacity = 9; })},
        {L"shadowoffsetx", L"-300", styleWith([](auto& s) { s.shadowOffsetX = -300; })},
        {L"shadowoffsety", L"+5", styleWith([](auto& s) { s.shadowOffsetY = 5; })},
        {L"glowradius", L"6", styleWith([](auto& s) { s.glowRadius = 6; })},
        {L"outlinewidth", L"4", styleWith([](auto& s) { s.outlineWidth = 4; })},
        {L"nineslice.left", L"1", styleWith([](auto& s) { s.nineSlice.left = 1; })},
        {L"nineslice.top", L"2", styleWith([](auto& s) { s.nineSlice.top = 2; })},
        {L"nineslice.right", L"3", styleWith([](auto& s) { s.nineSlice.right = 3; })},
        {L"nineslice.bottom", L"4", styleWith([](auto& s) { s.nineSlice.bottom = 4; })},
        {L"gradientkind", L"Radial", styleWith([](auto& s) { s.gradientKind = GradientKind::kRadial; })},
        {L"gradientdirection", L"left_",
         styleWith([](auto& s) { s.gradientDirection = GradientDirection::kHorizontalLeft; })},
        {L"noiseseed", L"99999999999", styleWith([](auto& s) { s.noiseSeed = 2147483647; })},
        {L"material", L"jewel", styleWith([](auto& s) { s.material = MaterialKind::kGemstone; })},
        {L"surfacematerial", L"glass", styleWith([](auto& s) { s.material = MaterialKind::kGlass; })},
        {L"finish", L"wet", styleWith([](auto& s) { s.tuning.finish = MaterialFinish::kWet; })},
        {L"insetshadow", L"11", styleWith([](auto& s) { s.tuning.innerShadow = 11; })},
        {L"lightangle", L"-170", styleWith([](auto& s) { s.tuning.lightAngle = -170; })},
        {L"mapping", L"world", styleWith([](auto& s) { s.tuning.uvMapping = MaterialMapping::kGlobal; })},
        {L"image", L"pl\u00E1t.png", styleWith([](auto& s) { s.image = L"pl\u00E1t.png"; })},
        {L"bitmap", L"a", styleWith([](auto& s) { s.image = L"a"; })},
        {L"skin", L"b", styleWith([](auto& s) { s.image = L"b"; })},
        {L"geometry", L"0, 0, 4, 4", styleWith([](auto& s) { s.geometry = L"0, 0, 4, 4"; })},
    };
    for (const auto& [name, value, expected] : cases) {
        SurfaceStyle style;
        EXPECT_TRUE(setSurfaceProperty(style, name, value)) << testing::PrintToString(name);
        EXPECT_EQ(style, expected) << testing::PrintToString(name);
        EXPECT_NE(style, SurfaceStyle()) << testing::PrintToString(name) << " has a value that is no default";
    }
}

TEST(SurfaceProperties, APresetFillsTheTuningAndKeepsTheKinds) {
    SurfaceStyle style;
    style.tuning.surface = MaterialKind::kPaper;
    style.tuning.control = MaterialKind::kRubber;
    MaterialProfile expected = materialPreset(MaterialPreset::kRuby);
    EXPECT_TRUE(setSurfaceProperty(style, L"materialpreset", L"Ruby"));
    EXPECT_EQ(style.material, expected.control);
    expected.surface = MaterialKind::kPaper;
    expected.control = MaterialKind::kRubber;
    expected.accent = MaterialKind::kNone;
    EXPECT_EQ(style.tuning, expected);
    EXPECT_TRUE(isSurfacePreset(L"preset") && isSurfacePreset(L"materialpreset"));
    EXPECT_FALSE(isSurfacePreset(L"material") || isSurfacePreset(L"") || isSurfacePreset(L"fill"));
}

TEST(SurfaceProperties, WhatDoesNotFitChangesNothing) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"fill", L"#123"},
        {L"fill", L"#12345678"},
        {L"fill", L""},
        {L"fill", L"##123456"},
        {L"fill", L"#12345G"},
        {L"fill", L"\uFF11\uFF12"},
        {L"shape", L"star"},
        {L"usenoise", L"maybe"},
        {L"opacity", L"half"},
        {L"opacity", L""},
        {L"opacity", L"-"},
        {L"glowradius", L"6px"},
        {L"glowradius", L"1.2.3"},
        {L"preset", L"cheese"},
        {L"material", L"cheese"},
        {L"gradientkind", L"spiral"},
        {L"nosuch", L"1"},
        {L"", L"1"},
        {L"nineslice", L"1"},
        {L"Fill", L"#123456"},
        {L"borderwidth", L"3"},
        {L"f\u00EFll", L"#123456"},
    };
    for (const auto& [name, value] : cases) {
        SurfaceStyle style;
        EXPECT_FALSE(setSurfaceProperty(style, name, value)) << testing::PrintToString(std::pair(name, value));
        EXPECT_EQ(style, SurfaceStyle());
    }
}

}  // namespace
