// The basic controls under mouse and keyboard, and what they paint.
#include <algorithm>
#include <cmath>
#include <ranges>
#include <span>

#include "tavi/controls/check_box.h"
#include "tavi/controls/glyphs.h"
#include "tavi/controls/label.h"
#include "tavi/controls/progress_bar.h"
#include "tavi/controls/themed_button.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/surface_margins.h"
#include "tests/portable/drawing_stand_in.h"
#include "tests/portable/shaping_stand_in.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace testing_tavi;

class Controls : public TaviWindow {
protected:
    Canvas canvas{{400, 300}};

    template <typename Class, typename... Arguments>
    Class* place(Arguments&&... arguments) {
        return tree->root().add<Class>(std::forward<Arguments>(arguments)...);
    }
    // Everything that is painted now, where the window is of that scale.
    Drawing painted(int32_t dpi = 96) {
        tree->setClient({400, 300}, dpi);
        tree->repaintAll();
        takenDrawing();
        tree->paint(canvas.handle());
        return takenDrawing();
    }
    // A person at a control in (20, 20) - (120, 52), by letters.
    void perform(Control& control, std::string_view acts) {
        for (const char act : acts) {
            KeyEvent space{.code = key::kSpace};
            switch (act) {
                case 'i':
                    move({60, 30});
                    break;
                case 'o':
                    move({300, 200});
                    break;
                case 'd':
                    press({60, 30});
                    break;
                case 'u':
                    release(tree->hovered() == &control ? Point{60, 30} : Point{300, 200});
                    break;
                case 'r':
                    press({60, 30}, PointerButton::Right);
                    break;
                case 'R':
                    release({60, 30}, PointerButton::Right);
                    break;
                case 'a':
                    space.wasDown = true;
                    [[fallthrough]];
                case 's':
                    tree->keyPress(space);
                    break;
                case 'S':
                    tree->keyRelease(space);
                    break;
                case 'c':
                    tree->pointerLost();
                    break;
                case 'n':
                    key(key::kReturn);
                    break;
                case 'e':
                    key(key::kEscape);
                    break;
                case 't':
                    key(key::kTab);
                    break;
                case 'x':
                    control.setEnabled(false);
                    tree->update();
                    break;
                default:
                    FAIL() << act;
            }
        }
    }
};

constexpr Rect kPlace{20, 20, 100, 32};

// Clicks count inside, Space when it is let go, Return at once but not on a box, each once; all else does nothing.
TEST_F(Controls, ArePressed) {
    constexpr std::pair<std::string_view, int> kCases[] = {
        {"idu", 1},  {"iduidu", 2}, {"idou", 0}, {"idoiu", 1}, {"irR", 0},   {"idrRu", 1}, {"idcu", 0},
        {"idxu", 0}, {"idtu", 0},   {"xidu", 0}, {"sS", 1},    {"saaaS", 1}, {"S", 0},     {"aaS", 0},
        {"seS", 0},  {"stS", 0},    {"sxS", 0},  {"n", 1},     {"xn", 0},
    };
    for (const auto& [acts, count] : kCases) {
        for (const bool isBox : {false, true}) {
            tree = WindowTree::create(platform);
            tree->setClient({400, 300}, 96);
            tree->activated(true);
            held = 0;
            int presses = 0;
            Control* control = nullptr;
            if (isBox) {
                auto* const box = place<CheckBox>(L"a", kPlace, L"Box");
                box->changed.connect([&](ValueChangedEvent& event) { presses += event.oldValue != event.newValue; });
                control = box;
            } else {
                auto* const button = place<ThemedButton>(L"a", kPlace, L"Button");
                button->pressed.connect([&](CommandEvent& event) { presses += event.command == L"a"; });
                control = button;
            }
            place<ThemedButton>(L"other", Rect{20, 100, 100, 32}, L"Other");
            tree->setFocus(control);
            perform(*control, acts);
            // Return on a box is for the default button, of which there is none here.
            EXPECT_EQ(presses, isBox && acts == "n" ? 0 : count) << acts << (isBox ? " box" : " button");
        }
    }
}

TEST_F(Controls, LookAsTheyAre) {
    constexpr std::pair<std::string_view, SurfaceState> kCases[] = {
        {"t", SurfaceState::kNormal},   {"", SurfaceState::kFocused},     {"i", SurfaceState::kHot},
        {"id", SurfaceState::kPressed}, {"ido", SurfaceState::kFocused},  {"idoi", SurfaceState::kPressed},
        {"idu", SurfaceState::kHot},    {"s", SurfaceState::kPressed},    {"sS", SurfaceState::kFocused},
        {"x", SurfaceState::kDisabled}, {"idx", SurfaceState::kDisabled}, {"idc", SurfaceState::kHot},
    };
    for (const auto& [acts, state] : kCases) {
        auto* const button = place<ThemedButton>(L"a", kPlace, L"Button");
        auto* const other = place<ThemedButton>(L"other", Rect{20, 100, 100, 32}, L"Other");
        tree->setFocus(button);
        perform(*button, acts);
        const SurfaceStyle found = painted().surfaces.front().style;
        const SurfaceStyle expected = resolveStyle(activeSkin(), L"button", L"", state).surface;
        EXPECT_EQ(std::tuple(found.fill, found.border, found.gradientStart),
                  std::tuple(expected.fill, expected.border, expected.gradientStart))
            << acts;
        EXPECT_EQ(found.showOutline, tree->focused() == button) << acts;
        tree->pointerLost();
        held = 0;
        move({300, 200});
        tree->root().removeChild(*button);
        tree->root().removeChild(*other);
    }
}

TEST_F(Controls, MayBeDestroyedByTheirCallbacks) {
    for (const std::string_view acts : {"idu", "sS", "n"}) {
        auto* const button = place<ThemedButton>(L"a", kPlace, L"Button");
        auto* const box = place<CheckBox>(L"b", Rect{20, 100, 100, 32}, L"Box");
        button->pressed.connect([&](CommandEvent&) { box->setChecked(true); });
        box->changed.connect([&](ValueChangedEvent&) {
            tree->root().removeChild(*button);
            tree->root().removeChild(*box);
        });
        tree->setFocus(button);
        perform(*button, acts);
        EXPECT_TRUE(tree->root().children().empty()) << acts;
    }
}

// Their bounds cut off what they paint; shadows, glows and marks of the focus must have ended before.
TEST_F(Controls, PaintInsideOfTheirBounds) {
    SkinDefinition skin = activeSkin();
    skin.styleOverrides.push_back({.controlType = "button", .variant = "default", .properties = {}});
    for (const auto* const path : {"surface.normal.showglow", "surface.normal.showshadow"}) {
        skin.styleOverrides.back().properties.append(path, "true");
    }
    skin.styleOverrides.back().properties.append("surface.normal.shadowoffsety", "9");
    skin.styleOverrides.back().properties.append("focus.width", "7");
    const SkinDefinition before = activeSkin();
    activateSkin(skin);
    auto* const button = place<ThemedButton>(L"a", kPlace, L"Button");
    for (const int32_t dpi : {96, 120, 144, 168, 192}) {
        tree->setFocus(button);
        const Drawing drawing = painted(dpi);
        const Rect bounds = tree->scale().device(kPlace);
        for (const Drawing::Surface& surface : drawing.surfaces) {
            EXPECT_TRUE(surface.style.showOutline && surface.style.showGlow && surface.style.showShadow);
            const SurfaceMargins margins = surfaceMargins(surface.style);
            const Rect reached =
                rectBetween(surface.area.x - margins.left, surface.area.y - margins.top,
                            surface.area.right() + margins.right, surface.area.bottom() + margins.bottom);
            EXPECT_TRUE(bounds.contains(reached)) << dpi << testing::PrintToString(describe(reached));
        }
    }
    activateSkin(before);
}

TEST_F(Controls, CheckBoxesTellTheirState) {
    auto* const box = place<CheckBox>(L"a", Rect{20, 20, 200, 32}, L"Start", true);
    std::vector<double> values;
    box->changed.connect(
        [&](ValueChangedEvent& event) { values.insert(values.end(), {event.oldValue, event.newValue}); });
    std::vector<ControlState> states;
    tree->root().captureStateTree(states);
    EXPECT_EQ(box->automationName(), L"Start, checked");
    EXPECT_EQ(painted().pictures.size(), 1U);
    box->setChecked(true);
    box->setChecked(false);
    EXPECT_EQ(box->automationName(), L"Start, not checked");
    EXPECT_TRUE(painted().pictures.empty());
    tree->root().restoreStateTree(states, false);
    EXPECT_TRUE(box->checked());
    EXPECT_EQ(values, (std::vector<double>{1, 0, 0, 1}));
    // The box stands where reading begins, inside of the room for the focus.
    EXPECT_EQ(painted().surfaces.front().area, (Rect{22, 27, 18, 18}));
    tree->setRightToLeft(true);
    EXPECT_EQ(painted().surfaces.front().area, (Rect{200, 27, 18, 18}));
    EXPECT_EQ(painted(192).surfaces.front().area.size(), (Size{36, 36}));
}

TEST_F(Controls, TextsAskForRoomAndTellWhenTheyAreCut) {
    auto* const label = place<Label>(L"a", Rect{0, 0, 200, 20}, L"Everything is ready to be installed");
    auto* const button = place<ThemedButton>(L"b", kPlace, L"Button");
    auto* const box = place<CheckBox>(L"c", kPlace, L"Button");
    for (const int32_t dpi : {96, 144, 192}) {
        tree->setClient({400, 300}, dpi);
        const Size whole = label->preferredSize();
        const Size lines = label->preferredSize(whole.width / 2);
        EXPECT_TRUE(lines.width <= whole.width / 2 + 1 && lines.height >= 2 * whole.height - 1) << dpi;
        label->setFit(TextFit::kEllipsis);
        label->setBounds({0, 0, whole.width - 20, whole.height});
        EXPECT_TRUE(label->isCut()) << dpi;
        label->setFit(TextFit::kWrap);
        EXPECT_TRUE(label->isCut()) << dpi;
        label->setBounds({0, 0, whole.width - 20, 3 * whole.height});
        EXPECT_FALSE(label->isCut()) << dpi;
        label->setFontChange(20, 700);
        EXPECT_TRUE(label->isCut()) << dpi;
        label->setFontChange(0, 0);
        EXPECT_GE(button->preferredSize().height, 32);
        EXPECT_EQ(button->preferredSize().width - box->preferredSize().width, 2 * 16 - (2 + 18 + 8));
    }
}

TEST_F(Controls, TextsBeginWhereTheSurfacesOfOthersDo) {
    auto* const label = place<Label>(L"a", Rect{20, 20, 100, 32}, L"Text");
    place<CheckBox>(L"b", Rect{20, 60, 100, 28}, L"");
    for (const int32_t dpi : {96, 120, 144, 192}) {
        for (const bool rightToLeft : {false, true}) {
            tree->setRightToLeft(rightToLeft);
            stand_in::takeDrawnTexts();
            const Rect box = painted(dpi).surfaces.front().area;
            const int32_t left = stand_in::takeDrawnTexts().front().origin.x;
            const TextFormat format{.font = {activeTheme().uiFontFamily, activeTheme().uiPointSize}, .dpi = dpi};
            const int32_t right = left + TextLayout(label->text(), format).size().width;
            EXPECT_EQ(rightToLeft ? right : left, rightToLeft ? box.right() : box.x) << dpi;
        }
    }
}

// How many device pixels a control has depends on where it lies.
TEST_F(Controls, TextsAreWholeInTheRoomTheyAskForWhereverItIs) {
    auto* const label = place<Label>(L"a", Rect{}, L"");
    for (const int32_t dpi : {96, 108, 120, 144, 168, 192}) {
        tree->setClient({900, 600}, dpi);
        for (int32_t at = 0; at < 12; ++at) {
            label->setText(std::wstring(static_cast<size_t>(at) + 1, L'a') + L" is ready");
            label->setFit(TextFit::kEllipsis);
            const Size whole = label->preferredSize();
            label->setBounds({at, at, whole.width, whole.height});
            EXPECT_FALSE(label->isCut()) << dpi << " at " << at;
            label->setFit(TextFit::kWrap);
            const int32_t width = whole.width - at * 4;
            label->setBounds({at, at, width, label->preferredSize(width).height});
            EXPECT_FALSE(label->isCut()) << dpi << " at " << at;
        }
    }
}

TEST_F(Controls, ProgressBarsFillFromWhereReadingBegins) {
    auto* const bar = place<ProgressBar>(L"a", Rect{20, 20, 108, 16});
    const struct {
        std::optional<double> share;
        std::optional<double> kept;
        const wchar_t* told;
        Rect leftToRight;
        Rect rightToLeft;
    } kCases[] = {
        {0.5, 0.5, L"50 %", {24, 24, 50, 8}, {74, 24, 50, 8}},
        {0.0, 0.0, L"0 %", {24, 24, 0, 8}, {124, 24, 0, 8}},
        {7.0, 1.0, L"100 %", {24, 24, 100, 8}, {24, 24, 100, 8}},
        {-1.0, 0.0, L"0 %", {24, 24, 0, 8}, {124, 24, 0, 8}},
        {std::nan(""), std::nullopt, L"", {24, 24, 0, 8}, {124, 24, 0, 8}},
    };
    for (const auto& each : kCases) {
        bar->setShare(each.share);
        EXPECT_EQ(bar->share(), each.kept);
        std::wstring told;
        bar->automationValue(told);
        EXPECT_EQ(told, each.told);
        for (const bool rightToLeft : {false, true}) {
            tree->setRightToLeft(rightToLeft);
            EXPECT_EQ(painted().surfaces.back().area, rightToLeft ? each.rightToLeft : each.leftToRight);
        }
    }
}

TEST_F(Controls, ProgressBarsMoveWhileTheyAreSeen) {
    auto* const bar = place<ProgressBar>(L"a", Rect{20, 20, 108, 16});
    const auto running = [&] { return platform.controlTimers[WindowTimer::FirstOfControls] > 0; };
    const auto tick = [&] { tree->timeOut(WindowTimer::FirstOfControls); };
    EXPECT_FALSE(running());
    painted();
    EXPECT_TRUE(running());
    int32_t covered = 0;
    int32_t last = 24;
    for (int i = 0; i < 63; ++i) {  // once along the bar
        tick();
        EXPECT_TRUE(tree->needsPaint());
        const Rect piece = painted().surfaces.back().area;
        EXPECT_TRUE(piece.x >= last && piece.right() <= 124);
        last = piece.x;
        covered = std::max(covered, piece.width);
    }
    EXPECT_TRUE(covered == 25 && last > 110);
    bar->setVisible(false);
    tick();
    EXPECT_FALSE(running());
    bar->setVisible(true);
    painted();
    EXPECT_TRUE(running());
    bar->setShare(0.3);
    EXPECT_FALSE(running());
    bar->setShare(std::nullopt);
    painted();
    EXPECT_TRUE(running());
    tree->root().removeChild(*bar);
    EXPECT_FALSE(running());
}

// Every sign is there at every size; those of straight lines have no soft edges, and both halves are alike.
TEST(Glyphs, AreSharp) {
    std::vector<PixelBuffer> pictures;
    for (const int32_t extent : {1, 9, 16, 18, 20, 23, 24, 27, 32, 36, 48}) {
        for (auto i = static_cast<uint8_t>(Glyph::kTick); i <= static_cast<uint8_t>(Glyph::kQuestion); ++i) {
            const auto glyph = static_cast<Glyph>(i);
            const PixelBuffer picture = glyphPicture(glyph, extent, hexColor(0xFFFFFF));
            const auto count = std::ranges::count_if(picture.pixels(), [](Pixel pixel) { return pixel != 0; });
            EXPECT_GT(count, 0) << int{i} << " at " << extent;
            const bool straight = glyph >= Glyph::kMinimize && glyph <= Glyph::kResetSize;
            const auto soft =
                std::ranges::count_if(picture.pixels(), [](Pixel pixel) { return pixel != 0 && pixel != 0xFFFFFFFF; });
            EXPECT_TRUE(!straight || soft == 0) << int{i} << " at " << extent;
            if (extent == 24) {
                EXPECT_EQ(std::ranges::count(pictures, picture), 0);
                pictures.push_back(picture);
            }
            bool mirrored = true;
            for (int32_t y = 0; y < extent; ++y) {
                const std::span row(picture.row(y), static_cast<size_t>(extent));
                mirrored = mirrored && std::ranges::equal(row, std::views::reverse(row));
            }
            EXPECT_TRUE(mirrored || (glyph != Glyph::kClose && glyph != Glyph::kArrowDown))
                << int{i} << " at " << extent;
        }
    }
    EXPECT_TRUE(glyphPicture(Glyph::kTick, 0, 0).empty());
}

}  // namespace
