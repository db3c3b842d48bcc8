// The setup dialog as data: its two layouts, what its buttons give, how texts that need more room move it, what a
// picked folder becomes.
#include <gtest/gtest.h>

#include <cstring>

#include "localization/text_ids.h"
#include "setup/dialog/dialog_layout.h"
#include "setup/dialog/dialog_model.h"
#include "setup/dialog/folder_pick.h"
#include "setup/dialog/setup_style_sheet.h"
#include "tavi/theme/skin_styles.h"
#include "tests/portable/host_stand_in.h"
#include "tests/portable/table.h"

namespace {

using namespace velquin::setup;
using tavi::Rect;
using Lines = std::vector<std::wstring>;

std::wstring number(int64_t value) {
    return std::to_wstring(value);
}

Lines itemsOf(const DialogLayout& layout) {
    constexpr const wchar_t* kKinds[] = {L"popup", L"label", L"input", L"button", L"check", L"bar"};
    Lines lines;
    for (const DialogItem& item : layout.items) {
        lines.push_back(std::wstring(kKinds[static_cast<int>(item.kind)]) + L" " + item.id + L" " +
                        describe(item.bounds) + L" text " + number(item.textId) + L" " + item.styleName + L" tip " +
                        number(item.tooltipId) + L" anchors " + number(item.anchors));
    }
    return lines;
}

Lines buttonsOf(const DialogLayout& layout) {
    Lines lines;
    for (const DialogButton& button : layout.buttons) {
        lines.push_back(std::wstring(button.id) + L" " + number(button.textId) + L" -> " +
                        number(static_cast<int>(button.action)) + (button.isPrimary ? L" primary " : L" ") +
                        button.styleName);
    }
    return lines;
}

TEST(SetupDialog, LayoutsAreWhatPeopleAndScriptsKnow) {
    const DialogLayout& fresh = dialogLayout(false);
    EXPECT_EQ(itemsOf(fresh), (Lines{
                                  L"popup setup.popup (0, 0, 690x344) text -1 default tip -1 anchors 15",
                                  L"label install-path-label (76, 188, 220x24) text 68 title tip -1 anchors 3",
                                  L"input install-path-input (76, 214, 420x32) text -1 vc-input tip 69 anchors 7",
                                  L"button install-path-browse (510, 214, 104x32) text 71 vc-button tip 72 anchors 6",
                                  L"check start-with-windows (76, 254, 250x28) text 58 vc-check tip 120 anchors 3",
                                  L"check desktop-shortcut (350, 254, 250x28) text 67 vc-check tip 121 anchors 3",
                                  L"bar setup.chrome (0, 0, 690x42) text 1 vc-chrome tip -1 anchors 7",
                              }));
    EXPECT_EQ(buttonsOf(fresh), (Lines{L"install 63 -> 1 primary vc-primary", L"close 62 -> 0 vc-secondary"}));
    EXPECT_EQ(fresh.headingId, 74);
    EXPECT_STREQ(fresh.badge, L"V");
    EXPECT_EQ(fresh.messageId, 76);

    const DialogLayout& installed = dialogLayout(true);
    EXPECT_EQ(itemsOf(installed), (Lines{
                                      L"popup setup.popup (0, 0, 690x344) text -1 default tip -1 anchors 15",
                                      L"label install-path-label (76, 188, 220x24) text 68 title tip -1 anchors 3",
                                      L"input install-path-input (76, 214, 530x32) text -1 vc-input tip 70 anchors 7",
                                      L"bar setup.chrome (0, 0, 690x42) text 1 vc-chrome tip -1 anchors 7",
                                  }));
    EXPECT_EQ(buttonsOf(installed), (Lines{L"repair 64 -> 3 primary vc-primary", L"reinstall 65 -> 2 vc-secondary",
                                           L"uninstall 66 -> 4 vc-danger", L"close 62 -> 0 vc-secondary"}));
    EXPECT_EQ(installed.headingId, 73);
    EXPECT_STREQ(installed.badge, L"!");
    EXPECT_EQ(installed.messageId, 75);
    EXPECT_EQ(findItem(installed, kBrowseId), nullptr);
    EXPECT_EQ(findButton(fresh, L"repair"), nullptr);
    EXPECT_EQ(findButton(installed, L"reinstall")->action, SetupAction::Reinstall);
}

TEST(SetupDialog, OptionsBeginAsTheMachineIsAndEndAsTheControlsAre) {
    EXPECT_EQ(initialChoice(false, false, L"C:\\P"), (SetupChoice{SetupAction::Close, true, false, L"C:\\P"}));
    EXPECT_EQ(initialChoice(true, false, L"D:\\Q"), (SetupChoice{SetupAction::Close, false, false, L"D:\\Q"}));
    EXPECT_TRUE(initialChoice(true, true, L"").startWithWindows);

    SetupChoice options = initialChoice(false, false, L"C:\\P");
    choose(options, SetupAction::Install, {false, true, L"E:\\typed"});
    EXPECT_EQ(options, (SetupChoice{SetupAction::Install, false, true, L"E:\\typed"}));
    // Without the controls: start as it was, no desktop shortcut, the folder as it was.
    choose(options, SetupAction::Repair, {});
    EXPECT_EQ(options, (SetupChoice{SetupAction::Repair, false, false, L"E:\\typed"}));
    choose(options, SetupAction::Close, {.installDir = L""});
    EXPECT_EQ(options, (SetupChoice{SetupAction::Close, false, false, L""}));
}

// What English needs, roughly.
constexpr DialogMeasures kEnglish{.messageBottom = 160,
                                  .buttonsHeight = 60,
                                  .label = {90, 18},
                                  .browse = {84, 30},
                                  .startWithWindows = {150, 22},
                                  .desktopShortcut = {130, 22}};

TEST(SetupDialog, TextsThatFitLeaveTheTableAlone) {
    for (const bool installed : {false, true}) {
        const DialogLayout& layout = dialogLayout(installed);
        const DialogPlaces places = placeDialog(installed, kEnglish, kDialogSize.width);
        const std::pair<const wchar_t*, Rect> all[] = {{kPathLabelId, places.label},
                                                       {kPathInputId, places.pathInput},
                                                       {kBrowseId, places.browse},
                                                       {kStartWithWindowsId, places.startWithWindows},
                                                       {kDesktopShortcutId, places.desktopShortcut}};
        for (const auto& [id, rect] : all) {
            const DialogItem* const item = findItem(layout, id);
            EXPECT_EQ(rect, item != nullptr ? item->bounds : Rect{}) << testing::PrintToString(id);
        }
        EXPECT_EQ(places.neededHeight, kDialogSize.height);
        EXPECT_EQ(kEnglish.messageBottom + places.reserved, installed ? 246 : 282);
    }
}

TEST(SetupDialog, TextsThatNeedRoomGetIt) {
    struct Case {
        const char* what;
        DialogMeasures need;
        int32_t width;
        Rect label, input, browse, start, desktop;
        int32_t height;
    };
    const auto with = [](auto&& change) {
        DialogMeasures need = kEnglish;
        change(need);
        return need;
    };
    const Case cases[] = {
        {"a long message moves all below it, and the window grows",
         with([](DialogMeasures& m) { m.messageBottom = 212; }),
         690,
         {76, 212, 220, 24},
         {76, 238, 420, 32},
         {510, 238, 104, 32},
         {76, 278, 250, 28},
         {350, 278, 250, 28},
         366},
        {"buttons in two lines",
         with([](DialogMeasures& m) { m.buttonsHeight = 100; }),
         690,
         {76, 188, 220, 24},
         {76, 214, 420, 32},
         {510, 214, 104, 32},
         {76, 254, 250, 28},
         {350, 254, 250, 28},
         382},
        {"a long caption takes from the field",
         with([](DialogMeasures& m) { m.browse = {150, 30}; }),
         690,
         {76, 188, 220, 24},
         {76, 214, 374, 32},
         {464, 214, 150, 32},
         {76, 254, 250, 28},
         {350, 254, 250, 28},
         344},
        {"a tall script makes the rows taller",
         with([](DialogMeasures& m) { m.label = {300, 30}, m.browse.height = 40, m.desktopShortcut.height = 34; }),
         690,
         {76, 188, 300, 30},
         {76, 220, 420, 40},
         {510, 220, 104, 40},
         {76, 268, 250, 34},
         {350, 268, 250, 34},
         362},
        {"a long check box pushes the other one, which gives up room it does not need",
         with([](DialogMeasures& m) { m.startWithWindows.width = 300; }),
         690,
         {76, 188, 220, 24},
         {76, 214, 420, 32},
         {510, 214, 104, 32},
         {76, 254, 300, 28},
         {400, 254, 214, 28},
         344},
        {"two long ones stand one below the other",
         with([](DialogMeasures& m) { m.startWithWindows.width = 300, m.desktopShortcut.width = 260; }),
         690,
         {76, 188, 220, 24},
         {76, 214, 420, 32},
         {510, 214, 104, 32},
         {76, 254, 300, 28},
         {76, 286, 260, 28},
         374},
        {"a wider window is for the path",
         kEnglish,
         790,
         {76, 188, 220, 24},
         {76, 214, 520, 32},
         {610, 214, 104, 32},
         {76, 254, 250, 28},
         {350, 254, 250, 28},
         344},
    };
    for (const Case& each : cases) {
        const DialogPlaces places = placeDialog(false, each.need, each.width);
        EXPECT_EQ(places.label, each.label) << each.what;
        EXPECT_EQ(places.pathInput, each.input) << each.what;
        EXPECT_EQ(places.browse, each.browse) << each.what;
        EXPECT_EQ(places.startWithWindows, each.start) << each.what;
        EXPECT_EQ(places.desktopShortcut, each.desktop) << each.what;
        EXPECT_EQ(places.neededHeight, each.height) << each.what;
    }
}

TEST(SetupDialog, APickedFolderGetsTheProductsNameOnce) {
    testing_table::expectEach([](const std::wstring& picked) { return productFolderIn(picked); },
                              {{L"C:\\Tools", L"C:\\Tools\\Lumora Velquin"},
                               {L"C:\\Tools\\lumora velquin", L"C:\\Tools\\lumora velquin"},
                               {L"C:\\Tools\\Lumora Velquin\\", L"C:\\Tools\\Lumora Velquin"},
                               {L"C:\\Lumora Velquin\\Tools", L"C:\\Lumora Velquin\\Tools\\Lumora Velquin"},
                               {L"C:\\Lumora Velquin 2", L"C:\\Lumora Velquin 2\\Lumora Velquin"},
                               {L"D:\\", L"D:\\Lumora Velquin"},
                               {L"\\\\server\\share\\", L"\\\\server\\share\\Lumora Velquin"},
                               {L"", L""}});
}

TEST(SetupDialog, AWrittenFolderLosesTheQuotesAroundAllOfIt) {
    testing_table::expectEach([](const std::wstring& written) { return unquotedFolder(written); },
                              {{L"\"C:\\My Tools\"", L"C:\\My Tools"},
                               {L" \"C:\\My Tools\"\t", L"C:\\My Tools"},
                               {L" C:\\Tools ", L" C:\\Tools "},
                               {L"\"C:\\Tools", L"\"C:\\Tools"},
                               {L"\"\"", L"\"\""},
                               {L"\"", L"\""},
                               {L"", L""}});
}

TEST(SetupDialog, StylesAreTakenFromTheSkinInTheirOrder) {
    tavi::SkinDefinition skin = builtInSetupTheme();
    const tavi::StyleSheet derived(setupStyleRules(), skin);
    Lines lines;
    for (const tavi::NamedStyle& style : derived.styles()) {
        EXPECT_TRUE(style.isDerived);
        lines.push_back(style.name + L" " + style.controlType + L" " + style.variant +
                        (style.font ? L" " + style.font->family + L" " + number(style.font->points) + L" " +
                                          number(style.font->weight)
                                    : L""));
    }
    EXPECT_EQ(lines, (Lines{L"vc-primary button primary", L"vc-secondary button default", L"vc-danger button default",
                            L"vc-popup popup default", L"vc-chrome chrometitlebar default",
                            L"vc-input textinput default", L"vc-check checkbox default",
                            L"vc-label text  Bahnschrift 9 600", L"vc-muted text  Bahnschrift 8 400"}));
    // A secondary look stands in for a danger that the skin does not have, and a danger goes before it.
    for (const std::string variant : {"secondary", "danger"}) {
        skin.styleOverrides.push_back({"button", variant, {}});
        EXPECT_EQ(tavi::StyleSheet(setupStyleRules(), skin).find(L"vc-danger")->variant,
                  std::wstring(variant.begin(), variant.end()));
    }
}

TEST(SetupDialog, ItsOwnThemeIsGoldOnDarkGreen) {
    const tavi::Theme& theme = builtInSetupTheme().theme;
    const tavi::Color colors[] = {theme.frame,     theme.shell,       theme.panel,          theme.header,
                                  theme.control,   theme.controlHot,  theme.controlPressed, theme.border,
                                  theme.accent,    theme.accentHot,   theme.text,           theme.textHot,
                                  theme.mutedText, theme.disabledText};
    constexpr uint32_t kRgb[] = {0xAC8038, 0x040B10, 0x05181E, 0x0D4246, 0x081C22, 0x236265, 0x134D52,
                                 0x265B5C, 0xE4A64E, 0xFAC360, 0xD7E9E0, 0xFFF3CC, 0x9DC4BE, 0x60807E};
    for (size_t i = 0; i < std::size(kRgb); ++i) {
        EXPECT_EQ(colors[i], tavi::hexColor(kRgb[i])) << i;
    }
    EXPECT_EQ(theme.uiFontFamily + number(theme.uiPointSize) + L"/" + number(theme.uiWeight), L"Bahnschrift9/400");
    EXPECT_EQ(theme.monoFontFamily + number(theme.monoPointSize) + L"/" + number(theme.monoWeight),
              L"Cascadia Mono9/400");
    EXPECT_EQ(resolveStyle(builtInSetupTheme(), L"text", L"mono", tavi::SurfaceState::kNormal).text,
              tavi::hexColor(0xB4EBDB));
}

}  // namespace
