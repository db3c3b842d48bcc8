// A modal box with a message, in the look of the active skin.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tavi/core/dialog_result.h"
#include "tavi/core/native_handles.h"

namespace tavi {

enum class MessageBoxKind { kInformation = 0, kWarning = 1, kError = 2, kQuestion = 3 };

struct MessageBoxButton {
    std::wstring id = {};  // of its control, for tests and screen readers; may be empty
    std::wstring caption = {};
    DialogResult result = DialogResult::Ok;
    // What it does instead of ending the box; the box stays.
    std::function<void(HWND box)> action = {};
};

struct MessageBoxOptions {
    std::wstring title = {};
    std::wstring message = {};
    MessageBoxKind kind = MessageBoxKind::kInformation;
    // The first one is the default; none stands for "OK". The one with the result Cancel is what Escape presses.
    std::vector<MessageBoxButton> buttons = {};
    std::wstring popupStyle = L"default";  // variant of the skin's popup
    bool rightToLeft = false;
    // The box's window was made: icons and the like.
    std::function<void(HWND box)> created = {};
};

// The button that most boxes have beside others: id "cancel", caption "Cancel".
MessageBoxButton cancelButton();

// Shows the box over its owner (null: in the middle of the screen), which takes no input meanwhile, and returns when it
// was closed: the result of the button, Cancel or Close without one, None when Windows refuses the window.
DialogResult showMessageBox(HINSTANCE instance, HWND owner, const MessageBoxOptions& options);

}  // namespace tavi
