// A DLL that must never be loaded: it is planted beside the setup under the names of system DLLs. It leaves a file
// C:\canary-<its own name>.txt behind.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(instance, path, MAX_PATH);
        const wchar_t* name = path;
        for (const wchar_t* c = path; *c != L'\0'; ++c) {
            name = *c == L'\\' ? c + 1 : name;
        }
        wchar_t mark[MAX_PATH] = L"C:\\canary-";
        lstrcatW(mark, name);
        lstrcatW(mark, L".txt");
        CloseHandle(CreateFileW(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    return TRUE;
}
