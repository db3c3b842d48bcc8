// The process entry of VelquinSetup.exe.
#include <windows.h>

#include "setup/exit_codes.h"
#include "setup/modes.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    // First of all: from here on DLLs come from System32 only, whatever lies beside the program.
    if (!SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32)) {
        return velquin::setup::kExitInstallFailed;
    }
    return velquin::setup::runSetup(instance);
}
