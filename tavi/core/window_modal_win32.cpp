// A window's own message loop, and what its owner may do meanwhile.
#include <windows.h>

#include <utility>

#include "tavi/core/message_loop.h"
#include "tavi/core/window_native.h"

namespace tavi {

void WindowNative::disableOwner() {
    const HWND owner = GetWindow(handle_, GW_OWNER);
    if (owner != nullptr && IsWindowEnabled(owner)) {
        disabledOwner_ = owner;
        EnableWindow(owner, FALSE);
    }
}

// Were the owner still disabled when the window goes, Windows would give the focus to another program.
void WindowNative::enableOwner() {
    if (const HWND owner = std::exchange(disabledOwner_, nullptr)) {
        EnableWindow(owner, TRUE);
        if (GetActiveWindow() == handle_) {
            SetActiveWindow(owner);
        }
    }
}

DialogResult WindowNative::runModal() {
    if (handle_ == nullptr) {
        return DialogResult::None;
    }
    modal_ = true;
    disableOwner();
    if (!modalResult_) {
        ShowWindow(handle_, SW_SHOW);
    }
    if (handle_ != nullptr && !modalResult_) {
        UpdateWindow(handle_);
    }
    const std::optional<int> quit = pumpMessages([&] { return modalResult_.has_value() || handle_ == nullptr; });
    modal_ = false;
    destroy();
    if (quit) {
        PostQuitMessage(*quit);
    }
    return std::exchange(modalResult_, std::nullopt).value_or(DialogResult::Close);
}

void WindowNative::endModal(DialogResult result) {
    const std::shared_ptr<WindowNative> keep = shared_from_this();
    post([keep, result] {
        if (!keep->modalResult_) {
            keep->modalResult_ = result;
        }
        wakeMessageLoop();
    });
}

}  // namespace tavi
