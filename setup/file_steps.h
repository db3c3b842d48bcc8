// Steps that more than one flow takes.
#pragma once

#include <string>

namespace velquin::setup {

// Deletes the Start Menu shortcut of an older version and its folder, if that is empty then.
void removeLegacyStartMenuShortcut();

// Removes a folder that is empty; any other stays as it is.
void removeFolderIfEmpty(const std::wstring& folder);

// Removes a folder with all it holds, without passing through links; logs each link it left and what it could not
// remove. A missing folder is no failure.
void removeFolder(const std::wstring& folder);

// Copies a file over another, making folders. True when source and target already are one file. Logs what it did.
bool copyFileReplace(const std::wstring& source, const std::wstring& target);

// The desktop shortcut of the current user exists.
bool desktopShortcutExists();

}  // namespace velquin::setup
