// Steps that more than one flow takes.
#pragma once

#include <string>

namespace velquin::setup {

// Deletes the Start Menu shortcut of an older version and its folder, if that is empty then.
void removeLegacyStartMenuShortcut();

// Removes a folder with all it holds, without passing through links; logs each link it left and what it could not
// remove. A missing folder is no failure.
void removeFolder(const std::wstring& folder);

// The desktop shortcut of the current user exists.
bool desktopShortcutExists();

}  // namespace velquin::setup
