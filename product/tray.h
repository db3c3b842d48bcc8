// The presence of Velquin.exe on the desktop: a hidden top-level window that owns an icon in the notification area.
#pragma once

struct HINSTANCE__;

namespace velquin::app {

// Shows the icon and runs the message loop until the menu's Exit, WM_CLOSE or the end of the session. False when the
// window could not be made.
bool runTray(HINSTANCE__* instance);

}  // namespace velquin::app
