// The setup dialog as data: what stands in each of its two layouts, and what its buttons make of it. Rectangles are
// design pixels of the client area; dialog_layout.h adapts them to texts that need more room.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "setup/dialog/setup_choice.h"
#include "tavi/core/geometry.h"

namespace velquin::setup {

inline constexpr tavi::Size kDialogSize{690, 344};
inline constexpr int32_t kTitleBarHeight = 42;
inline constexpr wchar_t kPopupId[] = L"setup.popup";
inline constexpr wchar_t kTitleBarId[] = L"setup.chrome";
inline constexpr wchar_t kPathLabelId[] = L"install-path-label";
inline constexpr wchar_t kPathInputId[] = L"install-path-input";
inline constexpr wchar_t kBrowseId[] = L"install-path-browse";
inline constexpr wchar_t kStartWithWindowsId[] = L"start-with-windows";
inline constexpr wchar_t kDesktopShortcutId[] = L"desktop-shortcut";

enum class ItemKind : uint8_t { kPopup, kLabel, kTextInput, kButton, kCheckBox, kTitleBar };

inline constexpr int kNoText = -1;

// One control. The texts are ids of the catalog.
struct DialogItem {
    const wchar_t* id = nullptr;
    ItemKind kind = ItemKind::kPopup;
    tavi::Rect bounds = {};
    int textId = kNoText;
    const wchar_t* styleName = L"";
    int tooltipId = kNoText;
    uint32_t anchors = tavi::kAnchorLeft | tavi::kAnchorTop;
};

struct DialogButton {
    const wchar_t* id = nullptr;
    int textId = kNoText;
    SetupAction action = SetupAction::Close;
    bool isPrimary = false;
    const wchar_t* styleName = L"vc-secondary";
};

// A layout: what the popup says, its buttons in their order, and all controls in the order in which they are added.
struct DialogLayout {
    int headingId = kNoText;
    const wchar_t* badge = L"";
    int messageId = kNoText;
    std::span<const DialogButton> buttons;
    std::span<const DialogItem> items;
};
const DialogLayout& dialogLayout(bool installed);

// Null for an id that the layout does not have.
const DialogItem* findItem(const DialogLayout& layout, std::wstring_view id);
const DialogButton* findButton(const DialogLayout& layout, std::wstring_view id);

// What the dialog shows at first. `registeredStart` is the installed product's start with Windows.
SetupChoice initialChoice(bool installed, bool registeredStart, std::wstring installDir);

// What its controls hold when a button is pressed; nothing for a control that the layout does not have.
struct DialogInput {
    std::optional<bool> startWithWindows = {};
    std::optional<bool> desktopShortcut = {};
    std::optional<std::wstring> installDir = {};
};
// What a button makes of the options.
void choose(SetupChoice& options, SetupAction action, DialogInput input);

}  // namespace velquin::setup
