#include "tavi/controls/message_box.h"

namespace tavi {

MessageBoxButton cancelButton() {
    return {.id = L"cancel", .caption = L"Cancel", .result = DialogResult::Cancel};
}

DialogResult showMessageBox(HINSTANCE /*instance*/, HWND /*owner*/, const MessageBoxOptions& /*options*/) {
    return DialogResult::None;
}

}  // namespace tavi
