// A program without any defence, to prove that the traps laid for the setup work: it loads a DLL and starts a program
// by their bare names.
#include <windows.h>

int wmain() {
    LoadLibraryW(L"version.dll");
    wchar_t commandLine[] = L"schtasks.exe";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
        WaitForSingleObject(process.hProcess, 10000);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    return 0;
}
