// The setup's windows: the dialog that asks what to do, and the title bar that all of them have.
#pragma once

#include <string>

#include "setup/dialog/setup_choice.h"
#include "tavi/controls/chrome_title_bar.h"
#include "tavi/core/dialog_window.h"

namespace velquin::setup {

// Window styles of the Windows API: a frame that the person can drag, in the system menu and to be minimised.
inline constexpr uint32_t kSetupWindowStyle = 0x800E0000;

// Asks, and returns when the person has chosen. Where Windows refuses the window: action Close and no folder.
SetupChoice showSetupChoice(HINSTANCE instance, bool installed);

// Adds the title bar over the first `width` design pixels of a window, above what is there already. Its close button
// ends the dialog with the result Close. Returns it; the window owns it.
tavi::ChromeTitleBar* addSetupChrome(tavi::DialogWindow& dialog, const tavi::Theme& theme, int32_t width,
                                     const std::wstring& title);

}  // namespace velquin::setup
