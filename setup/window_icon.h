// The setup's icon on its windows.
#pragma once

struct HWND__;
struct HINSTANCE__;

namespace velquin::setup {

// Sets icon resource 1 of `instance` as the window's and its class's large and small icon, each in the size that
// Windows asks for. The images are shared and stay Windows' own. A null window does nothing.
void applySetupWindowIcon(HWND__* window, HINSTANCE__* instance);

}  // namespace velquin::setup
