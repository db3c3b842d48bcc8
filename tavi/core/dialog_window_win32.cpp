#include "tavi/core/dialog_window.h"

#include <windows.h>

#include "tavi/core/message_loop.h"
#include "tavi/core/window_native.h"

namespace tavi {

// Outlives the dialog for as long as its loop runs.
struct DialogWindow::Modal {
    bool running = false;
    bool ended = false;
    DialogResult result = DialogResult::Close;

    void end(DialogResult with) {
        if (!ended) {
            ended = true;
            result = with;
        }
    }
};

DialogWindow::DialogWindow(HINSTANCE instance) : Window(instance), modal_(std::make_shared<Modal>()) {
    native().setEscapeCloses(true);
}

DialogWindow::~DialogWindow() {
    modal_->end(DialogResult::Close);
}

DialogResult DialogWindow::runModal() {
    if (handle() == nullptr) {
        return DialogResult::None;
    }
    const std::shared_ptr<WindowNative> native = this->native().shared_from_this();
    modal_ = std::make_shared<Modal>(true);
    const std::shared_ptr<Modal> modal = modal_;
    native->disableOwner();
    show();
    const std::optional<int> quit = pumpMessages([&] { return modal->ended || native->handle() == nullptr; });
    modal->running = false;
    native->destroy();
    if (quit) {
        PostQuitMessage(*quit);
    }
    return modal->result;
}

void DialogWindow::end(DialogResult result) {
    const std::shared_ptr<Modal> modal = modal_;
    post([modal, result] { modal->end(result); });
}

void DialogWindow::closeRequested() {
    if (modal_->running) {
        modal_->end(DialogResult::Close);
    } else {
        Window::closeRequested();
    }
}

}  // namespace tavi
