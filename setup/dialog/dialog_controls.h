// The dialog's controls in a window, made from dialog_model.h and laid out by dialog_layout.h. The title bar is added
// behind them (setup_window.h).
#pragma once

#include <functional>
#include <string>

#include "setup/dialog/dialog_layout.h"
#include "setup/dialog/dialog_model.h"
#include "tavi/controls/check_box.h"
#include "tavi/controls/designed_popup.h"
#include "tavi/controls/text_input.h"
#include "tavi/core/panel.h"

namespace velquin::setup {

class DialogControls {
public:
    // The catalog's text of an id in the language of the person.
    using TextOf = std::function<std::wstring(int textId)>;

    // Adds them to the root panel of a window, which owns them and has to live as long as this object.
    DialogControls(tavi::Panel& root, bool installed, const SetupChoice& options, const TextOf& textOf);

    tavi::DesignedPopup& popup() const { return *popup_; }
    // The one that Return presses.
    tavi::ThemedButton& primaryButton() const { return *primary_; }
    tavi::TextInput& pathInput() const { return *pathInput_; }
    // Null in the layout without it.
    tavi::ThemedButton* browseButton() const { return browse_; }

    // What the controls hold now.
    DialogInput input() const;

    // The height of the client area that all texts need. The window has to be there.
    int32_t neededHeight() const;
    // Puts them where they belong in the window's present width, mirrored where it reads from right to left. Again
    // after a change of scale: letters do not grow evenly.
    void arrange();

private:
    tavi::Control* addItem(const DialogItem& item, const SetupChoice& options, const TextOf& textOf);
    void fillPopup(const DialogLayout& layout, const TextOf& textOf);
    DialogPlaces places() const;

    tavi::Panel& root_;
    bool installed_;
    int32_t reserved_ = 1;
    tavi::DesignedPopup* popup_ = nullptr;
    tavi::ThemedButton* primary_ = nullptr;
    tavi::Label* label_ = nullptr;
    tavi::TextInput* pathInput_ = nullptr;
    tavi::ThemedButton* browse_ = nullptr;
    tavi::CheckBox* startWithWindows_ = nullptr;
    tavi::CheckBox* desktopShortcut_ = nullptr;
};

}  // namespace velquin::setup
