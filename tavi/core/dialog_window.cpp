#include "tavi/core/dialog_window.h"

#include "tavi/core/window_native.h"

namespace tavi {

DialogWindow::DialogWindow(HINSTANCE instance) : Window(instance) {
    native().setEscapeCloses(true);
}

DialogResult DialogWindow::runModal() {
    const std::shared_ptr<WindowNative> keep = native().shared_from_this();
    return keep->runModal();
}

void DialogWindow::end(DialogResult result) {
    native().endModal(result);
}

void DialogWindow::closeRequested() {
    if (native().isModal()) {
        native().endModal(DialogResult::Close);
    } else {
        Window::closeRequested();
    }
}

}  // namespace tavi
