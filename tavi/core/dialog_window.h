// A window that runs modally: its owner takes no input until it ends.
#pragma once

#include "tavi/core/dialog_result.h"
#include "tavi/core/window.h"

namespace tavi {

class DialogWindow : public Window {
public:
    explicit DialogWindow(HINSTANCE instance);

    // Shows it and handles the thread's messages until it has ended; its Win32 window is gone then, the owner enabled
    // and active, and a WM_QUIT that came meanwhile is passed on to the outer loop. The dialog itself may be destroyed
    // by a callback; the result is Close then. None when it was not created.
    DialogResult runModal();
    // Ends the loop with a result; the first one counts. Before the loop it ends it as soon as it begins. Any thread.
    void end(DialogResult result);

protected:
    void closeRequested() override;
};

}  // namespace tavi
