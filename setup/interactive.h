// The mode without options: the dialog asks what to do, the flows do it, and a message box tells how it went.
#pragma once

struct HINSTANCE__;

namespace velquin::setup {

// Returns the process's exit code.
int runInteractiveSetup(HINSTANCE__* instance);

}  // namespace velquin::setup
