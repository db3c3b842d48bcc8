// Every standard control in the look of a skin, in all of its states. Usage: example_controls [SKIN [FOLDER]]: the id
// of a skin, and the folder of the catalogs ("skins" beside the program).
#include <windows.h>

#include <shellapi.h>

#include "tavi/controls/check_box.h"
#include "tavi/controls/label.h"
#include "tavi/controls/message_box.h"
#include "tavi/controls/progress_bar.h"
#include "tavi/controls/scroll_bar.h"
#include "tavi/controls/select_box.h"
#include "tavi/controls/text_input.h"
#include "tavi/controls/themed_button.h"
#include "tavi/controls/tooltip_look.h"
#include "tavi/core/window.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/skin_registry.h"

namespace {

using tavi::Rect;

constexpr tavi::Size kClient{720, 500};
constexpr int32_t kMargin = 20;

// The hooks that a window calls, so that what comes and goes with the pointer can be seen at once.
enum class Shown : uint8_t { kPlain, kHot, kPressed, kFocused, kDisabled };
constexpr const wchar_t* kShownNames[] = {L"Normal", L"Hot", L"Pressed", L"Focused", L"Disabled"};

void show(tavi::Control& control, Shown shown) {
    tavi::PointerEvent press{.position = {}, .button = tavi::PointerButton::Left};
    switch (shown) {
        case Shown::kPlain:
            return;
        case Shown::kHot:
            return control.pointerEntered();
        case Shown::kPressed:
            control.pointerEntered();
            control.pointerPress(press);
            return;
        case Shown::kFocused:
            return control.focusChanged(true);
        case Shown::kDisabled:
            return control.setEnabled(false);
    }
}

template <typename Class>
Class* styled(Class* control, const wchar_t* variant) {
    control->setAppearance({.styleName = variant});
    return control;
}

// A row of one control in all of its states.
template <typename Make>
void addRow(int32_t top, const Make& make) {
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(kShownNames)); ++i) {
        tavi::Control* const control = make(Rect{kMargin + 110 + i * 114, top, 106, 32}, kShownNames[i]);
        show(*control, static_cast<Shown>(i));
    }
}

void addButtons(tavi::Panel& root, int32_t top) {
    constexpr const wchar_t* kVariants[] = {L"default", L"primary-action", L"danger", L"quiet"};
    for (const wchar_t* const variant : kVariants) {
        root.add<tavi::Label>(L"", Rect{kMargin, top, 106, 32}, variant);
        addRow(top, [&](const Rect& place, const wchar_t* name) {
            return styled(root.add<tavi::ThemedButton>(L"", place, name), variant);
        });
        top += 38;
    }
    for (const bool checked : {false, true}) {
        root.add<tavi::Label>(L"", Rect{kMargin, top, 106, 32}, checked ? L"checked" : L"check box");
        addRow(top, [&](const Rect& place, const wchar_t* name) {
            return root.add<tavi::CheckBox>(L"", place, name, checked);
        });
        top += 34;
    }
}

void addTexts(tavi::Panel& root, int32_t top) {
    constexpr const wchar_t* kVariants[] = {L"title", L"default", L"muted", L"danger", L"mono"};
    for (const wchar_t* const variant : kVariants) {
        auto* const label =
            styled(root.add<tavi::Label>(L"", Rect{kMargin, top, 200, 24}, L"Nothing is written elsewhere"), variant);
        label->setFontChange(variant == kVariants[0] ? 4 : 0, 0);
        top += 26;
    }
    auto* const lines = root.add<tavi::Label>(L"", Rect{kMargin + 220, top - 130, 200, 46},
                                              L"Lines are broken at words, and the last one that has room ends with an "
                                              L"ellipsis when there is more to be said.");
    lines->setFit(tavi::TextFit::kWrap);
    root.add<tavi::CheckBox>(L"", Rect{kMargin + 220, top - 76, 200, 46},
                             L"A caption that needs two lines has them where there is room", true);
}

void addBars(tavi::Panel& root, int32_t top) {
    constexpr double kShares[] = {0.0, 0.04, 0.42, 1.0};
    int32_t y = top;
    for (const double share : kShares) {
        root.add<tavi::ProgressBar>(L"", Rect{kMargin + 440, y, 180, 16})->setShare(share);
        y += 24;
    }
    root.add<tavi::ProgressBar>(L"", Rect{kMargin + 440, y, 180, 16});
    for (const bool vertical : {true, false}) {
        const Rect place = vertical ? Rect{kMargin + 640, top, 16, 130} : Rect{kMargin + 440, top + 130, 180, 16};
        auto* const bar = root.add<tavi::ScrollBar>(L"", place, vertical);
        bar->setRange(1000, 250, 10);
        bar->setValue(200);
    }
    constexpr tavi::Glyph kGlyphs[] = {tavi::Glyph::kResetSize, tavi::Glyph::kMinimize,    tavi::Glyph::kMaximize,
                                       tavi::Glyph::kRestore,   tavi::Glyph::kClose,       tavi::Glyph::kArrowDown,
                                       tavi::Glyph::kArrowUp,   tavi::Glyph::kArrowLeft,   tavi::Glyph::kArrowRight,
                                       tavi::Glyph::kTick,      tavi::Glyph::kInformation, tavi::Glyph::kWarning,
                                       tavi::Glyph::kError,     tavi::Glyph::kQuestion};
    int32_t x = kMargin;
    for (const tavi::Glyph glyph : kGlyphs) {
        auto* const button = root.add<tavi::ThemedButton>(L"", Rect{x, top + 156, 38, 28}, L"");
        button->setGlyph(glyph);
        if (glyph <= tavi::Glyph::kResetSize) {
            button->setLook(L"chrometitlebar", L"button");
        }
        x += 44;
    }
}

// What is edited, and what opens a window of its own: a list, a message box on a popup with a title bar, a tooltip.
void addFields(tavi::Window& window, HINSTANCE instance, int32_t top) {
    tavi::Panel& root = window.root();
    root.add<tavi::TextInput>(L"", Rect{kMargin, top, 200, 32}, L"")->setPlaceholder(L"Type here");
    root.add<tavi::TextInput>(L"", Rect{kMargin + 210, top, 170, 32}, L"Can only be read")->setReadOnly(true);
    root.add<tavi::SelectBox>(L"", Rect{kMargin + 390, top, 140, 32}, std::vector<std::wstring>{L"First", L"Second"})
        ->select(0);
    auto* const button = root.add<tavi::ThemedButton>(L"", Rect{kMargin + 540, top, 136, 32}, L"Message box");
    button->setTooltip(L"Shows a question over this window");
    button->pressed.connect([&window, instance](tavi::CommandEvent&) {
        tavi::showMessageBox(instance, window.handle(),
                             {.title = L"A question",
                              .message = L"The box is as large as its message needs. Ctrl+C copies its texts.",
                              .kind = tavi::MessageBoxKind::kQuestion,
                              .buttons = {{.id = L"agreed", .caption = L"Agreed"}, tavi::cancelButton()}});
    });
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count > 2) {
        tavi::setSkinFolder(words[2]);
    }
    tavi::activateSkin(tavi::skinRegistry().find(count > 1 ? words[1] : L""));
    LocalFree(words);

    tavi::Window window(instance);
    window.tree().setBackground(tavi::activeTheme().shell);
    addButtons(window.root(), 12);
    addTexts(window.root(), 248);
    addBars(window.root(), 252);
    addFields(window, instance, 450);
    tavi::useSkinForTooltips();
    if (!window.create({.title = L"The controls of tavi", .clientSize = kClient})) {
        return 1;
    }
    return window.run();
}
