// The shipped skins as a user sees them: what is rendered, not what the catalogs say, is legible, shows its state, and
// no skin is another one in other colors.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <string>
#include <vector>

#include "base/text.h"
#include "tavi/theme/skin_reader.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_painter.h"

namespace {

using namespace tavi;

constexpr Size kControl{160, 40};
constexpr Size kGround{320, 200};
constexpr int kAround = 16;  // pixels beside a control that its shadow and glow may reach

const std::vector<SkinDefinition>& shippedSkins() {
    static const std::vector<SkinDefinition> kSkins = [] {
        std::vector<SkinDefinition> skins;
        for (const char* const name : {"00-tavi-default-skins.json", "01-tavi-black-gemstone-skins.json",
                                       "02-tavi-material-gallery-skins.json", "03-tavi-windows11-modern-skins.json"}) {
            std::ifstream file(std::string(VELQUIN_SKIN_FOLDER "/") + name, std::ios::binary);
            std::string text{std::istreambuf_iterator<char>(file), {}};
            for (SkinDefinition& skin : parseCatalog(std::move(text), std::wstring(name, name + strlen(name)))) {
                skins.push_back(std::move(skin));
            }
        }
        return skins;
    }();
    return kSkins;
}

// Relative luminance by WCAG 2.1.
double luminance(int red, int green, int blue) {
    static const std::array<double, 256> kLinear = [] {
        std::array<double, 256> linear{};
        for (size_t i = 0; i < linear.size(); ++i) {
            const double share = static_cast<double>(i) / 255;
            linear[i] = share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        }
        return linear;
    }();
    const auto at = [](int channel) { return kLinear[static_cast<size_t>(channel)]; };
    return 0.2126 * at(red) + 0.7152 * at(green) + 0.0722 * at(blue);
}

double luminance(Color color) {
    return luminance(redOf(color), greenOf(color), blueOf(color));
}

double luminance(Pixel pixel, std::nullptr_t) {
    return luminance(static_cast<int>(pixel >> 16 & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
                     static_cast<int>(pixel & 0xFF));
}

double contrast(double a, double b) {
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The luminances of the pixels in `area`, of every other one of every other row where there are very many.
std::vector<double> luminances(const PixelBuffer& picture, const Rect& area) {
    const int step = area.width * area.height > 20000 ? 2 : 1;
    std::vector<double> found;
    for (int y = area.y; y < area.bottom(); y += step) {
        for (int x = area.x; x < area.right(); x += step) {
            found.push_back(luminance(picture.row(y)[x], nullptr));
        }
    }
    return found;
}

// The contrast that a color has against all but the least favourable 2 % of the pixels: single grains of a texture do
// not make a letter illegible.
double contrastOn(const std::vector<double>& pixels, Color color) {
    const double own = luminance(color);
    std::vector<double> found(pixels.size());
    std::ranges::transform(pixels, found.begin(), [own](double pixel) { return contrast(own, pixel); });
    const auto place = found.begin() + static_cast<ptrdiff_t>(found.size() / 50);
    std::nth_element(found.begin(), place, found.end());
    return *place;
}

void paint(PixelBuffer& picture, const Rect& area, const SurfaceStyle& style) {
    paintSurface(picture.view(), area, style, PerformanceProfile::kBestGraphics);
    paintMaterial(picture.view(), area, {}, style, PerformanceProfile::kBestGraphics);
}

PixelBuffer filled(Size size, Color color) {
    PixelBuffer picture(size);
    std::ranges::fill(picture.pixels(), premultiplied(color, 255));
    return picture;
}

struct Ground {
    const wchar_t* type;  // empty: the window itself
    const wchar_t* variant;
};
constexpr Ground kGrounds[] = {{L"", L""},
                               {L"panel", L"default"},
                               {L"panel", L"glass"},
                               {L"panel", L"raised"},
                               {L"panel", L"dashboard"},
                               {L"popup", L"default"},
                               {L"card", L"default"}};

PixelBuffer paintedGround(const SkinDefinition& skin, const Ground& ground) {
    PixelBuffer picture = filled(kGround, skin.theme.shell);
    if (*ground.type != L'\0') {
        paint(picture, {0, 0, kGround.width, kGround.height},
              resolveStyle(skin, ground.type, ground.variant, SurfaceState::kNormal).surface);
    }
    return picture;
}

Rect inside(Size size, int margin) {
    return {margin, margin, size.width - 2 * margin, size.height - 2 * margin};
}

std::string who(const SkinDefinition& skin) {
    return base::toUtf8(skin.id);
}

std::string who(const SkinDefinition& skin, std::wstring_view type, std::wstring_view variant, std::wstring_view part,
                SurfaceState state) {
    static constexpr const char* kNames[kSurfaceStateCount] = {"normal",   "hot",     "pressed",  "focused",
                                                               "disabled", "checked", "selected", "read-only"};
    return who(skin) + ": " + base::toUtf8(type) + "/" + base::toUtf8(variant) + " " + base::toUtf8(part) + " " +
           kNames[static_cast<size_t>(state)];
}

struct Part {
    const wchar_t* type;
    const wchar_t* variant;
    const wchar_t* part;
    std::vector<SurfaceState> states;
};

using enum SurfaceState;

constexpr const wchar_t* kButtons[] = {L"default",        L"secondary", L"primary",        L"primary-action",
                                       L"quiet",          L"success",   L"success-action", L"warning",
                                       L"warning-action", L"danger",    L"danger-action"};

// Everything that text is drawn on.
const std::vector<Part>& textCarriers() {
    static const std::vector<Part> kParts = [] {
        std::vector<Part> parts;
        for (const wchar_t* const variant : kButtons) {
            parts.push_back({L"button", variant, L"surface", {kNormal, kHot, kPressed, kDisabled}});
        }
        for (const wchar_t* const variant : {L"default", L"info", L"success", L"warning", L"danger"}) {
            parts.push_back({L"statuschip", variant, L"surface", {kNormal}});
        }
        parts.insert(parts.end(),
                     {{L"textinput", L"default", L"surface", {kNormal, kHot, kFocused, kDisabled, kReadOnly}},
                      {L"selectbox", L"default", L"surface", {kNormal, kHot, kPressed, kDisabled}},
                      {L"tooltip", L"default", L"surface", {kNormal}},
                      {L"chrometitlebar", L"default", L"surface", {kNormal}},
                      {L"popup", L"default", L"header", {kNormal}},
                      {L"tabstrip", L"default", L"row", {kHot, kSelected}},
                      {L"menubar", L"default", L"row", {kHot, kSelected}},
                      {L"listbox", L"default", L"row", {kHot, kSelected}},
                      {L"tablelist", L"default", L"header", {kNormal}},
                      {L"tablelist", L"default", L"row", {kHot, kSelected}}});
        return parts;
    }();
    return kParts;
}

// What the skin does not name looks like another one, which it does.
bool isOwn(const SkinDefinition& skin, const Part& part) {
    return part.variant == std::wstring_view(L"default") || hasStyle(skin, part.type, part.variant);
}

bool isSecondary(SurfaceState state) {
    return state == kHot || state == kPressed || state == kDisabled;
}

PixelBuffer paintedControl(const SkinDefinition& skin, const SurfaceStyle& style, Size size = kControl) {
    PixelBuffer picture = filled({size.width + 2 * kAround, size.height + 2 * kAround}, skin.theme.panel);
    paint(picture, {kAround, kAround, size.width, size.height}, style);
    return picture;
}

TEST(Skins, TextOnControlsIsLegible) {
    const Rect text{kAround + 16, kAround + 8, kControl.width - 32, kControl.height - 16};
    for (const SkinDefinition& skin : shippedSkins()) {
        for (const Part& carrier : textCarriers()) {
            if (!isOwn(skin, carrier)) {
                continue;
            }
            const auto& [type, variant, part, states] = carrier;
            for (const SurfaceState state : states) {
                const StyleLook look = resolveStyle(skin, type, variant, state, part);
                EXPECT_GE(contrastOn(luminances(paintedControl(skin, look.surface), text), look.text),
                          isSecondary(state) ? 3.0 : 4.5)
                    << who(skin, type, variant, part, state);
            }
        }
    }
}

TEST(Skins, TextOnLargeSurfacesIsLegibleAndTheFocusMarkStandsOut) {
    for (const SkinDefinition& skin : shippedSkins()) {
        // Marks repeat from control to control.
        std::map<Color, std::string> marks;
        for (const wchar_t* const type :
             {L"button", L"textinput", L"selectbox", L"checkbox", L"listbox", L"tabstrip"}) {
            for (const wchar_t* const variant : kButtons) {
                marks.emplace(focusColor(skin, type, variant), who(skin, type, variant, L"surface", kFocused));
            }
        }
        for (const Ground& ground : kGrounds) {
            const std::vector<double> pixels = luminances(paintedGround(skin, ground), inside(kGround, 8));
            const std::string on = " on " + base::toUtf8(ground.type) + "/" + base::toUtf8(ground.variant);
            for (const wchar_t* const variant : {L"default", L"title", L"muted", L"mono", L"danger"}) {
                EXPECT_GE(contrastOn(pixels, resolveStyle(skin, L"text", variant, kNormal).text), 4.5)
                    << who(skin, L"text", variant, L"surface", kNormal) << on;
            }
            EXPECT_GE(contrastOn(pixels, resolveStyle(skin, L"text", L"default", kDisabled).text), 3.0)
                << who(skin, L"text", L"default", L"surface", kDisabled) << on;
            for (const auto& [color, name] : marks) {
                EXPECT_GE(contrastOn(pixels, color), 3.0) << name << on;
            }
        }
    }
}

// The edge of a field is what tells it from the panel.
TEST(Skins, FieldsCanBeSeenOnPanels) {
    for (const SkinDefinition& skin : shippedSkins()) {
        const std::vector<double> panel = luminances(paintedGround(skin, {L"panel", L"default"}), inside(kGround, 8));
        for (const wchar_t* const type : {L"textinput", L"selectbox", L"checkbox"}) {
            const StyleLook look = resolveStyle(skin, type, L"default", kNormal);
            EXPECT_TRUE(look.surface.drawBorder) << who(skin, type, L"default", L"surface", kNormal);
            EXPECT_GE(contrastOn(panel, look.surface.border), 1.5) << who(skin, type, L"default", L"surface", kNormal);
        }
    }
}

// In how much of a control's area, as a share of it, two pictures of it differ by more than one just notices.
double visibleDifference(const PixelBuffer& a, const PixelBuffer& b, Size control) {
    constexpr int kNoticed = 10;
    int differing = 0;
    for (size_t i = 0; i < a.pixels().size(); ++i) {
        int most = 0;
        for (const int shift : {0, 8, 16}) {
            most = std::max(most, std::abs(static_cast<int>(a.pixels()[i] >> shift & 0xFF) -
                                           static_cast<int>(b.pixels()[i] >> shift & 0xFF)));
        }
        differing += most >= kNoticed ? 1 : 0;
    }
    return static_cast<double>(differing) / (control.width * control.height);
}

TEST(Skins, StatesCanBeTold) {
    struct Case {
        const wchar_t* type;
        const wchar_t* variant;
        Size size;
        std::vector<SurfaceState> states;  // each of which differs from all before it
    };
    const std::vector<SurfaceState> pushed{kNormal, kHot, kPressed};
    const Case cases[] = {{L"button", L"default", kControl, pushed}, {L"button", L"secondary", kControl, pushed},
                          {L"button", L"primary", kControl, pushed}, {L"button", L"quiet", kControl, pushed},
                          {L"button", L"success", kControl, pushed}, {L"button", L"warning", kControl, pushed},
                          {L"button", L"danger", kControl, pushed},  {L"checkbox", L"default", {18, 18}, pushed}};
    for (const SkinDefinition& skin : shippedSkins()) {
        for (const auto& [type, variant, size, states] : cases) {
            std::vector<PixelBuffer> pictures;
            for (const SurfaceState state : states) {
                pictures.push_back(paintedControl(skin, resolveStyle(skin, type, variant, state).surface, size));
                for (size_t i = 0; i + 1 < pictures.size(); ++i) {
                    EXPECT_GE(visibleDifference(pictures[i], pictures.back(), size), 0.1)
                        << who(skin, type, variant, L"surface", state) << " beside the state " << i;
                }
            }
        }
    }
}

// What a style is without its colors: outline, layers, gradients, light and materials.
void addForm(std::vector<int>& form, const SurfaceStyle& style) {
    const auto add = [&form](auto... values) { (form.push_back(static_cast<int>(values)), ...); };
    add(style.shape, style.drawFill, style.drawBorder, style.showShadow ? style.shadowOffsetY : 0,
        style.showShadow ? style.shadowOpacity / 16 : 0, style.showInnerShadow ? style.tuning.innerShadowSize : 0,
        style.showGlow ? style.glowRadius : 0, style.showOutline ? style.outlineWidth : 0,
        style.useGradient ? style.gradientKind : GradientKind{9},
        style.useGradient ? style.gradientDirection : GradientDirection{9}, style.useGradient && style.useGradientMid,
        style.useNoise ? style.noiseOpacity : 0, style.material, style.tuning.finish, style.tuning.lightAngle / 16);
}

std::vector<int> formOf(const SkinDefinition& skin) {
    std::vector<int> form;
    for (const auto& [type, variant, part, states] : textCarriers()) {
        for (const SurfaceState state : states) {
            addForm(form, resolveStyle(skin, type, variant, state, part).surface);
        }
    }
    for (const Ground& ground : kGrounds) {
        addForm(form, resolveStyle(skin, ground.type, ground.variant, kNormal).surface);
    }
    for (const auto& [type, part] : {std::pair{L"checkbox", L"surface"},
                                     {L"progressbar", L"surface"},
                                     {L"progressbar", L"fill"},
                                     {L"scrollbar", L"thumb"},
                                     {L"separator", L"surface"}}) {
        addForm(form, resolveStyle(skin, type, L"default", kNormal, part).surface);
    }
    return form;
}

// Every skin is a design of its own: with all colors taken away, a tenth of what makes its form is its own against any
// other skin.
TEST(Skins, NoneIsAnotherInOtherColors) {
    std::vector<std::vector<int>> forms;
    for (const SkinDefinition& skin : shippedSkins()) {
        forms.push_back(formOf(skin));
    }
    for (size_t i = 0; i < forms.size(); ++i) {
        for (size_t k = 0; k < i; ++k) {
            const auto differing = std::transform_reduce(forms[i].begin(), forms[i].end(), forms[k].begin(), size_t{0},
                                                         std::plus<>(), std::not_equal_to<>());
            EXPECT_GE(static_cast<double>(differing) / static_cast<double>(forms[i].size()), 0.1)
                << who(shippedSkins()[i]) << " and " << who(shippedSkins()[k]);
        }
    }
}

TEST(Skins, AllAreRead) {
    EXPECT_EQ(shippedSkins().size(), 58U);
}

}  // namespace
