// close_target MODE EVENT: a process for the tests of closing running copies. MODE "window" ends on WM_CLOSE, "stubborn"
// ignores it, "windowless" has no window. Sets the named event when it is ready; ends with 7 when it closed as asked.
#include <windows.h>

#include <string>

namespace {

bool stubborn = false;

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        if (!stubborn) {
            PostQuitMessage(7);
        }
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void signalReady(const wchar_t* name) {
    const HANDLE ready = OpenEventW(EVENT_MODIFY_STATE, FALSE, name);
    SetEvent(ready);
    CloseHandle(ready);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring mode = argc > 2 ? argv[1] : L"";
    if (mode.empty()) {
        return 2;
    }
    if (mode == L"windowless") {
        signalReady(argv[2]);
        Sleep(60000);
        return 1;
    }
    stubborn = mode == L"stubborn";
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.lpszClassName = L"VelquinCloseTarget";
    RegisterClassW(&windowClass);
    CreateWindowExW(0, windowClass.lpszClassName, L"", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    SetTimer(nullptr, 0, 60000, [](HWND, UINT, UINT_PTR, DWORD) { ExitProcess(1); });
    signalReady(argv[2]);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
