// Ending running copies of the product before its files are replaced or removed.
#pragma once

#include <string_view>

namespace velquin::setup {

// Asks every process with the application's file name to close (WM_CLOSE to each of its top-level windows without an
// owner), waits, and terminates what does not end. A process without such a window is terminated at once.
void stopRunningInstances();

// The same for any executable file name; `fileName` is compared in lower case.
void stopProcessesNamed(std::wstring_view fileName);

}  // namespace velquin::setup
