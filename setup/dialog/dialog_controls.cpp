#include "setup/dialog/dialog_controls.h"

#include <algorithm>

#include "setup/dialog/folder_pick.h"
#include "tavi/core/mirroring.h"

namespace velquin::setup {
namespace {

using tavi::Rect;

// In a popup as high as this the message always has all the room it wants.
constexpr int32_t kAnyHeight = 100000;

tavi::Appearance named(const wchar_t* styleName) {
    return {.styleName = styleName};
}

}  // namespace

DialogControls::DialogControls(tavi::Panel& root, bool installed, const SetupChoice& options, const TextOf& textOf)
    : root_(root), installed_(installed) {
    const DialogLayout& layout = dialogLayout(installed);
    for (const DialogItem& item : layout.items) {
        if (tavi::Control* const control = addItem(item, options, textOf)) {
            control->setAnchors(item.anchors);
            control->setAppearance(named(item.styleName));
            control->setTooltip(item.tooltipId != kNoText ? textOf(item.tooltipId) : L"");
        }
    }
    fillPopup(layout, textOf);
}

// Null for what is not made here.
tavi::Control* DialogControls::addItem(const DialogItem& item, const SetupChoice& options, const TextOf& textOf) {
    const std::wstring caption = item.textId != kNoText ? textOf(item.textId) : L"";
    switch (item.kind) {
        case ItemKind::kPopup:
            return popup_ = root_.add<tavi::DesignedPopup>(item.id, item.bounds);
        case ItemKind::kLabel:
            return label_ = root_.add<tavi::Label>(item.id, item.bounds, caption);
        case ItemKind::kTextInput:
            pathInput_ = root_.add<tavi::TextInput>(item.id, item.bounds, options.installDir);
            pathInput_->setReadOnly(installed_);
            // A field has no caption of its own; to a screen reader the label above it is its name.
            pathInput_->setAutomationName(label_ != nullptr ? label_->text() : L"");
            pathInput_->committed.connect(
                [field = pathInput_](tavi::CommitEvent& event) { field->setText(unquotedFolder(event.text)); });
            return pathInput_;
        case ItemKind::kButton:
            return browse_ = root_.add<tavi::ThemedButton>(item.id, item.bounds, caption);
        case ItemKind::kCheckBox: {
            const bool isStart = std::wstring_view(item.id) == kStartWithWindowsId;
            auto* const box = root_.add<tavi::CheckBox>(item.id, item.bounds, caption,
                                                        isStart ? options.startWithWindows : options.desktopShortcut);
            return (isStart ? startWithWindows_ : desktopShortcut_) = box;
        }
        default:
            return nullptr;
    }
}

void DialogControls::fillPopup(const DialogLayout& layout, const TextOf& textOf) {
    popup_->setHeading(textOf(layout.headingId));
    popup_->setBadge(layout.badge);
    popup_->setMessage(textOf(layout.messageId));
    for (const DialogButton& button : layout.buttons) {
        tavi::ThemedButton* const added = popup_->addButton(button.id, textOf(button.textId), button.isPrimary);
        added->setAppearance(named(button.styleName));
        if (button.isPrimary) {
            primary_ = added;
        }
    }
    popup_->setReserved(kTitleBarHeight, reserved_);
    // It lies below all others on purpose, and its buttons are read after them.
    popup_->setLayoutOverlapAllowed(true);
    popup_->setFocusOrder(1);
}

DialogInput DialogControls::input() const {
    DialogInput input{.installDir = pathInput_->text()};
    if (startWithWindows_ != nullptr) {
        input.startWithWindows = startWithWindows_->checked();
    }
    if (desktopShortcut_ != nullptr) {
        input.desktopShortcut = desktopShortcut_->checked();
    }
    return input;
}

DialogPlaces DialogControls::places() const {
    const int32_t width = std::max(root_.bounds().width, kDialogSize.width);
    const tavi::DesignedPopup::Places parts = popup_->places({width, kAnyHeight});
    const int32_t messageEnd = std::max(parts.message.bottom(), parts.badge.bottom());
    DialogMeasures measures{.messageBottom = messageEnd + tavi::kPopupMiddleGap, .label = label_->preferredSize()};
    measures.buttonsHeight = popup_->preferredHeight(width) - measures.messageBottom - reserved_;
    if (!installed_) {
        measures.browse = browse_->preferredSize();
        measures.startWithWindows = startWithWindows_->preferredSize();
        measures.desktopShortcut = desktopShortcut_->preferredSize();
    }
    return placeDialog(installed_, measures, width);
}

int32_t DialogControls::neededHeight() const {
    return places().neededHeight;
}

void DialogControls::arrange() {
    const DialogPlaces now = places();
    reserved_ = std::max(now.reserved, 1);
    popup_->setReserved(kTitleBarHeight, reserved_);
    const std::pair<tavi::Control*, Rect> placed[] = {{label_, now.label},
                                                      {pathInput_, now.pathInput},
                                                      {browse_, now.browse},
                                                      {startWithWindows_, now.startWithWindows},
                                                      {desktopShortcut_, now.desktopShortcut}};
    const DialogLayout& layout = dialogLayout(installed_);
    const int32_t width = std::max(root_.bounds().width, kDialogSize.width);
    const bool rightToLeft = root_.window() != nullptr && root_.window()->rightToLeft();
    for (const auto& [control, bounds] : placed) {
        const DialogItem* const item = control != nullptr ? findItem(layout, control->id()) : nullptr;
        if (item == nullptr) {
            continue;
        }
        // Anchors first, as they are for left to right: mirroring turns both.
        control->setAnchors(item->anchors);
        control->setBounds(bounds);
        if (rightToLeft) {
            tavi::mirror(*control, width);
        }
    }
}

}  // namespace velquin::setup
