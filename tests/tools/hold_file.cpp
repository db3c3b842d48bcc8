// hold_file FILE MS: opens FILE so that nobody else can, says so by making C:\held.txt, and lets go when that file is
// deleted or after MS milliseconds.
#include <windows.h>

#include <string>

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        return 2;
    }
    const HANDLE file = CreateFileW(argv[1], GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return 1;
    }
    CloseHandle(CreateFileW(L"C:\\held.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    const ULONGLONG end = GetTickCount64() + std::stoul(argv[2]);
    while (GetTickCount64() < end && GetFileAttributesW(L"C:\\held.txt") != INVALID_FILE_ATTRIBUTES) {
        Sleep(20);
    }
    CloseHandle(file);
    return 0;
}
