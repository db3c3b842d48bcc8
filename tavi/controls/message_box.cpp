#include "tavi/controls/message_box.h"

#include <utility>

#include "tavi/controls/chrome_title_bar.h"
#include "tavi/controls/designed_popup.h"
#include "tavi/core/dialog_window.h"
#include "tavi/core/window_tree.h"
#include "tavi/theme/active_skin.h"

namespace tavi {
namespace {

// Design pixels.
constexpr Size kFirstSize{440, 220};  // until its texts can be measured
constexpr int32_t kWidest = 560;
constexpr int32_t kWidthStep = 40;
constexpr int32_t kBarHeight = 34;

// Window styles of the Windows API: a pop-up with a system menu, which is what lets Alt+F4 close it.
constexpr uint32_t kBoxStyle = 0x80000000 | 0x00080000;
constexpr uint32_t kKeyC = 'C';

constexpr Glyph kSigns[] = {Glyph::kInformation, Glyph::kWarning, Glyph::kError, Glyph::kQuestion};

// The popup of a box. Its texts can be copied as those of Windows' own boxes can.
class MessagePanel final : public DesignedPopup {
public:
    MessagePanel(const MessageBoxOptions& options, const std::vector<MessageBoxButton>& buttons)
        : DesignedPopup(L"message-box", Rect{0, 0, kFirstSize.width, kFirstSize.height}) {
        setReserved(kBarHeight, 0);
        setBadge(kSigns[static_cast<size_t>(options.kind)]);
        setHeading(options.title);
        setMessage(options.message);
        setAppearance({.styleName = options.popupStyle});
        for (const MessageBoxButton& button : buttons) {
            addButton(button.id, button.caption, &button == &buttons.front());
        }
        setAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
    }

    bool keyPress(KeyEvent& event) override {
        if (event.code != kKeyC || event.modifiers != kControlKey) {
            return false;
        }
        window()->copyText(asText());
        return true;
    }

private:
    std::wstring asText() const {
        const std::wstring line = L"---------------------------\r\n";
        std::wstring captions;
        for (const ThemedButton* const button : buttons()) {
            captions += button->text() + L"   ";
        }
        return line + heading() + L"\r\n" + line + message() + L"\r\n" + line + captions + L"\r\n" + line;
    }
};

// Not wider than it takes for a text to look like one: at most half as high as wide, as long as that can be had.
Size boxSize(const DesignedPopup& popup) {
    int32_t width = kFirstSize.width;
    while (width < kWidest && popup.preferredHeight(width) > width / 2) {
        width += kWidthStep;
    }
    return {width, popup.preferredHeight(width)};
}

// As large as its texts need, and again after a change of scale: letters do not grow evenly.
void fitBox(DialogWindow& dialog, const DesignedPopup& popup) {
    const Size size = boxSize(popup);
    dialog.setDefaultClientSize(size);
    if (dialog.root().bounds().size() != size) {
        dialog.resetToDefaultSize();
    }
}

// What a button does: ends the box, or its own action.
void press(DialogWindow& dialog, const MessageBoxButton& button) {
    if (button.action) {
        button.action(dialog.handle());
    } else {
        dialog.end(button.result);
    }
}

// Returns the popup. The buttons live as long as the dialog.
const DesignedPopup& fill(DialogWindow& dialog, const MessageBoxOptions& options,
                          const std::vector<MessageBoxButton>& buttons) {
    Panel& root = dialog.root();
    auto* const popup = root.add<MessagePanel>(options, buttons);
    popup->setLayoutOverlapAllowed(true);
    dialog.setDefaultControl(popup->buttons().front());
    for (size_t i = 0; i < buttons.size(); ++i) {
        popup->buttons()[i]->pressed.connect([&dialog, &button = buttons[i]](CommandEvent&) { press(dialog, button); });
        if (buttons[i].result == DialogResult::Cancel) {
            dialog.setCancelControl(popup->buttons()[i]);
        }
    }
    auto* const bar = root.add<ChromeTitleBar>(L"message-box.chrome", Rect{0, 0, kFirstSize.width, kBarHeight},
                                               options.title, activeTheme());
    bar->setAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
    for (const CaptionButton button : {CaptionButton::kMinimize, CaptionButton::kMaximize, CaptionButton::kResetSize}) {
        bar->setButtonShown(button, false);
    }
    return *popup;
}

}  // namespace

MessageBoxButton cancelButton() {
    return {.id = L"cancel", .caption = L"Cancel", .result = DialogResult::Cancel};
}

DialogResult showMessageBox(HINSTANCE instance, HWND owner, const MessageBoxOptions& options) {
    std::vector<MessageBoxButton> buttons = options.buttons;
    if (buttons.empty()) {
        buttons.push_back({.id = L"ok", .caption = L"OK"});
    }
    DialogWindow dialog(instance);
    dialog.tree().setRightToLeft(options.rightToLeft);
    dialog.tree().setBackground(activeTheme().shell);
    const DesignedPopup& popup = fill(dialog, options, buttons);
    if (!dialog.create({.title = options.title,
                        .clientSize = kFirstSize,
                        .style = kBoxStyle,
                        .customChrome = true,
                        .owner = owner})) {
        return DialogResult::None;
    }
    // Only now is its scale known, and with it how long its texts are. The work area is the limit.
    fitBox(dialog, popup);
    dialog.centerOn(owner);
    dialog.root().setTreeNotification([&](Control&) { fitBox(dialog, popup); });
    if (options.created) {
        options.created(dialog.handle());
    }
    return dialog.runModal();
}

}  // namespace tavi
