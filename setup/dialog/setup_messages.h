// The setup's message boxes. They need no window before them and return when they were closed.
#pragma once

#include <string>

#include "tavi/core/native_handles.h"

namespace velquin {
struct ProductConfig;
}

namespace velquin::setup {

// A message with a button that closes it. An error has a second one that shows the setup log in its folder; the box
// stays open behind it.
void showSetupMessageBox(HINSTANCE instance, HWND owner, const ProductConfig& config, const std::wstring& title,
                         const std::wstring& message, bool isError);

// The result of an action; `textId` is the title's text.
void showOperationResult(HINSTANCE instance, const ProductConfig& config, int textId, bool isError);

}  // namespace velquin::setup
