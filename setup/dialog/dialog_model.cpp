#include "setup/dialog/dialog_model.h"

#include <algorithm>
#include <utility>

#include "localization/text_ids.h"

namespace velquin::setup {
namespace {

using tavi::kAnchorBottom;
using tavi::kAnchorLeft;
using tavi::kAnchorRight;
using tavi::kAnchorTop;

constexpr DialogItem kPopup{.id = kPopupId,
                            .kind = ItemKind::kPopup,
                            .bounds = {0, 0, kDialogSize.width, kDialogSize.height},
                            .styleName = L"default",
                            .anchors = kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom};
constexpr DialogItem kPathLabel{.id = kPathLabelId,
                                .kind = ItemKind::kLabel,
                                .bounds = {76, 188, 220, 24},
                                .textId = text::kInstallFolder,
                                .styleName = L"title"};
constexpr DialogItem kTitleBar{.id = kTitleBarId,
                               .kind = ItemKind::kTitleBar,
                               .bounds = {0, 0, kDialogSize.width, kTitleBarHeight},
                               .textId = text::kSetupTitle,
                               .styleName = L"vc-chrome",
                               .anchors = kAnchorLeft | kAnchorTop | kAnchorRight};

constexpr DialogItem kNewItems[] = {
    kPopup,
    kPathLabel,
    {.id = kPathInputId,
     .kind = ItemKind::kTextInput,
     .bounds = {76, 214, 420, 32},
     .styleName = L"vc-input",
     .tooltipId = text::kInstallFolderHelp,
     .anchors = kAnchorLeft | kAnchorTop | kAnchorRight},
    {.id = kBrowseId,
     .kind = ItemKind::kButton,
     .bounds = {510, 214, 104, 32},
     .textId = text::kBrowseInstallFolder,
     .styleName = L"vc-button",
     .tooltipId = text::kBrowseInstallFolderHelp,
     .anchors = kAnchorTop | kAnchorRight},
    {.id = kStartWithWindowsId,
     .kind = ItemKind::kCheckBox,
     .bounds = {76, 254, 250, 28},
     .textId = text::kStartWithWindows,
     .styleName = L"vc-check",
     .tooltipId = text::kStartWithWindowsHelp},
    {.id = kDesktopShortcutId,
     .kind = ItemKind::kCheckBox,
     .bounds = {350, 254, 250, 28},
     .textId = text::kDesktopShortcut,
     .styleName = L"vc-check",
     .tooltipId = text::kDesktopShortcutHelp},
    kTitleBar,
};
constexpr DialogItem kInstalledItems[] = {
    kPopup,
    kPathLabel,
    {.id = kPathInputId,
     .kind = ItemKind::kTextInput,
     .bounds = {76, 214, 530, 32},
     .styleName = L"vc-input",
     .tooltipId = text::kInstallFolderKeptHelp,
     .anchors = kAnchorLeft | kAnchorTop | kAnchorRight},
    kTitleBar,
};

constexpr DialogButton kNewButtons[] = {
    {L"install", text::kInstall, SetupAction::Install, true, L"vc-primary"},
    {L"close", text::kClose, SetupAction::Close},
};
constexpr DialogButton kInstalledButtons[] = {
    {L"repair", text::kRepair, SetupAction::Repair, true, L"vc-primary"},
    {L"reinstall", text::kReinstall, SetupAction::Reinstall},
    {L"uninstall", text::kUninstall, SetupAction::Uninstall, false, L"vc-danger"},
    {L"close", text::kClose, SetupAction::Close},
};

constexpr DialogLayout kNew{text::kInstallHeading, L"V", text::kInstallSummary, kNewButtons, kNewItems};
constexpr DialogLayout kInstalled{text::kAlreadyInstalledHeading, L"!", text::kAlreadyInstalled, kInstalledButtons,
                                  kInstalledItems};

template <typename Row>
const Row* find(std::span<const Row> rows, std::wstring_view id) {
    const auto row = std::ranges::find(rows, id, [](const Row& each) { return std::wstring_view(each.id); });
    return row != rows.end() ? &*row : nullptr;
}

}  // namespace

const DialogLayout& dialogLayout(bool installed) {
    return installed ? kInstalled : kNew;
}

const DialogItem* findItem(const DialogLayout& layout, std::wstring_view id) {
    return find(layout.items, id);
}

const DialogButton* findButton(const DialogLayout& layout, std::wstring_view id) {
    return find(layout.buttons, id);
}

SetupChoice initialChoice(bool installed, bool registeredStart, std::wstring installDir) {
    return {.startWithWindows = !installed || registeredStart, .installDir = std::move(installDir)};
}

void choose(SetupChoice& options, SetupAction action, DialogInput input) {
    options.action = action;
    options.startWithWindows = input.startWithWindows.value_or(options.startWithWindows);
    options.desktopShortcut = input.desktopShortcut.value_or(false);
    if (input.installDir) {
        options.installDir = *std::move(input.installDir);
    }
}

}  // namespace velquin::setup
