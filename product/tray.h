// The presence of Velquin.exe on the desktop: a hidden top-level window that owns an icon in the notification area.
#pragma once

#include <string>

struct HINSTANCE__;

namespace velquin::app {

// Shows the icon and runs the message loop until the menu's last entry, WM_CLOSE or the end of the session. The menu is
// in the language of the configuration file `config`, as it says when the menu opens. False when the window could not
// be made.
bool runTray(HINSTANCE__* instance, std::wstring config);

}  // namespace velquin::app
