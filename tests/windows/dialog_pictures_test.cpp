// How the setup's windows look, as pictures that were looked at and found good: skins, languages, scales, performance
// profiles, states. The texts in them are painted with the fonts of this build's tool environment, so the expected
// pictures are true there only. They are kept at half size; whoever writes them anew finds them at full size beside the
// build, in golden/full, and looks at each.
#include <cstdlib>
#include <thread>

#include "base/text.h"
#include "base/win32/files.h"
#include "core/configuration.h"
#include "core/log.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/dialog_controls.h"
#include "setup/dialog/progress_window.h"
#include "setup/dialog/setup_messages.h"
#include "setup/dialog/setup_style_sheet.h"
#include "setup/dialog/setup_window.h"
#include "tavi/core/drawing.h"
#include "tavi/core/scale.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/image.h"
#include "tavi/theme/performance_profile.h"
#include "tavi/theme/skin_catalog.h"
#include "tests/portable/golden.h"
#include "tests/windows/window_support.h"
#include "tools/gallery/sheet.h"

namespace {

using namespace testing_windows;
using namespace velquin::setup;
using velquin::ProductConfig;

// A picture comes out the same each time, but for rounding on another processor. Of the half size, a check box that is
// one pixel off changes about 150 pixels, a missing sign in the badge 300, a border of a slightly other color 24.
constexpr GoldenTolerance kTolerance{.levels = 12, .pixels = 8};

struct Scene {
    const wchar_t* skin = nullptr;  // null: the setup's own theme
    bool installed = false;
    const wchar_t* language = L"en-US";
    int percent = 100;
    const wchar_t* focused = nullptr;  // null: the primary button
};

// Kept for looking at where they are written anew.
void compare(const std::string& name, const PixelBuffer& picture) {
    if (std::getenv("VELQUIN_WRITE_GOLDEN") != nullptr) {
        const std::wstring folder = base::toWide(VELQUIN_GOLDEN_FOUND "\\full");
        EXPECT_TRUE(base::createFolders(folder) &&
                    gallery::savePng(folder + L"\\" + base::toWide(name + ".png"), picture));
    }
    EXPECT_TRUE(equalsGolden(name, gallery::halved(picture), kTolerance));
}

void useSkin(const wchar_t* id) {
    setPictureFolder(VELQUIN_SKIN_FOLDER);
    const std::optional<SkinDefinition> skin = id != nullptr ? findSkin(VELQUIN_SKIN_FOLDER, id) : builtInSetupTheme();
    ASSERT_TRUE(skin) << base::toUtf8(id);
    activateSkin(*skin);
}

// The dialog as showSetupChoice makes it, painted without being shown.
PixelBuffer paintDialog(const Scene& scene) {
    ProductConfig config;
    config.language = scene.language;
    const auto textOf = [&](int textId) { return localizedText(config, textId); };
    const StyleSheet sheet(setupStyleRules(), activeSkin());
    DialogWindow dialog(kInstance);
    WindowTree& tree = dialog.tree();
    tree.setBackground(activeTheme().shell);
    tree.setRightToLeft(velquin::isRightToLeftLanguage(config.language));
    EXPECT_TRUE(dialog.create({.clientSize = kDialogSize, .style = kSetupWindowStyle, .customChrome = true}));
    const auto setHeight = [&](int32_t height) {
        const Size device{kDialogSize.width * scene.percent / 100, height * scene.percent / 100};
        tree.setClient(device, kDesignDpi * scene.percent / 100);
        return device;
    };
    setHeight(kDialogSize.height);
    DialogControls controls(dialog.root(), scene.installed,
                            initialChoice(scene.installed, true, L"C:\\Program Files\\Lumora\\Velquin"), textOf);
    addSetupChrome(dialog, activeTheme(), kDialogSize.width, textOf(velquin::text::kSetupTitle));
    sheet.apply(dialog.root());
    const Size device = setHeight(controls.neededHeight());
    controls.arrange();
    tree.setFocus(scene.focused != nullptr ? dialog.root().findById(scene.focused) : &controls.primaryButton());
    tree.activated(true);
    tree.update();
    tree.repaintAll();
    const gallery::Canvas canvas(device);
    tree.paint(canvas.target());
    return canvas.picture();
}

void check(const std::string& name, const Scene& scene) {
    useSkin(scene.skin);
    compare(name, paintDialog(scene));
}

TEST(DialogPictures, OfSkins) {
    for (const wchar_t* const skin :
         {L"verdant-ops", L"carmine-rose", L"porcelain-ink", L"win11-light", L"classic", L"ruby-black",
          L"alabaster-ink", L"brushed-steel", L"opal-dark", L"win11-modern-black"}) {
        for (const bool installed : {false, true}) {
            check("skin-" + base::toUtf8(skin) + (installed ? "-installed" : "-new"),
                  {.skin = skin, .installed = installed});
        }
    }
    check("skin-none-new", {});
    check("skin-none-installed", {.installed = true});
}

TEST(DialogPictures, OfLanguages) {
    // Each script in one layout, one look and one scale, so that all of them come together with many.
    constexpr const wchar_t* kSkins[] = {L"verdant-ops", nullptr, L"win11-light", nullptr};
    int index = 0;
    for (const wchar_t* const language : {L"de-DE", L"cs-CZ", L"ru-RU", L"el-GR", L"ar-SA", L"he-IL", L"hi-IN",
                                          L"ta-IN", L"th-TH", L"ja-JP", L"zh-CN", L"am-ET"}) {
        constexpr int kPercents[] = {100, 150, 200};
        check("language-" + base::toUtf8(language), {.skin = kSkins[index % 4],
                                                     .installed = index / 2 % 2 == 1,
                                                     .language = language,
                                                     .percent = kPercents[index % 3]});
        ++index;
    }
}

TEST(DialogPictures, OfPerformanceProfiles) {
    for (const PerformanceProfile profile :
         {PerformanceProfile::kBestGraphics, PerformanceProfile::kBalanced, PerformanceProfile::kMaximumPerformance}) {
        setPerformanceProfile(profile);
        check("profile-" + std::to_string(static_cast<int>(profile)), {.skin = L"obsidian-atelier"});
    }
    setPerformanceProfile(PerformanceProfile::kBalanced);
}

TEST(DialogPictures, OfTheFocus) {
    for (const wchar_t* const id : {kPathInputId, kDesktopShortcutId, kBrowseId}) {
        check("focus-" + base::toUtf8(id), {.skin = L"verdant-ops", .focused = id});
    }
}

// Runs `show`, which shows a window and waits until it is closed, and hands on the window's picture. `then` ends it.
PixelBuffer pictureOfShown(const std::function<void()>& show, const std::function<void(HWND)>& then) {
    static PixelBuffer picture;
    static std::function<void(HWND)> proceed;
    proceed = then;
    // A timer comes when all else is done, the painting too.
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM) -> BOOL {
                if (!IsWindowVisible(window)) {
                    return TRUE;
                }
                RECT client{};
                GetClientRect(window, &client);
                const gallery::Canvas canvas({client.right, client.bottom});
                SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.target()), 0);
                picture = canvas.picture();
                proceed(window);
                return FALSE;
            },
            0);
    });
    show();
    return std::exchange(picture, {});
}

TEST(DialogPictures, OfMessageBoxes) {
    for (const wchar_t* const language : {L"en-US", L"ar-SA"}) {
        for (const bool isError : {true, false}) {
            ProductConfig config;
            config.skinId = L"none";
            config.language = language;
            compare("box-" + base::toUtf8(language) + (isError ? "-error" : "-done"),
                    pictureOfShown([&] { showOperationResult(kInstance, config, velquin::text::kInstall, isError); },
                                   [](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); }));
        }
    }
}

// What moves and what counts the time looks different each time: the bar in its rows, the time at their end below it.
void coverWhatMoves(PixelBuffer& picture, bool rightToLeft) {
    constexpr int32_t kBadgeEnd = 70;
    constexpr int32_t kMargin = 20;
    constexpr int32_t kBarTop = 72;  // above the lower edge, for every height of the line below it
    constexpr int32_t kBarBottom = 46;
    constexpr int32_t kTimeWidth = 90;
    const auto [width, height] = picture.size();
    const PixelView all = picture.view();
    for (Rect area : {Rect{kBadgeEnd, height - kBarTop, width - kBadgeEnd - kMargin, kBarTop - kBarBottom},
                      Rect{width - kMargin - kTimeWidth, height - kBarBottom, kTimeWidth, kBarBottom - kMargin}}) {
        area.x = rightToLeft ? width - area.right() : area.x;
        for (int32_t y = area.y; y < area.bottom(); ++y) {
            std::fill_n(all.row(y) + area.x, area.width, 0xFF000000U);
        }
    }
}

TEST(DialogPictures, OfTheProgressWindow) {
    for (const wchar_t* const language : {L"en-US", L"ar-SA"}) {
        ProductConfig config;
        config.skinId = L"none";
        config.language = language;
        std::atomic<bool> seen = false;
        PixelBuffer picture = pictureOfShown(
            [&] {
                runWithProgress(kInstance, config, SetupAction::Install, [&] {
                    velquin::writeSetupLog(L"MSI extracted: Velquin.msi");
                    seen.wait(false);
                    return true;
                });
            },
            [&](HWND) {
                seen = true;
                seen.notify_one();
            });
        coverWhatMoves(picture, velquin::isRightToLeftLanguage(language));
        compare("progress-" + base::toUtf8(language), picture);
    }
}

}  // namespace
