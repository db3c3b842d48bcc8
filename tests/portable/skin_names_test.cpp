// The names that skins use, each written out here once more: a name that is lost from the program's tables is missed.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "tavi/theme/control_types.h"
#include "tavi/theme/enumeration_names.h"
#include "tavi/theme/style_parts.h"
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
        std::string appended = "x.";
        appendNormalizedKey(appended, base::toUtf8(text));
        EXPECT_EQ(appended, "x." + base::toUtf8(key));
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
            EXPECT_EQ(canonicalControlType(std::string_view(name)), names.front());
        }
    }
    EXPECT_EQ(canonicalControlType(L"Tab_Strip"), L"tabstrip");
    EXPECT_EQ(canonicalControlType(L"gauge"), L"gauge");
    EXPECT_EQ(canonicalControlType(L""), L"");
}

TEST(SkinNames, ControlTypesAndTheirPartsAgree) {
    std::vector<std::wstring> types;
    for (const ControlTypeRow& row : controlTypes()) {
        types.push_back(base::toWide(spellings(row.names).front()));
        EXPECT_TRUE(std::ranges::any_of(styleParts(), [&](const StylePart& part) {
            return part.controlType == types.back() && part.part == L"surface";
        })) << row.names;
    }
    for (const StylePart& part : styleParts()) {
        EXPECT_TRUE(std::ranges::contains(types, part.controlType)) << base::toUtf8(part.controlType);
    }
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
    const std::tuple<const char*, const char*, SurfaceStyle> cases[] = {
        {"shape", "Pill", styleWith([](auto& s) { s.shape = ButtonShape::kCapsule; })},
        {"fill", "#1020f0", styleWith([&](auto& s) { s.fill = blue; })},
        {"border", "1020F0", styleWith([&](auto& s) { s.border = blue; })},
        {"shadow", "#1020F0", styleWith([&](auto& s) { s.shadow = blue; })},
        {"glow", "#1020F0", styleWith([&](auto& s) { s.glow = blue; })},
        {"outline", "#1020F0", styleWith([&](auto& s) { s.outline = blue; })},
        {"noise", "#1020F0", styleWith([&](auto& s) { s.noise = blue; })},
        {"gradientstart", "#1020F0", styleWith([&](auto& s) { s.gradientStart = blue; })},
        {"gradientmid", "#1020F0", styleWith([&](auto& s) { s.gradientMid = blue; })},
        {"gradientend", "#1020F0", styleWith([&](auto& s) { s.gradientEnd = blue; })},
        {"innershadowcolor", "#1020F0", styleWith([&](auto& s) { s.innerShadowColor = blue; })},
        {"insetshadowcolor", "#1020F0", styleWith([&](auto& s) { s.innerShadowColor = blue; })},
        {"materialtint", "#1020F0", styleWith([&](auto& s) { s.tuning.tint = blue; })},
        {"backlightcolor", "#1020F0", styleWith([&](auto& s) { s.tuning.backlightColor = blue; })},
        {"flamecolor", "#1020F0", styleWith([&](auto& s) { s.tuning.flameColor = blue; })},
        {"drawfill", "no", styleWith([](auto& s) { s.drawFill = false; })},
        {"drawborder", "OFF", styleWith([](auto& s) { s.drawBorder = false; })},
        {"showshadow", "true", styleWith([](auto& s) { s.showShadow = true; })},
        {"showinnershadow", "1", styleWith([](auto& s) { s.showInnerShadow = true; })},
        {"showglow", "on", styleWith([](auto& s) { s.showGlow = true; })},
        {"showoutline", "yes", styleWith([](auto& s) { s.showOutline = true; })},
        {"usegradient", "true", styleWith([](auto& s) { s.useGradient = true; })},
        {"usegradientmid", "true", styleWith([](auto& s) { s.useGradientMid = true; })},
        {"usenineslice", "true", styleWith([](auto& s) { s.useNineSlice = true; })},
        {"usenoise", "true", styleWith([](auto& s) { s.useNoise = true; })},
        {"useskinalphahittest", "true", styleWith([](auto& s) { s.useSkinAlphaHitTest = true; })},
        {"opacity", "-3", styleWith([](auto& s) { s.opacity = 0; })},
        {"alphathreshold", "7", styleWith([](auto& s) { s.alphaThreshold = 7; })},
        {"shadowopacity", "300", styleWith([](auto& s) { s.shadowOpacity = 255; })},
        {"glowopacity", "8.9", styleWith([](auto& s) { s.glowOpacity = 8; })},
        {"noiseopacity", "9", styleWith([](auto& s) { s.noiseOpacity = 9; })},
        {"shadowoffsetx", "-300", styleWith([](auto& s) { s.shadowOffsetX = -300; })},
        {"shadowoffsety", "+5", styleWith([](auto& s) { s.shadowOffsetY = 5; })},
        {"glowradius", "6", styleWith([](auto& s) { s.glowRadius = 6; })},
        {"outlinewidth", "4", styleWith([](auto& s) { s.outlineWidth = 4; })},
        {"nineslice.left", "1", styleWith([](auto& s) { s.nineSlice.left = 1; })},
        {"nineslice.top", "2", styleWith([](auto& s) { s.nineSlice.top = 2; })},
        {"nineslice.right", "3", styleWith([](auto& s) { s.nineSlice.right = 3; })},
        {"nineslice.bottom", "4", styleWith([](auto& s) { s.nineSlice.bottom = 4; })},
        {"gradientkind", "Radial", styleWith([](auto& s) { s.gradientKind = GradientKind::kRadial; })},
        {"gradientdirection", "left_",
         styleWith([](auto& s) { s.gradientDirection = GradientDirection::kHorizontalLeft; })},
        {"noiseseed", "99999999999", styleWith([](auto& s) { s.noiseSeed = 2147483647; })},
        {"material", "jewel", styleWith([](auto& s) { s.material = MaterialKind::kGemstone; })},
        {"surfacematerial", "glass", styleWith([](auto& s) { s.material = MaterialKind::kGlass; })},
        {"finish", "wet", styleWith([](auto& s) { s.tuning.finish = MaterialFinish::kWet; })},
        {"insetshadow", "11", styleWith([](auto& s) { s.tuning.innerShadow = 11; })},
        {"lightangle", "-170", styleWith([](auto& s) { s.tuning.lightAngle = -170; })},
        {"mapping", "world", styleWith([](auto& s) { s.tuning.uvMapping = MaterialMapping::kGlobal; })},
        {"image", "pl\u00E1t.png", styleWith([](auto& s) { s.image = L"pl\u00E1t.png"; })},
        {"bitmap", "a", styleWith([](auto& s) { s.image = L"a"; })},
        {"skin", "b", styleWith([](auto& s) { s.image = L"b"; })},
        {"geometry", "0, 0, 4, 4", styleWith([](auto& s) { s.geometry = L"0, 0, 4, 4"; })},
    };
    for (const auto& [name, value, expected] : cases) {
        SurfaceStyle style;
        EXPECT_TRUE(setSurfaceProperty(style, name, value)) << name;
        EXPECT_EQ(style, expected) << name;
        EXPECT_NE(style, SurfaceStyle()) << name << " has a value that is no default";
    }
}

TEST(SurfaceProperties, APresetFillsTheTuningAndKeepsTheKinds) {
    SurfaceStyle style;
    style.tuning.surface = MaterialKind::kPaper;
    style.tuning.control = MaterialKind::kRubber;
    MaterialProfile expected = materialPreset(MaterialPreset::kRuby);
    EXPECT_TRUE(setSurfaceProperty(style, "materialpreset", "Ruby"));
    EXPECT_EQ(style.material, expected.control);
    expected.surface = MaterialKind::kPaper;
    expected.control = MaterialKind::kRubber;
    expected.accent = MaterialKind::kNone;
    EXPECT_EQ(style.tuning, expected);
    EXPECT_TRUE(isSurfacePreset("preset") && isSurfacePreset("materialpreset"));
    EXPECT_FALSE(isSurfacePreset("material") || isSurfacePreset("") || isSurfacePreset("fill"));
}

TEST(SurfaceProperties, WhatDoesNotFitChangesNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"fill", "#123"},
        {"fill", "#12345678"},
        {"fill", ""},
        {"fill", "##123456"},
        {"fill", "#12345G"},
        {"fill", "\uFF11\uFF12"},
        {"shape", "star"},
        {"usenoise", "maybe"},
        {"opacity", "half"},
        {"opacity", ""},
        {"opacity", "-"},
        {"glowradius", "6px"},
        {"glowradius", "1.2.3"},
        {"preset", "cheese"},
        {"material", "cheese"},
        {"gradientkind", "spiral"},
        {"nosuch", "1"},
        {"", "1"},
        {"nineslice", "1"},
        {"Fill", "#123456"},
        {"borderwidth", "3"},
        {"f\u00EFll", "#123456"},
    };
    for (const auto& [name, value] : cases) {
        SurfaceStyle style;
        EXPECT_FALSE(setSurfaceProperty(style, name, value)) << name << " " << value;
        EXPECT_EQ(style, SurfaceStyle());
    }
}

}  // namespace
