// The mode without options. Its dialog is not part of the program yet.
#pragma once

struct HINSTANCE__;

namespace velquin::setup {

// Says in a system message box that there is no dialog and which options work. Returns the process's exit code.
int runInteractiveSetup(HINSTANCE__* instance);

}  // namespace velquin::setup
