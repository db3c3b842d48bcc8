#include <windows.h>

#include "setup/dialog/setup_window.h"

#include "core/configuration.h"
#include "core/product_paths.h"
#include "localization/catalog.h"
#include "localization/languages.h"
#include "setup/dialog/dialog_controls.h"
#include "setup/dialog/folder_picker.h"
#include "setup/dialog/setup_look.h"
#include "setup/startup.h"
#include "setup/window_icon.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"

namespace velquin::setup {
namespace {

static_assert(kSetupWindowStyle == (WS_POPUP | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX));

// What the title bar's commands do, by the end of their id.
struct TitleBarCommand {
    std::wstring_view ending;
    void (*run)(tavi::DialogWindow& dialog);
};
constexpr TitleBarCommand kTitleBarCommands[] = {
    {L".minimize", [](tavi::DialogWindow& dialog) { dialog.minimize(); }},
    {L".close", [](tavi::DialogWindow& dialog) { dialog.end(tavi::DialogResult::Close); }},
    {L".drag", [](tavi::DialogWindow& dialog) { dialog.beginMove(); }},
};

// Where a button leads: its action, and what it takes with it.
struct ButtonTarget {
    tavi::DialogWindow* dialog;
    SetupChoice* options;
    const DialogControls* controls;
    const DialogLayout* layout;

    void press(const std::wstring& id) const {
        if (const DialogButton* const button = findButton(*layout, id)) {
            choose(*options, button->action, controls->input());
            dialog->end(tavi::DialogResult::Ok);
        }
    }
    void dismiss() const {
        options->action = SetupAction::Close;
        dialog->end(tavi::DialogResult::Close);
    }
};

// Lets the person pick a folder, and writes it into the field.
void browse(const tavi::DialogWindow& dialog, tavi::TextInput& pathInput, const std::wstring& title) {
    const tavi::WeakControl alive(pathInput);
    const std::wstring folder = pickInstallFolder(dialog.handle(), pathInput.text(), title);
    if (alive && !folder.empty()) {
        pathInput.setText(folder);
    }
}

// As high as its texts need, in the middle of the screen.
void fitWindow(tavi::DialogWindow& dialog, DialogControls& controls) {
    const tavi::Size size{kDialogSize.width, controls.neededHeight()};
    dialog.setMinimumClientSize(size);
    dialog.setDefaultClientSize(size);
    if (size != kDialogSize) {
        dialog.resetToDefaultSize();
        dialog.centerOn(nullptr);
    }
    controls.arrange();
    dialog.root().setTreeNotification([&dialog, &controls](tavi::Control&) {
        controls.arrange();
        dialog.setMinimumClientSize({kDialogSize.width, controls.neededHeight()});
    });
}

}  // namespace

tavi::ChromeTitleBar* addSetupChrome(tavi::DialogWindow& dialog, const tavi::Theme& theme, int32_t width,
                                     const std::wstring& title) {
    auto* const bar =
        dialog.root().add<tavi::ChromeTitleBar>(kTitleBarId, tavi::Rect{0, 0, width, kTitleBarHeight}, title, theme);
    bar->setAppearance({.styleName = L"vc-chrome"});
    bar->setAnchors(tavi::kAnchorLeft | tavi::kAnchorTop | tavi::kAnchorRight);
    bar->setLayoutOverlapAllowed(true);
    bar->setButtonShown(tavi::CaptionButton::kMaximize, false);
    bar->setButtonShown(tavi::CaptionButton::kResetSize, false);
    bar->command.connect([&dialog](tavi::CommandEvent& event) {
        for (const TitleBarCommand& each : kTitleBarCommands) {
            if (event.command.ends_with(each.ending)) {
                event.consumed = true;
                each.run(dialog);
                return;
            }
        }
    });
    return bar;
}

SetupChoice showSetupChoice(HINSTANCE instance, bool installed) {
    const ProductConfig config = loadProductConfig();
    const auto textOf = [&config](int textId) { return localizedText(config, textId); };
    const tavi::StyleSheet sheet = useSetupLook(config);
    const std::wstring title = textOf(text::kSetupTitle);

    tavi::DialogWindow dialog(instance);
    dialog.tree().setBackground(tavi::activeTheme().shell);
    dialog.tree().setRightToLeft(isRightToLeftLanguage(effectiveLanguage(config)));
    if (!dialog.create({.title = title, .clientSize = kDialogSize, .style = kSetupWindowStyle, .customChrome = true})) {
        return {};
    }
    applySetupWindowIcon(dialog.handle(), instance);

    SetupChoice options =
        initialChoice(installed, installed && readStartupRegistration(), normalizePathText(resolveInstallDir()));
    DialogControls controls(dialog.root(), installed, options, textOf);
    const ButtonTarget target{&dialog, &options, &controls, &dialogLayout(installed)};
    controls.popup().chosen.connect([&target](tavi::CommandEvent& event) { target.press(event.command); });
    controls.popup().dismissed.connect([&target](tavi::PopupEvent&) { target.dismiss(); });
    if (tavi::ThemedButton* const button = controls.browseButton()) {
        button->pressed.connect(
            [&](tavi::CommandEvent&) { browse(dialog, controls.pathInput(), textOf(text::kInstallFolder)); });
    }
    addSetupChrome(dialog, tavi::activeTheme(), kDialogSize.width, title);
    sheet.apply(dialog.root());
    fitWindow(dialog, controls);

    dialog.setDefaultControl(&controls.primaryButton());
    dialog.setCancelControl(&controls.popup());
    dialog.tree().setFocus(&controls.primaryButton());
    dialog.runModal();
    return {options.action, options.startWithWindows, options.desktopShortcut, options.installDir};
}

}  // namespace velquin::setup
