// The system's folder picker.
#pragma once

#include <string>

#include "tavi/core/native_handles.h"

namespace velquin::setup {

// Lets a person pick the install folder and gives it with the product's folder appended (folder_pick.h), normalised.
// `start` is shown at first where it exists; empty stands for the default install folder. Empty when nothing was
// picked, whatever the reason. Handles messages meanwhile.
std::wstring pickInstallFolder(HWND owner, const std::wstring& start, const std::wstring& title);

}  // namespace velquin::setup
