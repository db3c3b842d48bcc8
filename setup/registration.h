// Writing and deleting the registry entries of the product. Each function logs a line for what it wrote or why not.
#pragma once

#include <string>

#include "setup/registry_rows.h"

namespace velquin::setup {

// Writes one application's keys. False, with nothing written, when its file is not in the install folder.
bool writeApplicationRegistration(const ApplicationRegistration& application, const std::wstring& installFolder);

// Writes the entry in the list of installed programs, with today's date and the size of what is installed.
bool writeUninstallEntry(const std::wstring& installFolder);

// Deletes the keys of both applications and the uninstall entry.
void deleteRegistration();

}  // namespace velquin::setup
