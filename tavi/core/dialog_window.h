// A window that runs modally: its owner takes no input until it ends.
#pragma once

#include "tavi/core/window.h"

namespace tavi {

enum class DialogResult {
    None = 0,
    Ok = 1,
    Cancel = 2,
    Yes = 3,
    No = 4,
    Close = 5,  // closed without a button: the title bar, Alt+F4, Escape, the end of the program
};

class DialogWindow : public Window {
public:
    explicit DialogWindow(HINSTANCE instance);
    ~DialogWindow() override;

    // Shows it and handles the thread's messages until it has ended; its Win32 window is gone then, the owner enabled
    // and active, and a WM_QUIT that came meanwhile is passed on to the outer loop. The dialog itself may be destroyed
    // by a callback; the result is Close then. None when it was not created.
    DialogResult runModal();
    // Ends the loop that runs with a result; the first one counts, and without a loop none. Any thread.
    void end(DialogResult result);

protected:
    void closeRequested() override;

private:
    struct Modal;
    std::shared_ptr<Modal> modal_;
};

}  // namespace tavi
