// close_target MODE ARGUMENT: a process for the tests of starting and stopping programs.
//   window EVENT       ends with 7 when its window is asked to close; with 8 when the window that this one owns is
//   asked,
//                      which nobody should do
//   stubborn EVENT     ignores that it is asked to close
//   windowless EVENT   has no window
//   exit CODE          ends with CODE
//   command-line FILE  writes its own raw command line to FILE, in UTF-8
//   startup -          ends with 0x100, and 0x10 and the show command added where it was started with one
// The first three set the named event when they are ready and end with 1 after a minute.
#include <windows.h>

#include <span>
#include <string>

#include "base/text.h"
#include "base/win32/files.h"

namespace {

bool stubborn = false;

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        if (!stubborn) {
            PostQuitMessage(GetWindow(window, GW_OWNER) == nullptr ? 7 : 8);
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

int runWindows(const wchar_t* readyEvent) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.lpszClassName = L"VelquinCloseTarget";
    RegisterClassW(&windowClass);
    const auto create = [&windowClass](HWND owner) {
        return CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr,
                               nullptr);
    };
    create(create(nullptr));
    SetTimer(nullptr, 0, 60000, [](HWND, UINT, UINT_PTR, DWORD) { ExitProcess(1); });
    signalReady(readyEvent);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

int writeCommandLine(const wchar_t* path) {
    const std::string text = base::toUtf8(GetCommandLineW());
    const base::UniqueFile file = base::openFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(text))) ? 0 : 3;
}

int reportStartup() {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? 0x110 + startup.wShowWindow : 0x100;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring mode = argc > 2 ? argv[1] : L"";
    if (mode == L"exit") {
        return static_cast<int>(std::stoul(argv[2]));
    }
    if (mode == L"command-line") {
        return writeCommandLine(argv[2]);
    }
    if (mode == L"startup") {
        return reportStartup();
    }
    if (mode == L"windowless") {
        signalReady(argv[2]);
        Sleep(60000);
        return 1;
    }
    stubborn = mode == L"stubborn";
    return stubborn || mode == L"window" ? runWindows(argv[2]) : 2;
}
