// A program that must never run: it is planted under the names of system tools where a careless setup would look. It
// leaves C:\canary.txt behind.
#include <windows.h>

int wmain() {
    CloseHandle(CreateFileW(L"C:\\canary.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    return 0;
}
